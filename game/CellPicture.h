#pragma once

// A picture to show on a cell: the cell index (1-based, row by row from the top) and the
// picture number, 1..15, of the cell picture set.
struct CellPicture
{
    // The numbers of the cell pictures: 1 open and empty, 2 to 9 open with 1 to 8 bombs around
    // (Count + 1), then these.
    static constexpr int Empty = 1;
    static constexpr int HiddenBomb = 10;
    static constexpr int Exploded = 11;
    static constexpr int WrongFlag = 12;
    static constexpr int Covered = 13;
    static constexpr int Flag = 14;
    static constexpr int Query = 15;

    int Index;
    int Picture;

    bool operator==(const CellPicture &) const = default;
};
