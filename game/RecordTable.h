#pragma once

#include <QString>

#include <array>

// One row of a hall of fame: the holder's name and the seconds the game took, both as text.
struct RecordRow
{
    QString Name;
    QString Time;

    bool operator==(const RecordRow &) const = default;
};

// Five rows, best time first. Row 4 is the last place.
using RecordTable = std::array<RecordRow, 5>;

// The time of a row nobody has won yet: slower than any game, whose countdown is at most 900 s.
inline const QString UnwonTime = QStringLiteral("999");
