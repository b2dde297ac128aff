#include "AtomicFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

namespace {

constexpr qint64 ChunkBytes = 1 << 20;

} // namespace

// QSaveFile writes a temporary file beside the target and renames it over the target only when
// everything was written, so a crash or a full disk leaves any old file whole.
bool WriteFileAtomically(const QString &path, QIODevice &source)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    while (!source.atEnd()) {
        const QByteArray chunk = source.read(ChunkBytes);
        if (chunk.isEmpty() || file.write(chunk) != chunk.size()) {
            file.cancelWriting(); // the temporary file goes with the QSaveFile
            return false;
        }
    }
    // Without the explicit flush, a write error in QSaveFile's buffer would go unnoticed.
    return file.flush() && file.commit();
}

void RemoveWriteLeftovers(const QString &path)
{
    static const QRegularExpression leftoverEnding(
        QStringLiteral("^(?=.*[a-z])(?=.*[A-Z])[a-zA-Z]{6}$"));
    const QFileInfo target(path);
    const QString prefix = target.fileName() + u'.';
    const QFileInfoList candidates = target.dir().entryInfoList(
        {prefix + QStringLiteral("??????")},
        QDir::Files | QDir::Hidden | QDir::NoSymLinks | QDir::CaseSensitive);
    for (const QFileInfo &candidate : candidates) {
        if (leftoverEnding.match(candidate.fileName().sliced(prefix.size())).hasMatch())
            QFile::remove(candidate.filePath());
    }
}
