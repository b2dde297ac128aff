#pragma once

#include "Cell.h"

#include <vector>

// The cells of one field with their border ring: columns 0..FieldX+1, rows 0..FieldY+1.
// The ring cells are open, hold no bomb and are never shown, so that looking at the eight
// neighbours of any field cell needs no edge test. Field cells are numbered 1..NumCells row
// by row from the top: column x of row y has index (y - 1) * FieldX + x.
//
// A position or index outside these bounds is a caller's error (asserted in debug builds).
class Minefield
{
public:
    // An empty field: no field cells, only the ring.
    Minefield();

    // Recreates every cell cleared, the ring open. Sizes are 0..49.
    void Reset(int fieldX, int fieldY);

    int FieldX() const { return columns; }
    int FieldY() const { return rows; }
    int NumCells() const { return columns * rows; }

    Cell &Cells(int x, int y);
    const Cell &Cells(int x, int y) const;

    // The index of the field cell in column ix and row iy.
    int Idx2Vect(int ix, int iy) const;

    // Writes the column and row of the field cell with index idx into CurX and CurY. Any later
    // call overwrites them: a caller that must keep a position keeps its own copy.
    void Vect2Idx(int idx);

    int CurX = 0;
    int CurY = 0;

private:
    int storageIndex(int x, int y) const;

    int columns = 0;
    int rows = 0;
    std::vector<Cell> cells;
};
