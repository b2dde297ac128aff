#pragma once

#include "WaveOutput.h"

#include <QByteArray>
#include <QHash>
#include <QMap>

#include <SDL.h>

// The sound effects on the default audio output, through SDL's queued audio.
//
// The constructor opens one output device, asking for 22050 Hz, mono, 16-bit samples but taking
// whatever format the device offers, and decodes every wave once into that format. Play() then
// only swaps the device's queue, so it never blocks on decoding or on the sound itself.
// Without a usable device (no driver, no sound card) the object still works: it plays nothing.
class SdlWaveOutput : public WaveOutput
{
public:
    // The five embedded sounds 101..105.
    SdlWaveOutput();
    // The given RIFF WAVE images by id; an image the loader rejects is left out.
    explicit SdlWaveOutput(const QMap<int, QByteArray> &waves);
    ~SdlWaveOutput() override;

    SdlWaveOutput(const SdlWaveOutput &) = delete;
    SdlWaveOutput &operator=(const SdlWaveOutput &) = delete;

    // Replaces whatever is queued on the device with sound id. An id without a decoded sound
    // leaves the device untouched.
    void Play(int id) override;

    bool HasDevice() const { return device != 0; }
    // The opened SDL device, 0 when there is none.
    SDL_AudioDeviceID DeviceId() const { return device; }
    // How many sounds are ready to play; 0 without a device.
    int DecodedCount() const { return sounds.size(); }

private:
    void Decode(int id, const QByteArray &wave);

    bool audioStarted = false;
    SDL_AudioDeviceID device = 0;
    SDL_AudioSpec deviceSpec{};
    QHash<int, QByteArray> sounds; // in the device's format
};
