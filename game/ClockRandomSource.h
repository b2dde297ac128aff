#pragma once

#include "RandomSource.h"

#include <cstdint>
#include <random>

// The generator of the running program: seeded once from the wall clock when constructed,
// never reseeded, so every new field continues the same sequence.
class ClockRandomSource : public RandomSource
{
public:
    ClockRandomSource();
    // A fixed seed, for reproducible sequences.
    explicit ClockRandomSource(std::uint32_t seed);

    float NextUniform() override;

    // The value in [0, 1) that 32 random bits give: their top 24 bits times 2^-24, which a
    // float holds exactly, so all bits set give 1 - 2^-24 and never round up to 1.
    static float UniformFromBits(std::uint32_t bits);

private:
    std::mt19937 engine;
};
