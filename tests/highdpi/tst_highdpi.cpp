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

// On a screen that scales by a whole number, every picture must stay pixel art: each source
// pixel an exact square of screen pixels, never a blend of its neighbours.
class HighDpiTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cellsDigitsAndFaceAreExactSquares();
    void aboutBoxPicturesStaySharp();

private:
    RecordingWaveOutput sound;
    ClockRandomSource random;
};

namespace {

constexpr int Scale = 2;

QImage Grab(QWidget *widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

// Whether `source` appears in `shot` at logical position `at`, each of its opaque pixels as a
// Scale x Scale square of exactly its colour.
bool ShowsAsSquares(const QImage &shot, const QImage &source, QPoint at)
{
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x) {
            const QRgb colour = source.pixel(x, y);
            if (qAlpha(colour) != 255)
                continue;
            for (int dy = 0; dy < Scale; ++dy) {
                for (int dx = 0; dx < Scale; ++dx) {
                    if (shot.pixel((at.x() + x) * Scale + dx, (at.y() + y) * Scale + dy) != colour)
                        return false;
                }
            }
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

void HighDpiTest::initTestCase()
{
    QCOMPARE(qApp->devicePixelRatio(), qreal(Scale));
}

void HighDpiTest::cellsDigitsAndFaceAreExactSquares()
{
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

void HighDpiTest::aboutBoxPicturesStaySharp()
{
    QPointer<frmAbout> about = new frmAbout;
    about->show();

    const QImage portrait = Grab(about->findChild<QWidget *>(QStringLiteral("Image1")));
    QVERIFY(
        ShowsAsSquares(portrait, QImage(QStringLiteral(":/pictures/portrait.xpm")), QPoint(0, 0)));

    // The flag is stretched to its control by repeating pixels: only its own colours appear.
    const QImage flag = Grab(about->findChild<QWidget *>(QStringLiteral("flagI")));
    const std::set<QRgb> source = Colours(
        QImage(QStringLiteral(":/pictures/flag_italy.xpm")).convertToFormat(QImage::Format_ARGB32));
    for (const QRgb colour : Colours(flag))
        QVERIFY2(source.count(colour), qPrintable(QString::number(colour, 16)));
    about->close();
}

int main(int argc, char *argv[])
{
    qputenv("QT_SCALE_FACTOR", QByteArray::number(Scale));
    QTemporaryDir config; // the window reads its settings: never the player's own
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    QApplication app(argc, argv);
    HighDpiTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_highdpi.moc"
