#include "FieldBuilder.h"

#include "Common.h"
#include "Minefield.h"
#include "Neighbours.h"
#include "NumericText.h"
#include "RandomSource.h"

#include <QtGlobal>

namespace {

struct Preset
{
    int FieldX;
    int FieldY;
    int Bombs;
    int TimeLimit;
};

constexpr Preset presets[] = {
    {9, 9, 10, 300},
    {16, 16, 40, 600},
    {30, 16, 99, 900},
};

} // namespace

void ApplyLevelPreset()
{
    if (Common::Level >= Common::LevelEasy && Common::Level <= Common::LevelHard) {
        const Preset &preset = presets[Common::Level];
        Common::FieldX = preset.FieldX;
        Common::FieldY = preset.FieldY;
        Common::Bombs = preset.Bombs;
        Common::TimeLimit = preset.TimeLimit;
        return;
    }
    const int fifth = Common::FieldX * Common::FieldY / 5;
    if (Common::Bombs >= fifth)
        Common::Bombs = fifth - 1;
}

void BuildMinefield(Minefield &field, int bombs, RandomSource &random)
{
    field.Reset(Common::FieldX, Common::FieldY);
    PlaceBombs(field, bombs, random);
    CountNeighbours(field);
}

void PlaceBombs(Minefield &field, int bombs, RandomSource &random)
{
    const int n = field.NumCells();
    Q_ASSERT(bombs >= 0 && bombs <= n);
    for (int placed = 0; placed < bombs;) {
        const double u = random.NextUniform();
        int r = WholeValue(u * n + 1.0);
        if (r > n)
            r = n;
        field.Vect2Idx(r);
        Cell &cell = field.Cells(field.CurX, field.CurY);
        if (!cell.Bomb) {
            cell.Bomb = true;
            ++placed;
        }
    }
}

void CountNeighbours(Minefield &field)
{
    for (int y = 1; y <= field.FieldY(); ++y) {
        for (int x = 1; x <= field.FieldX(); ++x) {
            int count = 0;
            for (int k = 0; k < 8; ++k) {
                if (field.Cells(x + NeighbourDx[k], y + NeighbourDy[k]).Bomb)
                    ++count;
            }
            field.Cells(x, y).Count = count;
        }
    }
}
