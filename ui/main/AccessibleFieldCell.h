#pragma once

#include "AccessibleFieldPart.h"

// One cell of the field as assistive technology sees it: a table cell whose name says what the
// cell shows now and whose description gives its row and column, read from the view at each
// request. The current cell is the focused one while the field has the focus, and its
// description starts with what the last press on it brought about. Created by AccessibleField when
// first asked for, registered under a fixed id so that a screen reader keeps meeting the same
// object, and deleted by AccessibleField when the field takes another size or goes away.
class AccessibleFieldCell : public AccessibleFieldPart, public QAccessibleTableCellInterface
{
public:
    // Cell `index` (1..columns * rows, row by row from the top) of `view`.
    AccessibleFieldCell(FieldView *view, int index);

    int Index() const { return index; }

    bool isValid() const override;
    QString text(QAccessible::Text t) const override;
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
    int index;
};
