#include "PictureSet.h"

const PictureSet &PictureSet::IL()
{
    static const PictureSet set(QStringLiteral("cell"), 1, 15, QSize(16, 16));
    return set;
}

const PictureSet &PictureSet::ILD()
{
    static const PictureSet set(QStringLiteral("digit"), 0, 10, QSize(17, 25));
    return set;
}

const PictureSet &PictureSet::ILS()
{
    static const PictureSet set(QStringLiteral("face"), 1, 4, QSize(21, 21));
    return set;
}

PictureSet::PictureSet(const QString &stem, int first, int count, QSize size) : pictureSize(size)
{
    images.reserve(count);
    for (int number = first; number < first + count; ++number) {
        const QString path =
            QStringLiteral(":/pictures/%1%2.xpm").arg(stem).arg(number, 2, 10, QLatin1Char('0'));
        QImage image(path);
        Q_ASSERT_X(image.size() == size, "PictureSet", qPrintable(path));
        images.append(image.convertToFormat(QImage::Format_ARGB32));
    }
}

QPixmap PictureSet::Picture(int index) const
{
    return QPixmap::fromImage(Image(index));
}

QImage PictureSet::Image(int index) const
{
    Q_ASSERT_X(index >= 1 && index <= Count(), "PictureSet", "picture index out of range");
    return images.at(index - 1);
}

int PictureSet::Count() const
{
    return static_cast<int>(images.size());
}

QSize PictureSet::Size() const
{
    return pictureSize;
}
