#pragma once

#include <QAccessibleTableInterface>
#include <QAccessibleWidget>
#include <QHash>
#include <QSize>

class FieldView;

// The field as assistive technology sees it: a table with the field's rows and columns whose
// cells (AccessibleFieldCell) name what each cell shows. Cells are made only when asked for and
// keep their ids while the field keeps its size; a field of another size gets new cells.
// Nothing can be selected.
class AccessibleField : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit AccessibleField(FieldView *view);
    ~AccessibleField() override;

    void *interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override;
    int selectedCellCount() const override { return 0; }
    QList<QAccessibleInterface *> selectedCells() const override { return {}; }
    QString columnDescription(int) const override { return {}; }
    QString rowDescription(int) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    // Cells read the view when asked, so no change needs to be taken over here.
    void modelChange(QAccessibleTableModelChangeEvent *) override {}

private:
    FieldView *View() const;
    // The cell with index 1..columns * rows, made on first request.
    QAccessibleInterface *Cell(int index) const;
    void DeleteCells() const;

    mutable QHash<int, QAccessible::Id> cellIds;
    // The field size the cells in cellIds belong to.
    mutable QSize cellsSize;
};
