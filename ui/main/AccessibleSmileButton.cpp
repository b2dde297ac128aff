#include "AccessibleSmileButton.h"

#include "AccessibleNames.h"
#include "SmileButton.h"

AccessibleSmileButton::AccessibleSmileButton(SmileButton *button)
    : QAccessibleWidget(button, QAccessible::Button)
{}

SmileButton *AccessibleSmileButton::Button() const
{
    return static_cast<SmileButton *>(widget());
}

QString AccessibleSmileButton::text(QAccessible::Text t) const
{
    // Also the description: the value of a button does not reach every screen reader.
    if (t == QAccessible::Value || t == QAccessible::Description)
        return FaceMeaning(Button()->Face());
    return QAccessibleWidget::text(t);
}

QAccessible::State AccessibleSmileButton::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.pressed = Button()->isDown();
    return state;
}

QStringList AccessibleSmileButton::actionNames() const
{
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
}

void AccessibleSmileButton::doAction(const QString &actionName)
{
    if (actionName == pressAction())
        Button()->click();
    else
        QAccessibleWidget::doAction(actionName);
}
