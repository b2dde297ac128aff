#pragma once

#include "WaveOutput.h"

#include <QByteArray>
#include <QHash>
#include <QMap>

#include <SDL.h>

// The sound effects on the default audio output, through SDL's queued audio.
//
// The constructor decodes every wave once, for the life of the object, into one fixed format
// (22050 Hz, mono, 16-bit samples). SetOpen(true) starts SDL's audio and opens the default
// device in that same format, leaving any conversion to SDL, so the decoded sounds fit every
// device; SetOpen(false) closes the device and stops SDL's audio, its thread and its stream
// with it. Play() only swaps the open device's queue, so it never blocks on decoding or on the
// sound itself. Without a usable device (no driver, no sound card) the object still works: it
// stays closed and plays nothing.
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

    void SetOpen(bool open) override;
    // Replaces whatever is queued on the open device with sound id. An id without a decoded
    // sound leaves the device untouched.
    void Play(int id) override;

    bool IsOpen() const { return device != 0; }
    // The opened SDL device, 0 while closed.
    SDL_AudioDeviceID DeviceId() const { return device; }
    // How many sounds are ready to play, open or closed.
    int DecodedCount() const { return sounds.size(); }

private:
    void Open();
    void Close();
    void Decode(int id, const QByteArray &wave);

    SDL_AudioDeviceID device = 0;
    QHash<int, QByteArray> sounds; // in the fixed format
};
