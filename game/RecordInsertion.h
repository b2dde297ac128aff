#pragma once

#include "RecordTable.h"

#include <QString>

// The hall-of-fame decisions of a win on a preset level. The caller shows the dialogs:
//   row = RecordRowFor(table, elapsed); if row >= 0: MakeRoomAt(table, row), ask the player's
//   name, WriteRecordRow(table, row, Common::PlayerName, elapsed).

// The in-memory table of a preset level (0 Easy, 1 Medium, 2 Hard) in Common.
RecordTable &RecordsOfLevel(int level);

// The first row whose Time, read as a number, is strictly greater than the elapsed seconds, or
// -1 when there is none (no record). A time equal to a stored one thus goes below it.
int RecordRowFor(const RecordTable &table, int elapsedSeconds);

// Moves rows row..3 down to row+1..4; the old row 4 is lost. Row 4 moves nothing.
void MakeRoomAt(RecordTable &table, int row);

// Writes the name and the elapsed seconds (0 or more) as plain decimal text, like "57", into
// the row.
void WriteRecordRow(RecordTable &table, int row, const QString &name, int elapsedSeconds);
