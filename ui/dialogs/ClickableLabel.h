#pragma once

#include <QLabel>

// A label (text, picture or nothing at all) that reports a left click: the left button
// pressed on it and released still inside it. A click on it never reaches the widgets behind.
class ClickableLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

signals:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
};
