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
