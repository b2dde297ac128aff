#pragma once

#include "CellPicture.h"

#include <vector>

class Minefield;

// The flood opening of an empty region: opens an empty cell, then looks at its eight
// neighbours in turn; an empty covered neighbour is flooded from in its turn (depth first),
// a numbered covered neighbour is opened and the flood stops there, an open one is skipped.
// Marks are not looked at: a flagged or question-marked cell is opened and keeps its mark.
//
// The walk lives on an explicit stack, so its depth is not bounded by the call stack, and it
// advances one empty cell per Step so that the window can paint and handle events between
// steps. Each neighbour is looked at only when the walk reaches it, never ahead of time: a
// flood started by a press handled between two steps runs to its end, and this one then
// skips the cells the other has opened, exactly as if the second had run nested inside it.
// Any number of floods may be in progress on one field; each keeps its own position. The
// field must not be rebuilt while a flood is in progress.
class Flood
{
public:
    // Starts a flood at a covered field cell that holds no bomb and has Count 0.
    Flood(int startX, int startY);

    bool Finished() const { return finished; }

    // Advances the walk until one more empty cell has been opened, or to the end of the walk,
    // marking the cells Opened. Returns the cells opened, in order, with their pictures (1 for
    // empty, Count + 1 for numbered): any numbered cells, then the one empty cell that ends the
    // step. The first step opens the start cell; the last may return numbered cells only, or
    // nothing. Calling it once finished returns nothing.
    std::vector<CellPicture> Step(Minefield &field);

private:
    // One empty cell whose neighbours are being looked at, and the next neighbour to look at.
    struct Frame
    {
        int X;
        int Y;
        int NextNeighbour;
    };

    // Opens the empty cell (x, y) and puts it on the stack (the yield point of each step).
    void ReveilBlanks(Minefield &field, int x, int y, std::vector<CellPicture> &opened);
    // Looks at one neighbour; returns whether it was an empty cell that the flood entered.
    bool CheckNeighb(Minefield &field, int x, int y, std::vector<CellPicture> &opened);

    int startX;
    int startY;
    bool started = false;
    bool finished = false;
    std::vector<Frame> stack;
};
