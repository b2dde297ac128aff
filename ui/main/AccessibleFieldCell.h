#pragma once

#include <QAccessibleInterface>
#include <QPointer>

class FieldView;

// One cell of the field as assistive technology sees it: a table cell whose name says what the
// cell shows now and whose description gives its row and column, read from the view at each
// request. The current cell is the focused one while the field has the focus, and its
// description starts with what the last press on it brought about. Created by AccessibleField when
// first asked for, registered under a fixed id so that a screen reader keeps meeting the same
// object, and deleted by AccessibleField when the field takes another size or goes away.
class AccessibleFieldCell : public QAccessibleInterface, public QAccessibleTableCellInterface
{
public:
    // Cell `index` (1..columns * rows, row by row from the top) of `view`.
    AccessibleFieldCell(FieldView *view, int index);

    int Index() const { return index; }

    bool isValid() const override;
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
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override { return false; }
    QList<QAccessibleInterface *> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    int columnIndex() const override;
    int rowIndex() const override;
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return parent(); }

private:
    QPointer<FieldView> view;
    int index;
};
