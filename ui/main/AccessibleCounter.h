#pragma once

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>

class DigitDisplay;

// The bomb counter or the clock as assistive technology sees it: the widget's accessible name
// followed by the number the digits show ("Bombe rimaste 10"), and that number as value ("010"
// as text, 10 as number). Both are read when asked; no event announces their changes, so the
// clock does not speak every second.
class AccessibleCounter : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleCounter(DigitDisplay *display);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text t) const override;

    QVariant currentValue() const override;
    // The player cannot set a counter.
    void setCurrentValue(const QVariant &) override {}
    QVariant maximumValue() const override;
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    QString Digits() const;
};
