// Writes the program's icon at the sizes the desktop's icon theme wants, each source pixel an
// exact square of pixels, so the pixel art stays sharp at every size.
//   make_icons <folder>   writes <folder>/48.png, 64.png, 128.png and 256.png
#include <QDir>
#include <QImage>

#include <cstdio>

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fputs("usage: make_icons <folder>\n", stderr);
        return 2;
    }
    const QImage icon(QStringLiteral(":/pictures/icon.xpm"));
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    if (icon.isNull() || !folder.mkpath(QStringLiteral("."))) {
        std::fputs("make_icons: cannot read the icon or make the folder\n", stderr);
        return 1;
    }
    for (const int size : {48, 64, 128, 256}) {
        const QImage scaled =
            icon.scaled(size, size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        if (!scaled.save(folder.filePath(QStringLiteral("%1.png").arg(size)))) {
            std::fprintf(stderr, "make_icons: cannot write the %d pixel icon\n", size);
            return 1;
        }
    }
    return 0;
}
