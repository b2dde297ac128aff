#include "AccessibleFieldCell.h"

#include "AccessibleNames.h"
#include "FieldView.h"

AccessibleFieldCell::AccessibleFieldCell(FieldView *view, int index)
    : AccessibleFieldPart(view), index(index)
{}

bool AccessibleFieldCell::isValid() const
{
    return view && index <= view->FieldX() * view->FieldY();
}

QString AccessibleFieldCell::text(QAccessible::Text t) const
{
    if (t == QAccessible::Name)
        return CellName(view->Pic(index));
    if (t != QAccessible::Description)
        return QString();
    // What the last press brought about comes first: it is what the player waits to hear.
    const QString place = CellPlace(rowIndex() + 1, columnIndex() + 1);
    const bool noted = index == view->CurrentCell() && !view->Note().isEmpty();
    return noted ? view->Note() + QStringLiteral(", ") + place : place;
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
    state.focusable = true;
    state.focused = view->hasFocus() && index == view->CurrentCell();
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
