#pragma once

#include "WaveOutput.h"

#include <QList>

// Plays nothing; remembers which sounds were asked for, in order, and whether the output is
// kept open, so tests can check them.
class RecordingWaveOutput : public WaveOutput
{
public:
    void KeepOpen(bool keep) override { KeptOpen = keep; }
    void Play(int id) override { Played.append(id); }

    bool KeptOpen = false;
    QList<int> Played;
};
