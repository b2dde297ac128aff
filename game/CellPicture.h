#pragma once

// A picture to show on a cell: the cell index (1-based, row by row from the top) and the
// picture number, 1..15, of the cell picture set.
struct CellPicture
{
    int Index;
    int Picture;

    bool operator==(const CellPicture &) const = default;
};
