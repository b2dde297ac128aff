#include "LossDisplay.h"

#include "Minefield.h"

std::vector<CellPicture> LossDisplay(const Minefield &field, int explodedIndex)
{
    constexpr int hiddenBomb = 10;
    constexpr int wrongFlag = 12;
    std::vector<CellPicture> shown;
    for (int y = 1; y <= field.FieldY(); ++y) {
        for (int x = 1; x <= field.FieldX(); ++x) {
            const int idx = field.Idx2Vect(x, y);
            const Cell &cell = field.Cells(x, y);
            if (cell.Bomb) {
                if (idx != explodedIndex && !cell.Opened && !cell.Flagged)
                    shown.push_back({idx, hiddenBomb});
            } else if (cell.Flagged) {
                shown.push_back({idx, wrongFlag});
            }
        }
    }
    return shown;
}
