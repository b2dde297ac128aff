#include "PictureSet.h"

#include <QBuffer>
#include <QFile>
#include <QtTest>

namespace {

QByteArray Embedded(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray AsPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// A damaged image must either be refused or come out whole; it must never crash the loader.
void LoadsWholeOrNot(const QByteArray &bytes, const char *format, QSize size)
{
    QImage image;
    if (image.loadFromData(bytes, format)) {
        QCOMPARE(image.size(), size);
    } else {
        QVERIFY(image.isNull());
    }
}

void PutBigEndian(QByteArray &bytes, int at, quint32 value)
{
    for (int i = 0; i < 4; ++i) {
        bytes[at + i] = static_cast<char>(value >> (24 - 8 * i));
    }
}

} // namespace

class tst_damagedpictures : public QObject
{
    Q_OBJECT

private slots:
    void truncatedPictureTextIsRefused_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QSize>("size");
        QTest::newRow("cell") << ":/pictures/cell11.xpm" << QSize(16, 16);
        QTest::newRow("digit") << ":/pictures/digit08.xpm" << QSize(17, 25);
        QTest::newRow("face") << ":/pictures/face03.xpm" << QSize(21, 21);
        QTest::newRow("icon") << ":/pictures/icon.xpm" << QSize(16, 16);
    }

    void truncatedPictureTextIsRefused()
    {
        QFETCH(QString, path);
        QFETCH(QSize, size);
        const QByteArray whole = Embedded(path);
        QVERIFY(!whole.isEmpty());
        // Cut anywhere before the last pixel row ends: never a picture.
        const qsizetype lastRowEnd = whole.lastIndexOf('"');
        for (qsizetype length = 0; length < lastRowEnd; ++length) {
            QImage image;
            QVERIFY2(!image.loadFromData(whole.left(length), "XPM"),
                     qPrintable(QString::number(length)));
        }
        LoadsWholeOrNot(whole, "XPM", size);
    }

    void pictureTextWithBrokenHeaderIsRefused_data()
    {
        QTest::addColumn<QByteArray>("header");
        QTest::newRow("huge size") << QByteArray("\"100000 100000 3 1\"");
        QTest::newRow("negative size") << QByteArray("\"-16 16 3 1\"");
        QTest::newRow("more colours than given") << QByteArray("\"16 16 200 1\"");
        QTest::newRow("no characters per pixel") << QByteArray("\"16 16 3 0\"");
        QTest::newRow("wide characters per pixel") << QByteArray("\"16 16 3 9\"");
        QTest::newRow("missing numbers") << QByteArray("\"16\"");
    }

    void pictureTextWithBrokenHeaderIsRefused()
    {
        QFETCH(QByteArray, header);
        QByteArray bytes = Embedded(":/pictures/cell13.xpm");
        const qsizetype start = bytes.indexOf('"');
        const qsizetype end = bytes.indexOf('"', start + 1);
        bytes.replace(start, end - start + 1, header);
        QImage image;
        QVERIFY(!image.loadFromData(bytes, "XPM"));
        QVERIFY(image.isNull());
    }

    void truncatedPngIsRefused()
    {
        const QImage portrait = PictureSet::ILS().Image(3);
        const QByteArray whole = AsPng(portrait);
        QVERIFY(whole.size() > 100);
        // Without its closing chunk the picture data may still be complete; anything shorter
        // than the image data must be refused.
        const qsizetype dataEnd = whole.indexOf("IEND") - 8;
        for (qsizetype length = 0; length < whole.size(); ++length) {
            QImage image;
            const bool loaded = image.loadFromData(whole.left(length), "PNG");
            QVERIFY2(!loaded || length >= dataEnd, qPrintable(QString::number(length)));
            if (loaded) {
                QCOMPARE(image.size(), portrait.size());
            }
        }
    }

    void pngWithCorruptChunkSizesIsRefused_data()
    {
        QTest::addColumn<QByteArray>("chunk");
        QTest::addColumn<quint32>("length");
        QTest::newRow("header chunk huge") << QByteArray("IHDR") << quint32(0xFFFFFFF0);
        QTest::newRow("header chunk short") << QByteArray("IHDR") << quint32(3);
        QTest::newRow("data chunk huge") << QByteArray("IDAT") << quint32(0x7FFFFFFF);
        QTest::newRow("data chunk empty") << QByteArray("IDAT") << quint32(0);
    }

    void pngWithCorruptChunkSizesIsRefused()
    {
        QFETCH(QByteArray, chunk);
        QFETCH(quint32, length);
        QByteArray bytes = AsPng(PictureSet::IL().Image(14));
        const qsizetype type = bytes.indexOf(chunk);
        QVERIFY(type >= 12);
        PutBigEndian(bytes, static_cast<int>(type - 4), length);
        QImage image;
        QVERIFY(!image.loadFromData(bytes, "PNG"));
        QVERIFY(image.isNull());
    }

    void pngWithImpossibleDimensionsIsRefused()
    {
        QByteArray bytes = AsPng(PictureSet::IL().Image(14));
        const qsizetype header = bytes.indexOf("IHDR") + 4;
        PutBigEndian(bytes, static_cast<int>(header), 0x7FFFFFFF);
        QImage image;
        QVERIFY(!image.loadFromData(bytes, "PNG"));
    }
};

QTEST_MAIN(tst_damagedpictures)
#include "tst_damagedpictures.moc"
