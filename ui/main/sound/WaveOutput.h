#pragma once

// Plays the game's sound effects by number (101..105).
class WaveOutput
{
public:
    virtual ~WaveOutput() = default;
    // Starts sound id and returns at once, cutting off any sound still playing. A sound that
    // cannot be played is skipped silently.
    virtual void Play(int id) = 0;
};
