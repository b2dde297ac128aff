#pragma once

#include <QAccessibleWidget>

class SmileButton;

// The smiley button as assistive technology sees it: a push button with the widget's accessible
// name, whose value and description say what the face shown means (normal, button pressed,
// game won, game lost) in the current language. Its press action clicks it.
class AccessibleSmileButton : public QAccessibleWidget
{
public:
    explicit AccessibleSmileButton(SmileButton *button);

    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;

    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;

private:
    SmileButton *Button() const;
};
