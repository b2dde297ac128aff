#include "RecordInsertion.h"

#include "Common.h"
#include "NumericText.h"

#include <QtGlobal>

#include <algorithm>

RecordTable &RecordsOfLevel(int level)
{
    Q_ASSERT(level >= Common::LevelEasy && level <= Common::LevelHard);
    if (level == Common::LevelMedium)
        return Common::MediumRecords;
    if (level == Common::LevelHard)
        return Common::HardRecords;
    return Common::EasyRecords;
}

int RecordRowFor(const RecordTable &table, int elapsedSeconds)
{
    const auto slower = std::find_if(table.begin(), table.end(), [&](const RecordRow &row) {
        return NumericValue(row.Time) > elapsedSeconds;
    });
    return slower == table.end() ? -1 : int(slower - table.begin());
}

void MakeRoomAt(RecordTable &table, int row)
{
    Q_ASSERT(row >= 0 && row < int(table.size()));
    for (int j = int(table.size()) - 1; j > row; --j)
        table[j] = table[j - 1];
}

void WriteRecordRow(RecordTable &table, int row, const QString &name, int elapsedSeconds)
{
    Q_ASSERT(row >= 0 && row < int(table.size()));
    Q_ASSERT(elapsedSeconds >= 0);
    table[row] = RecordRow{name, QString::number(elapsedSeconds)};
}
