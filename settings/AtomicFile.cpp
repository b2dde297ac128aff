#include "AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

QString systemReason(const char *action, const QString &path)
{
    return QStringLiteral("%1 %2: %3")
        .arg(QLatin1StringView(action), path, QString::fromLocal8Bit(std::strerror(errno)));
}

QString temporaryPath(const QString &path)
{
    return path + u'.' + QString::number(::getpid()) + QStringLiteral(".tmp");
}

// The file that a write to path changes: path itself, or the file a symbolic link points to.
QString finalTarget(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isSymLink())
        return path;
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.symLinkTarget() : canonical;
}

// Writes bytes to a new temporary file for path and flushes it to the disk; on failure the
// temporary file is removed again.
QString writeTemporary(const QString &temporary, QByteArrayView bytes)
{
    const QByteArray name = QFile::encodeName(temporary);
    ::unlink(name.constData()); // a leftover of this process from an earlier save
    const int fd =
        ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (fd < 0)
        return systemReason("cannot create", temporary);
    QString error;
    for (qsizetype written = 0; written < bytes.size() && error.isEmpty();) {
        const ssize_t n = ::write(fd, bytes.data() + written, size_t(bytes.size() - written));
        if (n > 0)
            written += n;
        else if (errno != EINTR)
            error = systemReason("cannot write", temporary);
    }
    if (error.isEmpty() && ::fsync(fd) != 0)
        error = systemReason("cannot write", temporary);
    if (::close(fd) != 0 && error.isEmpty())
        error = systemReason("cannot write", temporary);
    if (!error.isEmpty())
        ::unlink(name.constData());
    return error;
}

void removeLeftoversBeside(const QString &path)
{
    const QFileInfo target(path);
    static const QRegularExpression processId(QStringLiteral("^\\.(\\d{1,9})\\.tmp$"));
    const QString prefix = target.fileName();
    const QFileInfoList candidates = target.dir().entryInfoList(
        {prefix + QStringLiteral(".*.tmp")},
        QDir::Files | QDir::Hidden | QDir::NoSymLinks | QDir::CaseSensitive);
    for (const QFileInfo &candidate : candidates) {
        const QRegularExpressionMatch match =
            processId.match(candidate.fileName().sliced(prefix.size()));
        if (!match.hasMatch())
            continue;
        const pid_t owner = match.captured(1).toInt();
        if (owner == ::getpid() || (::kill(owner, 0) != 0 && errno == ESRCH))
            QFile::remove(candidate.filePath());
    }
}

} // namespace

QString WriteFileAtomically(const QString &path, QByteArrayView bytes)
{
    const QString target = finalTarget(path);
    // A file made read-only stays as it is, although renaming over it would work.
    if (::access(QFile::encodeName(target).constData(), W_OK) != 0 && errno != ENOENT)
        return systemReason("cannot replace", target);
    const QString temporary = temporaryPath(target);
    if (QString error = writeTemporary(temporary, bytes); !error.isEmpty())
        return error;
    if (::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(target).constData()) ==
        0)
        return {};
    const QString error = systemReason("cannot replace", target);
    QFile::remove(temporary);
    return error;
}

QString CreateFileAtomically(const QString &path, QByteArrayView bytes,
                             const QString &temporaryBeside, bool &alreadyThere)
{
    const QString temporary = temporaryPath(temporaryBeside);
    if (QString error = writeTemporary(temporary, bytes); !error.isEmpty())
        return error;
    // link() never replaces and never follows whatever is at the new name.
    const int linked =
        ::link(QFile::encodeName(temporary).constData(), QFile::encodeName(path).constData());
    alreadyThere = linked != 0 && errno == EEXIST;
    const QString error = linked == 0 ? QString() : systemReason("cannot create", path);
    QFile::remove(temporary);
    return error;
}

void RemoveWriteLeftovers(const QString &path)
{
    removeLeftoversBeside(path);
    if (const QString target = finalTarget(path); target != path)
        removeLeftoversBeside(target);
}
