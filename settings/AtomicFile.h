#pragma once

#include <QByteArrayView>
#include <QString>

// Each function returns an empty text when it worked, otherwise what went wrong, with the
// system's reason.
//
// Files are first written in full to "<name>.<process id>.tmp" in the folder of the file they
// become and flushed to the disk; only then are they moved into place. A kill leaves at most
// such a temporary file, which RemoveWriteLeftovers removes at the next save.

// Replaces or creates the file at path in one atomic step; when path is a symbolic link, the
// file it points to is replaced and the link kept. A file this user may not write is not
// replaced.
QString WriteFileAtomically(const QString &path, QByteArrayView bytes);

// Creates path as a new file holding bytes, whole or not at all. Nothing already at path is
// replaced or followed, not even a symbolic link: alreadyThere is then set and the file is
// not made. The temporary file is made beside temporaryBeside, which must be in the same
// folder as path.
QString CreateFileAtomically(const QString &path, QByteArrayView bytes,
                             const QString &temporaryBeside, bool &alreadyThere);

// Removes the temporary files of path and of the file it points to that were left by this
// process or by one that no longer runs; those of a save running in another process stay.
void RemoveWriteLeftovers(const QString &path);
