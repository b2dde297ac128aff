#pragma once

// Plays the game's sound effects by number (101..105).
//
// An output holds its audio device only while sounds may come: it opens it for a sound asked
// for while it is closed and closes it a while after the last sound has ended, so a game at
// rest holds none. KeepOpen(true) holds it open meanwhile, for a stretch in which sounds may
// come at any moment (a game in play with sound on), so that none of them waits for the
// device to open. Neither call ever waits for the device.
class WaveOutput
{
public:
    virtual ~WaveOutput() = default;
    // A new output starts released.
    virtual void KeepOpen(bool keep) = 0;
    // Starts sound id and returns at once, cutting off any sound still playing. A sound that
    // cannot be played is skipped silently.
    virtual void Play(int id) = 0;
};
