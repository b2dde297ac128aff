#pragma once

#include "WaveOutput.h"

#include <QList>

// Plays nothing; remembers which sounds were asked for, in order, so tests can check them.
class RecordingWaveOutput : public WaveOutput
{
public:
    void Play(int id) override { Played.append(id); }

    QList<int> Played;
};
