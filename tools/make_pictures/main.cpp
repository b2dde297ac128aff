// Draws every picture of the game and writes it as XPM into the folder given as the one
// argument (normally assets/pictures of the source tree).
#include "Drawings.h"
#include "PixelArt.h"

#include <QDir>
#include <QString>

#include <cstdio>

namespace {

bool WriteSet(const QList<QImage> &pictures, const QString &stem, int first, const QDir &folder)
{
    bool written = true;
    for (int i = 0; i < pictures.size(); ++i) {
        const QString name = QStringLiteral("%1%2").arg(stem).arg(first + i, 2, 10, QChar('0'));
        written = WriteXpm(pictures.at(i), name, folder.filePath(name + ".xpm")) && written;
    }
    return written;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_pictures <output folder>\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const struct
    {
        QImage picture;
        const char *name;
    } singles[] = {{DrawIcon(), "icon"},
                   {DrawItalianFlag(), "flag_italy"},
                   {DrawUnionFlag(), "flag_uk"},
                   {DrawBubble(), "bubble"},
                   {DrawPortrait(), "portrait"}};
    bool written = WriteSet(DrawCells(), "cell", 1, folder) &&
                   WriteSet(DrawDigits(), "digit", 0, folder) &&
                   WriteSet(DrawFaces(), "face", 1, folder);
    for (const auto &single : singles) {
        const QString name = QString::fromLatin1(single.name);
        written = WriteXpm(single.picture, name, folder.filePath(name + ".xpm")) && written;
    }
    if (!written) {
        std::fprintf(stderr, "make_pictures: cannot write into %s\n", argv[1]);
        return 1;
    }
    return 0;
}
