#include "SdlWaveOutput.h"

#include "WaveResource.h"

#include <pthread.h>

#include <utility>

namespace {

QMap<int, QByteArray> EmbeddedWaves()
{
    QMap<int, QByteArray> waves;
    for (int id = 101; id <= 105; ++id) {
        waves.insert(id, WaveResource(id));
    }
    return waves;
}

} // namespace

SdlWaveOutput::SdlWaveOutput() : SdlWaveOutput(EmbeddedWaves()) {}

SdlWaveOutput::SdlWaveOutput(const QMap<int, QByteArray> &waves, std::chrono::milliseconds linger)
    : linger(linger)
{
    for (auto it = waves.cbegin(); it != waves.cend(); ++it) {
        const QByteArray samples = SdlAudioDevice::Decode(it.value());
        if (!samples.isEmpty()) {
            sounds.insert(it.key(), samples);
        }
    }
    player = std::thread(&SdlWaveOutput::Serve, this);
}

SdlWaveOutput::~SdlWaveOutput()
{
    {
        const std::lock_guard lock(mutex);
        stopping = true;
    }
    requested.notify_one();
    player.join();
}

void SdlWaveOutput::KeepOpen(bool keepOpen)
{
    {
        const std::lock_guard lock(mutex);
        keep = keepOpen;
        openAttempted = false;
    }
    requested.notify_one();
}

void SdlWaveOutput::Play(int id)
{
    if (!sounds.contains(id)) {
        return;
    }
    {
        const std::lock_guard lock(mutex);
        pendingSound = id; // a sound not yet started is cut off by the newer one
        openAttempted = false;
    }
    requested.notify_one();
}

bool SdlWaveOutput::ShouldOpen() const
{
    return !device.IsOpen() && !openAttempted && (keep || pendingSound != 0);
}

void SdlWaveOutput::Serve()
{
    // Named, so it can be told apart in a profiler or /proc.
    pthread_setname_np(pthread_self(), "SoundPlayer");
    std::unique_lock lock(mutex);
    Clock::time_point closeAt;
    while (!stopping) {
        if (ShouldOpen()) {
            openAttempted = true;
            lock.unlock();
            device.Open();
            deviceId = device.Id();
            lock.lock();
        } else if (pendingSound != 0) {
            const int id = std::exchange(pendingSound, 0);
            if (device.IsOpen()) {
                lock.unlock();
                closeAt = Clock::now() + device.Start(sounds.value(id)) + linger;
                lastStarted = id;
                lock.lock();
            }
        } else if (device.IsOpen() && !keep) {
            if (requested.wait_until(lock, closeAt) == std::cv_status::timeout &&
                pendingSound == 0 && !keep) {
                lock.unlock();
                device.Close();
                deviceId = 0;
                lock.lock();
            }
        } else {
            requested.wait(lock);
        }
    }
    // The device closes with the object, after this thread has ended.
}
