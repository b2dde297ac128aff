#pragma once

#include <QIODevice>
#include <QString>

// Writes what source holds from its current position to path in one atomic step, creating or
// replacing the file. Returns false, leaving any old file whole, when source cannot be read or
// the file cannot be written.
bool WriteFileAtomically(const QString &path, QIODevice &source);

// Removes the temporary files that writes cut short by a kill left beside path. QSaveFile links
// its temporary file as "<path>.XXXXXX", six letters of mixed case, just before renaming it over
// the target. A name of one case (".backup") is more likely the player's own copy and is kept.
void RemoveWriteLeftovers(const QString &path);
