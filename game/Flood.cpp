#include "Flood.h"

#include "Minefield.h"
#include "Neighbours.h"

#include <QtGlobal>

Flood::Flood(int startX, int startY) : startX(startX), startY(startY) {}

std::vector<CellPicture> Flood::Step(Minefield &field)
{
    std::vector<CellPicture> opened;
    if (finished)
        return opened;
    if (!started) {
        started = true;
        ReveilBlanks(field, startX, startY, opened);
        return opened;
    }
    while (!stack.empty()) {
        Frame &top = stack.back();
        if (top.NextNeighbour == 8) {
            stack.pop_back();
            continue;
        }
        const int k = top.NextNeighbour++;
        if (CheckNeighb(field, top.X + NeighbourDx[k], top.Y + NeighbourDy[k], opened))
            return opened;
    }
    finished = true;
    return opened;
}

void Flood::ReveilBlanks(Minefield &field, int x, int y, std::vector<CellPicture> &opened)
{
    Cell &cell = field.Cells(x, y);
    Q_ASSERT(!cell.Bomb && cell.Count == 0);
    cell.Opened = true;
    opened.push_back({field.Idx2Vect(x, y), CellPicture::Empty});
    stack.push_back({x, y, 0});
}

bool Flood::CheckNeighb(Minefield &field, int x, int y, std::vector<CellPicture> &opened)
{
    Cell &cell = field.Cells(x, y);
    if (cell.Opened)
        return false;
    if (cell.Count == 0) {
        ReveilBlanks(field, x, y, opened);
        return true;
    }
    if (!cell.Bomb) {
        cell.Opened = true;
        opened.push_back({field.Idx2Vect(x, y), cell.Count + 1});
    }
    return false;
}
