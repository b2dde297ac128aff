#include <QImage>
#include <QTest>

// The theme icons are the window icon enlarged: every source pixel must become an exact square
// of its own colour, or the pixel art turns blurry in menus and software centres.
class IconsTest : public QObject
{
    Q_OBJECT

private slots:
    void themeIconsAreExactEnlargements_data();
    void themeIconsAreExactEnlargements();
};

void IconsTest::themeIconsAreExactEnlargements_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {48, 64, 128, 256})
        QTest::addRow("%d", size) << size;
}

void IconsTest::themeIconsAreExactEnlargements()
{
    QFETCH(int, size);
    const QImage source =
        QImage(QStringLiteral(":/pictures/icon.xpm")).convertToFormat(QImage::Format_ARGB32);
    const QImage icon = QImage(QStringLiteral(VELKARO_ICON_FOLDER "/%1.png").arg(size))
                            .convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(source.size(), QSize(16, 16));
    QCOMPARE(icon.size(), QSize(size, size));
    const int scale = size / source.width();
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            if (icon.pixel(x, y) != source.pixel(x / scale, y / scale))
                QFAIL(qPrintable(
                    QStringLiteral("pixel (%1, %2) differs from its source").arg(x).arg(y)));
        }
    }
}

QTEST_APPLESS_MAIN(IconsTest)
#include "tst_icons.moc"
