#include "AccessibleField.h"

#include "AccessibleFieldCell.h"
#include "FieldView.h"

AccessibleField::AccessibleField(FieldView *view) : QAccessibleWidget(view, QAccessible::Table) {}

AccessibleField::~AccessibleField()
{
    DeleteCells();
}

FieldView *AccessibleField::View() const
{
    return static_cast<FieldView *>(widget());
}

void *AccessibleField::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

int AccessibleField::columnCount() const
{
    return View()->FieldX();
}

int AccessibleField::rowCount() const
{
    return View()->FieldY();
}

int AccessibleField::childCount() const
{
    return columnCount() * rowCount();
}

QAccessibleInterface *AccessibleField::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    return Cell(index + 1);
}

int AccessibleField::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *cell = dynamic_cast<const AccessibleFieldCell *>(child);
    if (!cell || QAccessible::accessibleInterface(cellIds.value(cell->Index())) != child)
        return -1;
    return cell->Index() - 1;
}

QAccessibleInterface *AccessibleField::childAt(int x, int y) const
{
    const int index = View()->CellAt(View()->mapFromGlobal(QPoint(x, y)));
    return index == 0 ? nullptr : Cell(index);
}

QAccessibleInterface *AccessibleField::cellAt(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount())
        return nullptr;
    return Cell(row * columnCount() + column + 1);
}

QAccessibleInterface *AccessibleField::Cell(int index) const
{
    const QSize size(columnCount(), rowCount());
    if (size != cellsSize) {
        DeleteCells();
        cellsSize = size;
    }
    QAccessible::Id &id = cellIds[index];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(new AccessibleFieldCell(View(), index));
    return QAccessible::accessibleInterface(id);
}

void AccessibleField::DeleteCells() const
{
    for (const QAccessible::Id id : std::as_const(cellIds))
        QAccessible::deleteAccessibleInterface(id);
    cellIds.clear();
}
