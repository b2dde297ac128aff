#include "AccessibleFieldPart.h"

#include "FieldView.h"

#include <QWindow>

AccessibleFieldPart::AccessibleFieldPart(FieldView *view) : view(view) {}

QWindow *AccessibleFieldPart::window() const
{
    return view->window()->windowHandle();
}

QAccessibleInterface *AccessibleFieldPart::parent() const
{
    return QAccessible::queryAccessibleInterface(view);
}
