#include "AccessibleFieldNote.h"

#include "FieldView.h"

#include <QWindow>

AccessibleFieldNote::AccessibleFieldNote(FieldView *view) : view(view) {}

QWindow *AccessibleFieldNote::window() const
{
    return view->window()->windowHandle();
}

QAccessibleInterface *AccessibleFieldNote::parent() const
{
    return QAccessible::queryAccessibleInterface(view);
}

QString AccessibleFieldNote::text(QAccessible::Text t) const
{
    return t == QAccessible::Name ? view->Note() : QString();
}

QRect AccessibleFieldNote::rect() const
{
    return QRect(view->mapToGlobal(QPoint(0, 0)), view->size());
}
