#pragma once

#include "AccessibleFieldPart.h"

// What the last press on the field brought about (FieldView::Note), as a notification that a
// screen reader speaks when it is shown, wherever the focus is: not every screen reader speaks
// a change of the focused cell's description. Made and registered by the field itself; it is
// no child of the field's table, whose children are its cells.
class AccessibleFieldNote : public AccessibleFieldPart
{
public:
    using AccessibleFieldPart::AccessibleFieldPart;

    bool isValid() const override { return view; }
    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }
};
