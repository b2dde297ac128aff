#include "PixelArt.h"

#include <QFile>
#include <QList>
#include <QTextStream>

QImage Blank(QSize size, QColor fill)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(fill);
    return image;
}

void Stamp(QImage &image, QPoint origin, const QStringList &rows, const Palette &palette)
{
    for (int y = 0; y < rows.size(); ++y) {
        const QString &row = rows.at(y);
        for (int x = 0; x < row.size(); ++x) {
            const auto colour = palette.constFind(row.at(x));
            if (colour != palette.cend()) {
                image.setPixelColor(origin + QPoint(x, y), *colour);
            }
        }
    }
}

bool WriteXpm(const QImage &image, const QString &name, const QString &path)
{
    // Printable keys without the XPM quote and escape characters; the blank stands for "None".
    static const QString keys =
        QStringLiteral(".#+@$%&*=-;:>,<'`^~/"
                       "|(){}[]!?_0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ");
    QList<QRgb> colours;
    QHash<QRgb, QChar> keyOf;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QRgb pixel = image.pixel(x, y);
            pixel = qAlpha(pixel) == 0 ? 0 : pixel;
            if (!keyOf.contains(pixel)) {
                Q_ASSERT(colours.size() < keys.size());
                keyOf.insert(pixel, pixel == 0 ? QChar(' ') : keys.at(colours.size()));
                colours.append(pixel);
            }
        }
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) {
        return false;
    }
    QTextStream out(&file);
    out << "/* XPM */\nstatic const char *" << name << "[] = {\n";
    out << "\"" << image.width() << ' ' << image.height() << ' ' << colours.size() << " 1\",\n";
    for (QRgb colour : colours) {
        out << "\"" << keyOf.value(colour) << " c "
            << (colour == 0 ? QStringLiteral("None") : QColor(colour).name().toUpper()) << "\",\n";
    }
    for (int y = 0; y < image.height(); ++y) {
        out << '"';
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            out << keyOf.value(qAlpha(pixel) == 0 ? 0 : pixel);
        }
        out << (y + 1 < image.height() ? "\",\n" : "\"\n");
    }
    out << "};\n";
    return out.status() == QTextStream::Ok;
}
