#pragma once

#include <QAccessibleInterface>
#include <QPointer>

class FieldView;

// What the field's cells and its note share as assistive technology sees them: objects of the
// field's window without a QObject or children of their own, whose texts cannot be set.
class AccessibleFieldPart : public QAccessibleInterface
{
public:
    explicit AccessibleFieldPart(FieldView *view);

    QObject *object() const override { return nullptr; }
    QWindow *window() const override;
    // The field.
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    void setText(QAccessible::Text, const QString &) override {}

protected:
    QPointer<FieldView> view;
};
