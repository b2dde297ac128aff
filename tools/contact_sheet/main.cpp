// Writes one PNG that shows every embedded picture enlarged eight times, on a checkerboard so
// that transparent parts show, each picture set on its own row; last, the about box's pictures
// laid out as the dialog shows them.
//   QT_QPA_PLATFORM=offscreen contact_sheet sheet.png
#include "Artwork.h"
#include "PictureSet.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>

namespace {

const int Scale = 8;
const int Gap = 16;
const int LabelHeight = 22;

struct Row
{
    const char *title;
    QList<QPixmap> pictures;
};

QList<QPixmap> SetPictures(const PictureSet &set)
{
    QList<QPixmap> pictures;
    for (int index = 1; index <= set.Count(); ++index) {
        pictures.append(set.Picture(index));
    }
    return pictures;
}

QSize RowSize(const Row &row)
{
    int width = 0;
    int height = 0;
    for (const QPixmap &picture : row.pictures) {
        width += picture.width() * Scale + Gap;
        height = std::max(height, picture.height() * Scale);
    }
    return {width, height + LabelHeight + Gap};
}

void DrawChecks(QPainter &painter, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); y += Scale) {
        for (int x = area.left(); x <= area.right(); x += Scale) {
            const bool even = ((x - area.left()) / Scale + (y - area.top()) / Scale) % 2 == 0;
            painter.fillRect(QRect(x, y, Scale, Scale),
                             even ? QColor(0xC0, 0xFF, 0xFF) : QColor(0xA0, 0xD8, 0xD8));
        }
    }
}

// The about box's pictures where the dialog puts them, with the nose hotspot outlined in red.
QPixmap AboutBoxMock()
{
    QPixmap box(326, 232);
    box.fill(QColor(0xC0, 0xFF, 0xFF));
    QPainter painter(&box);
    painter.drawPixmap(160, 44, PortraitPicture());
    painter.drawPixmap(-4, 100, SpeechBubblePicture());
    painter.drawPixmap(QRect(180, 4, 37, 30), ItalianFlagPicture());
    painter.drawPixmap(QRect(222, 4, 35, 30), UnitedKingdomFlagPicture());
    painter.setPen(Qt::red);
    painter.drawRect(QRect(188, 92, 21, 21));
    return box;
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: contact_sheet <output.png>\n");
        return 2;
    }
    const QList<Row> rows = {
        {"IL cells 1-8", SetPictures(PictureSet::IL()).mid(0, 8)},
        {"IL cells 9-15", SetPictures(PictureSet::IL()).mid(8)},
        {"ILD digits 0-9", SetPictures(PictureSet::ILD())},
        {"ILS faces 1-4, window icon", SetPictures(PictureSet::ILS()) << WindowIconPicture()},
        {"flags", {ItalianFlagPicture(), UnitedKingdomFlagPicture()}},
        {"speech bubble, portrait", {SpeechBubblePicture(), PortraitPicture()}},
        {"about box layout (nose hotspot in red)", {AboutBoxMock()}},
    };
    QSize total(0, Gap);
    for (const Row &row : rows) {
        const QSize size = RowSize(row);
        total = QSize(std::max(total.width(), size.width() + Gap), total.height() + size.height());
    }
    QImage sheet(total, QImage::Format_ARGB32);
    sheet.fill(QColor(0x50, 0x50, 0x50));
    QPainter painter(&sheet);
    painter.setPen(Qt::white);
    int top = Gap;
    for (const Row &row : rows) {
        painter.drawText(QRect(Gap, top, total.width(), LabelHeight), row.title);
        int left = Gap;
        for (const QPixmap &picture : row.pictures) {
            const QRect area(left, top + LabelHeight, picture.width() * Scale,
                             picture.height() * Scale);
            DrawChecks(painter, area);
            painter.drawPixmap(area, picture);
            left += area.width() + Gap;
        }
        top += RowSize(row).height();
    }
    painter.end();
    return sheet.save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
