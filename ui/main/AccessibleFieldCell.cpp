#include "AccessibleFieldCell.h"

#include "AccessibleNames.h"
#include "FieldView.h"

AccessibleFieldCell::AccessibleFieldCell(FieldView *view, int index) : view(view), index(index) {}

bool AccessibleFieldCell::isValid() const
{
    return view && index <= view->FieldX() * view->FieldY();
}

QWindow *AccessibleFieldCell::window() const
{
    return view->window()->windowHandle();
}

QAccessibleInterface *AccessibleFieldCell::parent() const
{
    return QAccessible::queryAccessibleInterface(view);
}

QString AccessibleFieldCell::text(QAccessible::Text t) const
{
    return t == QAccessible::Name ? CellName(view->Pic(index)) : QString();
}

QRect AccessibleFieldCell::rect() const
{
    const QRect cell = view->CellRect(index);
    return QRect(view->mapToGlobal(cell.topLeft()), cell.size());
}

QAccessible::State AccessibleFieldCell::state() const
{
    QAccessible::State state;
    state.invisible = !view->isVisible();
    state.readOnly = true;
    return state;
}

void *AccessibleFieldCell::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface *>(this);
    return nullptr;
}

int AccessibleFieldCell::columnIndex() const
{
    return (index - 1) % view->FieldX();
}

int AccessibleFieldCell::rowIndex() const
{
    return (index - 1) / view->FieldX();
}
