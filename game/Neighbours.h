#pragma once

// The eight neighbours of a cell in the order every walk over them uses: the row above left to
// right, the left and right sides, the row below left to right.
inline constexpr int NeighbourDx[8] = {-1, 0, 1, -1, 1, -1, 0, 1};
inline constexpr int NeighbourDy[8] = {-1, -1, -1, 0, 0, 1, 1, 1};
