#pragma once

#include <QAbstractButton>

// The smiley button: a raised grey button showing one face of the face set (1 won, 2 lost,
// 3 button down on a cell, 4 normal), sunken while it is held down. It paints the face pixel
// for pixel, so the face stays sharp on screens that scale the window.
class SmileButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit SmileButton(QWidget *parent = nullptr);

    // Shows face 1..4.
    void SetFace(int face);
    int Face() const { return face; }

    QSize sizeHint() const override { return QSize(26, 25); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int face = 4;
};
