#pragma once

// One cell of the field. A mark (Flagged or Queried) survives the opening of its cell;
// the two marks are never set together. Count is the number of bombs among the eight
// neighbours, computed once when the field is built.
struct Cell
{
    bool Flagged = false;
    bool Queried = false;
    int Count = 0;
    bool Bomb = false;
    bool Opened = false;
};
