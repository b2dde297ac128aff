#pragma once

#include <QList>
#include <QWidget>

// A row of counter digits, each a picture of the digit set (digit d is picture d + 1) placed
// 16 pixels apart so that neighbours overlap by one column. Places are numbered from the
// right: place 0 holds the units. Every place shows 0 until it is given another digit.
class DigitDisplay : public QWidget
{
    Q_OBJECT

public:
    // Horizontal distance between the left edges of two neighbouring digits.
    static constexpr int DigitPitch = 16;

    // `places` digits in a box of the given size; the digits stand at its top left.
    DigitDisplay(int places, QSize size, QWidget *parent = nullptr);

    // Shows digit d (0..9) at `place` (0 = units).
    void SetDigit(int place, int d);
    // The digits shown, left to right, such as "099".
    QString Digits() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect PlaceRect(int place) const;

    QList<int> digits;
};
