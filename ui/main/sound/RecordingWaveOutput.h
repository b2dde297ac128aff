#pragma once

#include "WaveOutput.h"

#include <QList>

// Plays nothing; remembers which sounds were asked for while open, in order, so tests can check
// them. Like the real output it takes no sound while closed.
class RecordingWaveOutput : public WaveOutput
{
public:
    void SetOpen(bool open) override { Open = open; }
    void Play(int id) override
    {
        if (Open)
            Played.append(id);
    }

    bool Open = false;
    QList<int> Played;
};
