#pragma once

#include "RandomSource.h"

#include <QtGlobal>

#include <utility>
#include <vector>

// Hands out a fixed list of draws in order and counts them; running past the end
// stops the test run.
class SequenceRandomSource : public RandomSource
{
public:
    explicit SequenceRandomSource(std::vector<float> draws) : draws(std::move(draws)) {}

    float NextUniform() override
    {
        if (taken == draws.size())
            qFatal("the placement asked for more draws than the test prepared");
        return draws[taken++];
    }

    std::size_t Taken() const { return taken; }

private:
    std::vector<float> draws;
    std::size_t taken = 0;
};
