#pragma once

// Plays the game's sound effects by number (101..105).
class WaveOutput
{
public:
    virtual ~WaveOutput() = default;
    // Opens the output when the sound switch goes on and closes it when it goes off, so a game
    // without sound holds no audio device. A new output starts closed; opening an open output or
    // closing a closed one changes nothing.
    virtual void SetOpen(bool open) = 0;
    // Starts sound id and returns at once, cutting off any sound still playing. A sound that
    // cannot be played, and every sound while the output is closed, is skipped silently.
    virtual void Play(int id) = 0;
};
