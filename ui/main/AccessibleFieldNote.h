#pragma once

#include <QAccessibleInterface>
#include <QPointer>

class FieldView;

// What the last press on the field brought about (FieldView::Note), as a notification that a
// screen reader speaks when it is shown, wherever the focus is: not every screen reader speaks
// a change of the focused cell's description. Made and registered by the field itself; it is
// no child of the field's table, whose children are its cells.
class AccessibleFieldNote : public QAccessibleInterface
{
public:
    explicit AccessibleFieldNote(FieldView *view);

    bool isValid() const override { return view; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override;
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text t) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }

private:
    QPointer<FieldView> view;
};
