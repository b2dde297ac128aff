#include "AccessibleFactory.h"

#include "AccessibleCounter.h"
#include "AccessibleField.h"
#include "AccessibleSmileButton.h"
#include "DigitDisplay.h"
#include "FieldView.h"
#include "SmileButton.h"

QAccessibleInterface *CreateGameAccessible(const QString &className, QObject *object)
{
    if (auto *field = qobject_cast<FieldView *>(object); field && className == "FieldView")
        return new AccessibleField(field);
    if (auto *display = qobject_cast<DigitDisplay *>(object);
        display && className == "DigitDisplay")
        return new AccessibleCounter(display);
    if (auto *smile = qobject_cast<SmileButton *>(object); smile && className == "SmileButton")
        return new AccessibleSmileButton(smile);
    return nullptr;
}
