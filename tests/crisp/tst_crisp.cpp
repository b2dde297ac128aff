#include "ClockRandomSource.h"
#include "PictureSet.h"
#include "RecordingWaveOutput.h"
#include "frmAbout.h"
#include "frmMine.h"

#include <QApplication>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <set>

// Enlarged pictures must stay pixel art: on a screen that scales by a whole number and in the
// desktop's theme icons, each source pixel an exact square of its colour, never a blend.
class CrispTest : public QObject
{
    Q_OBJECT

private slots:
    void cellsDigitsAndFaceAreExactSquares();
    void aboutBoxPicturesStaySharp();
    void themeIconsAreExactEnlargements();

private:
    RecordingWaveOutput sound;
    ClockRandomSource random;
};

namespace {

constexpr int Scale = 2;

QImage Argb(const QImage &image)
{
    return image.convertToFormat(QImage::Format_ARGB32);
}

QImage Grab(QWidget *widget)
{
    return Argb(widget->grab().toImage());
}

// Whether `shot` shows `source` at `at` (in source pixels times `scale`), each opaque source
// pixel a `scale` x `scale` square of exactly its colour.
bool ShowsAsSquares(const QImage &shot, const QImage &source, QPoint at, int scale = Scale)
{
    for (int y = 0; y < source.height() * scale; ++y) {
        for (int x = 0; x < source.width() * scale; ++x) {
            const QRgb colour = source.pixel(x / scale, y / scale);
            if (qAlpha(colour) == 255 &&
                shot.pixel(at.x() * scale + x, at.y() * scale + y) != colour)
                return false;
        }
    }
    return true;
}

std::set<QRgb> Colours(const QImage &image)
{
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    }
    return colours;
}

} // namespace

void CrispTest::cellsDigitsAndFaceAreExactSquares()
{
    QCOMPARE(qApp->devicePixelRatio(), qreal(Scale));
    frmMine window(sound, random);
    window.Form_Load();
    window.SetPic(1, 4);

    const QImage field = Grab(window.findChild<QWidget *>(QStringLiteral("field")));
    QCOMPARE(field.width(), (16 * 9 + 4) * Scale);
    QVERIFY(ShowsAsSquares(field, PictureSet::IL().Image(4), QPoint(2, 2)));
    QVERIFY(ShowsAsSquares(field, PictureSet::IL().Image(13), QPoint(2 + 16, 2)));
    const QImage clock = Grab(window.findChild<QWidget *>(QStringLiteral("pT")));
    QVERIFY(ShowsAsSquares(clock, PictureSet::ILD().Image(1), QPoint(32, 0)));
    const QImage smile = Grab(window.findChild<QWidget *>(QStringLiteral("btnSmile")));
    QVERIFY(ShowsAsSquares(smile, PictureSet::ILS().Image(4), QPoint(3, 2)));
}

void CrispTest::aboutBoxPicturesStaySharp()
{
    QPointer<frmAbout> about = new frmAbout;
    about->show();
    const QImage portrait = Grab(about->findChild<QWidget *>(QStringLiteral("Image1")));
    QVERIFY(ShowsAsSquares(portrait, Argb(QImage(":/pictures/portrait.xpm")), QPoint(0, 0)));

    // The flag is stretched to its control by repeating pixels: only its own colours appear.
    const std::set<QRgb> source = Colours(Argb(QImage(":/pictures/flag_italy.xpm")));
    for (const QRgb colour : Colours(Grab(about->findChild<QWidget *>(QStringLiteral("flagI")))))
        QVERIFY2(source.count(colour), qPrintable(QString::number(colour, 16)));
    about->close();
}

void CrispTest::themeIconsAreExactEnlargements()
{
    const QImage icon = Argb(QImage(":/pictures/icon.xpm"));
    for (const int size : {48, 64, 128, 256}) {
        const QImage themed = Argb(QImage(QStringLiteral(VELKARO_ICON_FOLDER "/%1.png").arg(size)));
        QCOMPARE(themed.size(), QSize(size, size));
        QVERIFY2(ShowsAsSquares(themed, icon, QPoint(0, 0), size / 16),
                 qPrintable(QString::number(size)));
    }
}

int main(int argc, char *argv[])
{
    qputenv("QT_SCALE_FACTOR", QByteArray::number(Scale));
    QTemporaryDir config; // the window reads its settings: never the player's own
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    QApplication app(argc, argv);
    CrispTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_crisp.moc"
