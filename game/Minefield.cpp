#include "Minefield.h"

#include "NumericText.h"

#include <QtGlobal>

#include <cmath>

Minefield::Minefield()
{
    Reset(0, 0);
}

void Minefield::Reset(int fieldX, int fieldY)
{
    Q_ASSERT(fieldX >= 0 && fieldY >= 0);
    columns = fieldX;
    rows = fieldY;
    cells.assign(static_cast<std::size_t>((fieldX + 2) * (fieldY + 2)), Cell{});
    for (int i = 0; i <= fieldX + 1; ++i) {
        Cells(i, 0).Opened = true;
        Cells(i, fieldY + 1).Opened = true;
    }
    for (int j = 1; j <= fieldY; ++j) { // the corners are open already
        Cells(0, j).Opened = true;
        Cells(fieldX + 1, j).Opened = true;
    }
}

int Minefield::storageIndex(int x, int y) const
{
    Q_ASSERT(x >= 0 && x <= columns + 1);
    Q_ASSERT(y >= 0 && y <= rows + 1);
    return y * (columns + 2) + x;
}

Cell &Minefield::Cells(int x, int y)
{
    return cells[static_cast<std::size_t>(storageIndex(x, y))];
}

const Cell &Minefield::Cells(int x, int y) const
{
    return cells[static_cast<std::size_t>(storageIndex(x, y))];
}

int Minefield::Idx2Vect(int ix, int iy) const
{
    Q_ASSERT(ix >= 1 && ix <= columns);
    Q_ASSERT(iy >= 1 && iy <= rows);
    return (iy - 1) * columns + ix;
}

void Minefield::Vect2Idx(int idx)
{
    Q_ASSERT(idx >= 1 && idx <= NumCells());
    // The row is a floor in floating point turned back into an integer; the value is whole,
    // so the rounding changes nothing.
    CurY = WholeValue(std::floor(double(idx - 1) / double(columns)) + 1.0);
    CurX = (idx - 1) % columns + 1;
}
