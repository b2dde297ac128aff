#pragma once

class Minefield;
class RandomSource;

// The model steps of building a new field. None of them processes window events: a field is
// built in one go, so no handler can ever see it half-built.

// Applies the preset of Common::Level to Common::FieldX, FieldY, Bombs and TimeLimit:
//   0 Easy 9x9, 10 bombs, 300 s; 1 Medium 16x16, 40 bombs, 600 s; 2 Hard 30x16, 99 bombs, 900 s.
// Any other level is custom: the size and TimeLimit stay as they are (TimeLimit keeps the last
// preset's value). The bomb count of a custom field is then checked against its size: the
// custom dialog checks size and count one at a time, so a count kept from a larger field may
// not fit a smaller one, and placing more bombs than cells would never end. A count at or
// above a fifth of the cells (FieldX * FieldY / 5, integer division) is lowered to the largest
// count the dialog accepts for that size, FieldX * FieldY / 5 - 1 (8 on the smallest, 7x7,
// field), and Common::Bombs is updated so that the counter and the dialog show the real count.
void ApplyLevelPreset();

// Recreates the field at the size Common::FieldX x Common::FieldY (every cell cleared, the
// ring open), places `bombs` bombs and computes every neighbour count. Common is not written.
void BuildMinefield(Minefield &field, int bombs, RandomSource &random);

// Places `bombs` bombs (at most NumCells) on the field cells. Each draw takes u from `random`,
// computes r = u * NumCells + 1 in double precision, rounds it to the nearest whole number
// (halves to even), folds NumCells + 1 onto NumCells and puts the bomb on cell r; a cell
// that already holds a bomb is drawn again. So the first cell has half the chance of the
// others and the last cell one and a half times it. Writes the field's CurX and CurY.
void PlaceBombs(Minefield &field, int bombs, RandomSource &random);

// Sets the Count of every field cell (bomb cells too) to the number of bombs among its eight
// neighbours; the ring holds none.
void CountNeighbours(Minefield &field);
