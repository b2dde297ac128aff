#include "DigitDisplay.h"

#include "PictureSet.h"

#include <QPainter>

DigitDisplay::DigitDisplay(int places, QSize size, QWidget *parent)
    : QWidget(parent), digits(places, 0)
{
    setFixedSize(size);
}

void DigitDisplay::SetDigit(int place, int d)
{
    Q_ASSERT(place >= 0 && place < digits.size());
    Q_ASSERT(d >= 0 && d <= 9);
    if (digits[place] == d)
        return;
    digits[place] = d;
    update(PlaceRect(place));
}

QString DigitDisplay::Digits() const
{
    QString text;
    for (int place = digits.size() - 1; place >= 0; --place)
        text += QChar(u'0' + digits[place]);
    return text;
}

QRect DigitDisplay::PlaceRect(int place) const
{
    const int left = (digits.size() - 1 - place) * DigitPitch;
    return QRect(QPoint(left, 0), PictureSet::ILD().Size());
}

void DigitDisplay::paintEvent(QPaintEvent *)
{
    // Left to right, so each digit's right column lies under its right-hand neighbour.
    QPainter painter(this);
    const PictureSet &set = PictureSet::ILD();
    for (int place = digits.size() - 1; place >= 0; --place)
        painter.drawPixmap(PlaceRect(place).topLeft(), set.Picture(digits[place] + 1));
}
