#include "DigitDisplay.h"
#include "FieldView.h"
#include "PictureSet.h"

#include <QPaintEvent>
#include <QSignalSpy>
#include <QTest>

namespace {

// Records the rectangles of the paint events a widget receives.
class PaintRecorder : public QObject
{
public:
    explicit PaintRecorder(QWidget *widget) { widget->installEventFilter(this); }
    QList<QRect> Rects;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            Rects.append(static_cast<QPaintEvent *>(event)->rect());
        return false;
    }
};

QImage Region(const QImage &image, const QRect &rect)
{
    return image.copy(rect).convertToFormat(QImage::Format_RGB32);
}

QImage Opaque(const QImage &image)
{
    return image.convertToFormat(QImage::Format_RGB32);
}

} // namespace

class tst_FieldView : public QObject
{
    Q_OBJECT

private slots:
    void sizeFollowsCellCount_data();
    void sizeFollowsCellCount();
    void cellsLieRowByRowInsideTheBorder();
    void pressAndReleaseReportTheCellOfThePress();
    void otherButtonsAndBorderPressesAreIgnored();
    void paintsEachCellPictureInsideASunkenBorder();
    void setPicRepaintsOnlyThatCell();
    void resetCoversEveryCellOfTheNewSize();
    void digitsOverlapByOneColumn();
};

void tst_FieldView::sizeFollowsCellCount_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QSize>("size");
    QTest::newRow("easy") << 9 << 9 << QSize(148, 148);
    QTest::newRow("hard") << 30 << 16 << QSize(484, 260);
    QTest::newRow("smallest") << 7 << 7 << QSize(116, 116);
    QTest::newRow("largest") << 49 << 49 << QSize(788, 788);
}

void tst_FieldView::sizeFollowsCellCount()
{
    QFETCH(int, columns);
    QFETCH(int, rows);
    QFETCH(QSize, size);
    FieldView view;
    view.Reset(columns, rows);
    QCOMPARE(view.sizeHint(), size);
    QCOMPARE(view.size(), size);
}

void tst_FieldView::cellsLieRowByRowInsideTheBorder()
{
    FieldView view;
    view.Reset(30, 16);
    QCOMPARE(view.CellRect(1), QRect(2, 2, 16, 16));
    QCOMPARE(view.CellRect(30), QRect(2 + 29 * 16, 2, 16, 16));
    QCOMPARE(view.CellRect(31), QRect(2, 18, 16, 16));
    QCOMPARE(view.CellRect(480), QRect(2 + 29 * 16, 2 + 15 * 16, 16, 16));
}

void tst_FieldView::pressAndReleaseReportTheCellOfThePress()
{
    FieldView view;
    view.Reset(9, 9);
    QSignalSpy presses(&view, &FieldView::CellPressed);
    QSignalSpy releases(&view, &FieldView::CellReleased);

    QTest::mousePress(&view, Qt::RightButton, {}, view.CellRect(11).center());
    // The pointer has moved on to another cell before the button comes up.
    QTest::mouseRelease(&view, Qt::RightButton, {}, view.CellRect(40).center());
    QTest::mousePress(&view, Qt::MiddleButton, {}, view.CellRect(81).topLeft());
    QTest::mouseRelease(&view, Qt::MiddleButton, {}, view.CellRect(81).topLeft());

    QCOMPARE(presses.size(), 2);
    QCOMPARE(presses[0], QVariantList({11, QVariant::fromValue(Qt::RightButton)}));
    QCOMPARE(presses[1], QVariantList({81, QVariant::fromValue(Qt::MiddleButton)}));
    QCOMPARE(releases.size(), 2);
    QCOMPARE(releases[0], QVariantList({11, QVariant::fromValue(Qt::RightButton)}));
    QCOMPARE(releases[1], QVariantList({81, QVariant::fromValue(Qt::MiddleButton)}));
}

void tst_FieldView::otherButtonsAndBorderPressesAreIgnored()
{
    FieldView view;
    view.Reset(9, 9);
    QSignalSpy presses(&view, &FieldView::CellPressed);
    QSignalSpy releases(&view, &FieldView::CellReleased);

    QTest::mousePress(&view, Qt::BackButton, {}, view.CellRect(5).center());
    QTest::mouseRelease(&view, Qt::BackButton, {}, view.CellRect(5).center());
    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(1, 1));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(1, 1));
    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(146, 100));

    QCOMPARE(presses.size(), 0);
    QCOMPARE(releases.size(), 0);
}

void tst_FieldView::paintsEachCellPictureInsideASunkenBorder()
{
    FieldView view;
    view.Reset(3, 2);
    view.SetPic(2, 14);
    view.SetPic(6, 4);
    const QImage shot = view.grab().toImage();
    const PictureSet &cells = PictureSet::IL();

    QCOMPARE(Region(shot, view.CellRect(1)), Opaque(cells.Image(13)));
    QCOMPARE(Region(shot, view.CellRect(2)), Opaque(cells.Image(14)));
    QCOMPARE(Region(shot, view.CellRect(6)), Opaque(cells.Image(4)));
    // Dark outside at the top and left, light at the bottom and right.
    QCOMPARE(shot.pixelColor(0, 0), QColor(0xB8, 0xB8, 0xB8));
    QCOMPARE(shot.pixelColor(1, 10), QColor(0xC5, 0xC5, 0xC5));
    QCOMPARE(shot.pixelColor(51, 35), QColor(0xEB, 0xEB, 0xEB));
    QCOMPARE(shot.pixelColor(20, 34), QColor(0xDE, 0xDE, 0xDE));
}

void tst_FieldView::setPicRepaintsOnlyThatCell()
{
    FieldView view;
    view.Reset(9, 9);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    PaintRecorder recorder(&view);

    view.SetPic(41, 1);
    QTRY_VERIFY(!recorder.Rects.isEmpty());
    QCOMPARE(recorder.Rects, QList<QRect>({view.CellRect(41)}));
    QCOMPARE(view.Pic(41), 1);
    QCOMPARE(view.Pic(40), 13);
}

void tst_FieldView::resetCoversEveryCellOfTheNewSize()
{
    FieldView view;
    view.Reset(30, 16);
    view.SetPic(480, 2);
    view.Reset(9, 9);
    QCOMPARE(view.FieldX(), 9);
    QCOMPARE(view.FieldY(), 9);
    for (int i = 1; i <= 81; ++i)
        QCOMPARE(view.Pic(i), 13);
}

void tst_FieldView::digitsOverlapByOneColumn()
{
    DigitDisplay clock(3, QSize(53, 29));
    QCOMPARE(clock.Digits(), QStringLiteral("000"));
    clock.SetDigit(2, 1);
    clock.SetDigit(0, 7);
    QCOMPARE(clock.Digits(), QStringLiteral("107"));

    const QImage shot = clock.grab().toImage();
    const PictureSet &digits = PictureSet::ILD();
    // Each digit is whole but for its last column, which its right-hand neighbour covers.
    QCOMPARE(Region(shot, QRect(0, 0, 16, 25)), Region(digits.Image(2), QRect(0, 0, 16, 25)));
    QCOMPARE(Region(shot, QRect(16, 0, 16, 25)), Region(digits.Image(1), QRect(0, 0, 16, 25)));
    QCOMPARE(Region(shot, QRect(32, 0, 17, 25)), Opaque(digits.Image(8)));
}

QTEST_MAIN(tst_FieldView)
#include "tst_fieldview.moc"
