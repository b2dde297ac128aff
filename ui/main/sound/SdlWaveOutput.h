#pragma once

#include "SdlAudioDevice.h"
#include "WaveOutput.h"

#include <QByteArray>
#include <QHash>
#include <QMap>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

// The sound effects on the default audio output, through SDL.
//
// The constructor decodes every wave once, for the life of the object, into the device's
// format. Opening and closing the device take from milliseconds to a second (SDL waits for its
// audio thread and the sound server), so they, and the queueing of each sound, happen on a
// thread of the player's own: Play() and KeepOpen() only leave a request for it and return at
// once. The device is opened for a sound asked for while it is closed, which is then played
// as soon as it is open, and closed `linger` after the last sound has ended unless it is kept
// open. Without a usable device (no driver, no sound card) the object still works: it stays
// closed and plays nothing.
class SdlWaveOutput : public WaveOutput
{
public:
    static constexpr std::chrono::milliseconds DefaultLinger{3000};

    // The five embedded sounds 101..105.
    SdlWaveOutput();
    // The given RIFF WAVE images by id; an image the loader rejects is left out.
    explicit SdlWaveOutput(const QMap<int, QByteArray> &waves,
                           std::chrono::milliseconds linger = DefaultLinger);
    // Closes the device, waiting for it.
    ~SdlWaveOutput() override;

    SdlWaveOutput(const SdlWaveOutput &) = delete;
    SdlWaveOutput &operator=(const SdlWaveOutput &) = delete;

    void KeepOpen(bool keep) override;
    // Replaces whatever the device still plays with sound id. An id without a decoded sound
    // leaves the device untouched.
    void Play(int id) override;

    // What the player's thread has done so far.
    bool IsOpen() const { return deviceId != 0; }
    // The opened SDL device, 0 while closed.
    SDL_AudioDeviceID DeviceId() const { return deviceId; }
    // The last sound handed to the device, 0 before the first.
    int LastStarted() const { return lastStarted; }
    // How many sounds are ready to play, open or closed.
    int DecodedCount() const { return sounds.size(); }

private:
    using Clock = std::chrono::steady_clock;

    // The player's thread: opens, plays and closes as the requests say until the object goes.
    void Serve();
    // With the lock held: the device is wanted and a request since the last attempt may open it.
    bool ShouldOpen() const;

    const std::chrono::milliseconds linger;
    QHash<int, QByteArray> sounds; // decoded; never changed after construction
    SdlAudioDevice device;         // used by the player's thread only

    // The requests, guarded by `mutex`.
    std::mutex mutex;
    std::condition_variable requested;
    bool keep = false;
    int pendingSound = 0;       // 0 when none
    bool openAttempted = false; // since the last request; a device that failed is not retried
    bool stopping = false;

    std::atomic<SDL_AudioDeviceID> deviceId = 0;
    std::atomic<int> lastStarted = 0;
    std::thread player; // last, so it starts with everything above in place
};
