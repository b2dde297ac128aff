#pragma once

#include "CellPicture.h"
#include "Minefield.h"

#include <QString>

#include <vector>

// A field drawn as text, one line per row, one character per cell:
//   '*' bomb   'X' flagged bomb   'q' question-marked bomb   '@' open bomb
//   '.' or a digit: covered safe cell   'F' flagged   '?' question-marked
//   'o' open safe cell   'f' open safe cell that still carries its flag
// Counts are computed from the bombs; digits only document what the reader expects there.
Minefield FieldFromPicture(const QString &picture);

// The bomb counts the picture expects: digits as written, '.' as 0, anything else as -1.
std::vector<int> ExpectedCounts(const QString &picture);

// The pictures placed over a field, drawn in the same grid: the picture number as a letter
// 'a' + number - 1 ('j' = 10, 'l' = 12) where one is placed, '!' where more than
// one is, '-' elsewhere.
QString PicturesAsText(const Minefield &field, const std::vector<CellPicture> &pictures);
