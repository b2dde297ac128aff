// Prints how long building a 49x49 field and flooding it take, as the median of many runs.
#include "ClockRandomSource.h"
#include "Common.h"
#include "FieldBuilder.h"
#include "Flood.h"
#include "Minefield.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int runs = 501;

double medianMicroseconds(std::vector<double> samples)
{
    std::nth_element(samples.begin(), samples.begin() + samples.size() / 2, samples.end());
    return samples[samples.size() / 2];
}

double microsecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

// The empty cell with the largest region, so that the flood measured is a full one. Regions
// do not share empty cells, so one scratch field flooded region after region finds it.
bool largestFloodStart(const Minefield &field, int &startX, int &startY)
{
    Minefield scratch = field;
    std::size_t best = 0;
    for (int y = 1; y <= field.FieldY(); ++y) {
        for (int x = 1; x <= field.FieldX(); ++x) {
            const Cell &cell = scratch.Cells(x, y);
            if (cell.Opened || cell.Bomb || cell.Count != 0)
                continue;
            Flood flood(x, y);
            std::size_t opened = 0;
            while (!flood.Finished())
                opened += flood.Step(scratch).size();
            if (opened > best) {
                best = opened;
                startX = x;
                startY = y;
            }
        }
    }
    return best > 0;
}

void measure(int bombs, ClockRandomSource &random)
{
    Common::FieldX = 49;
    Common::FieldY = 49;
    std::vector<double> buildTimes;
    std::vector<double> floodTimes;
    std::size_t cellsOpened = 0;
    for (int run = 0; run < runs; ++run) {
        Minefield field;
        const auto buildStart = Clock::now();
        BuildMinefield(field, bombs, random);
        buildTimes.push_back(microsecondsSince(buildStart));

        int x = 0;
        int y = 0;
        if (!largestFloodStart(field, x, y))
            continue;
        for (int repeat = 0; repeat < 5; ++repeat) {
            Minefield flooded = field;
            const auto floodStart = Clock::now();
            Flood flood(x, y);
            std::size_t opened = 0;
            while (!flood.Finished())
                opened += flood.Step(flooded).size();
            floodTimes.push_back(microsecondsSince(floodStart));
            cellsOpened = std::max(cellsOpened, opened);
        }
    }
    std::printf("49x49, %4d bombs: build %8.1f us   full flood %8.1f us (%zu cells, "
                "median of %zu)\n",
                bombs, medianMicroseconds(buildTimes), medianMicroseconds(floodTimes), cellsOpened,
                floodTimes.size());
}

} // namespace

int main()
{
    ClockRandomSource random(12345);
    measure(479, random);
    measure(1, random);
    return 0;
}
