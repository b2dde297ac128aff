#pragma once

// Where the bomb placement takes its draws from; tests inject fixed sequences.
class RandomSource
{
public:
    virtual ~RandomSource() = default;

    // A single-precision value uniform in [0, 1): never 1.
    virtual float NextUniform() = 0;
};
