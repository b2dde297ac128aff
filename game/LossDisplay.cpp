#include "LossDisplay.h"

#include "Minefield.h"

std::vector<CellPicture> LossDisplay(const Minefield &field, int explodedIndex)
{
    std::vector<CellPicture> shown;
    for (int y = 1; y <= field.FieldY(); ++y) {
        for (int x = 1; x <= field.FieldX(); ++x) {
            const int idx = field.Idx2Vect(x, y);
            const Cell &cell = field.Cells(x, y);
            if (cell.Bomb) {
                if (idx != explodedIndex && !cell.Opened && !cell.Flagged)
                    shown.push_back({idx, CellPicture::HiddenBomb});
            } else if (cell.Flagged) {
                shown.push_back({idx, CellPicture::WrongFlag});
            }
        }
    }
    return shown;
}
