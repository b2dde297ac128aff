#include "AccessibleCounter.h"

#include "DigitDisplay.h"

AccessibleCounter::AccessibleCounter(DigitDisplay *display)
    : QAccessibleWidget(display, QAccessible::StaticText)
{}

QString AccessibleCounter::Digits() const
{
    return static_cast<DigitDisplay *>(widget())->Digits();
}

void *AccessibleCounter::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleCounter::text(QAccessible::Text t) const
{
    if (t == QAccessible::Value)
        return Digits();
    // The number in the name too: screen readers read the name of a label, not its value.
    const QString text = QAccessibleWidget::text(t);
    return t == QAccessible::Name ? text + u' ' + QString::number(Digits().toInt()) : text;
}

QVariant AccessibleCounter::currentValue() const
{
    return Digits().toInt();
}

QVariant AccessibleCounter::maximumValue() const
{
    // All nines, as many as there are places.
    return QString(Digits().size(), u'9').toInt();
}
