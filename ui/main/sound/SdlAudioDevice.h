#pragma once

#include <QByteArray>

#include <SDL.h>

#include <chrono>

// The default audio output through SDL's queued audio, in one fixed format (22050 Hz, mono,
// 16-bit samples), left to SDL to convert for whatever device is there. Every call may block
// on the device and on SDL's audio thread (closing waits for its last block), so the owner
// calls it from a thread that nothing waits for; one thread at a time.
class SdlAudioDevice
{
public:
    SdlAudioDevice();
    ~SdlAudioDevice();

    SdlAudioDevice(const SdlAudioDevice &) = delete;
    SdlAudioDevice &operator=(const SdlAudioDevice &) = delete;

    // The samples of a RIFF WAVE image in the device's format; empty when SDL's loader rejects
    // the image or cannot convert it. Needs no device.
    static QByteArray Decode(const QByteArray &wave);

    // Starts SDL's audio and opens the device; without a usable one (no driver, no sound card)
    // it stays closed. Opening an open device changes nothing.
    void Open();
    // Closes the device and stops SDL's audio, its thread and its stream with it.
    void Close();
    // Replaces whatever the open device still has to play with `samples` (from Decode) and
    // returns how long they play.
    std::chrono::milliseconds Start(const QByteArray &samples);

    bool IsOpen() const { return id != 0; }
    // The opened SDL device, 0 while closed.
    SDL_AudioDeviceID Id() const { return id; }

private:
    SDL_AudioDeviceID id = 0;
};
