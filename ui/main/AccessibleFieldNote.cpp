#include "AccessibleFieldNote.h"

#include "FieldView.h"

QString AccessibleFieldNote::text(QAccessible::Text t) const
{
    return t == QAccessible::Name ? view->Note() : QString();
}

QRect AccessibleFieldNote::rect() const
{
    return parent()->rect();
}
