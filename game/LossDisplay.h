#pragma once

#include "CellPicture.h"

#include <vector>

class Minefield;

// What a lost game shows, row by row from the top: picture 10 on every bomb that is neither
// open, nor flagged, nor the one that went off (a question mark is covered by it too), and
// picture 12 on every flag that stands on a cell without a bomb, open or not. Every other cell
// keeps its picture and is left out. explodedIndex is the index of the bomb that went off, 0
// when none did (time out, abort). The cells are not changed.
std::vector<CellPicture> LossDisplay(const Minefield &field, int explodedIndex);
