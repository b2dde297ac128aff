#include "SdlAudioDevice.h"

namespace {

// The format every sound is decoded into and the device is opened with.
constexpr int Frequency = 22050;
constexpr SDL_AudioFormat SampleFormat = AUDIO_S16SYS;
constexpr Uint8 Channels = 1;
constexpr int BytesPerSecond = Frequency * Channels * 2;

} // namespace

SdlAudioDevice::SdlAudioDevice()
{
    // Names the stream in the desktop's volume mixer.
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Velkaro");
    // SDL would otherwise take SIGINT and SIGTERM for its own event queue, which nobody reads,
    // and the game could no longer be stopped by a signal (at logout, say).
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
}

SdlAudioDevice::~SdlAudioDevice()
{
    Close();
}

QByteArray SdlAudioDevice::Decode(const QByteArray &wave)
{
    SDL_AudioSpec waveSpec{};
    Uint8 *samples = nullptr;
    Uint32 length = 0;
    SDL_RWops *source = SDL_RWFromConstMem(wave.constData(), int(wave.size()));
    if (SDL_LoadWAV_RW(source, 1, &waveSpec, &samples, &length) == nullptr) {
        return {};
    }
    QByteArray converted(reinterpret_cast<const char *>(samples), qsizetype(length));
    SDL_FreeWAV(samples);
    SDL_AudioCVT cvt;
    const int conversion = SDL_BuildAudioCVT(&cvt, waveSpec.format, waveSpec.channels,
                                             waveSpec.freq, SampleFormat, Channels, Frequency);
    if (conversion < 0) {
        return {};
    }
    if (conversion > 0) {
        // The converter works in place and needs len_mult times the input as room.
        cvt.len = int(converted.size());
        converted.resize(converted.size() * cvt.len_mult);
        cvt.buf = reinterpret_cast<Uint8 *>(converted.data());
        converted.resize(SDL_ConvertAudio(&cvt) == 0 ? cvt.len_cvt : 0);
    }
    return converted;
}

void SdlAudioDevice::Open()
{
    if (id != 0 || SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        return;
    }
    SDL_AudioSpec desired{};
    desired.freq = Frequency;
    desired.format = SampleFormat;
    desired.channels = Channels;
    // About 23 ms: the longest a new sound waits behind the block the device is already playing.
    desired.samples = 512;
    id = SDL_OpenAudioDevice(nullptr, 0, &desired, nullptr, 0);
    if (id == 0) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
}

void SdlAudioDevice::Close()
{
    if (id == 0) {
        return;
    }
    SDL_CloseAudioDevice(id);
    id = 0;
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

std::chrono::milliseconds SdlAudioDevice::Start(const QByteArray &samples)
{
    // Held across clear and queue so the audio thread never plays silence in between; SDL's
    // device lock may be taken again by the thread holding it, as SDL_QueueAudio does.
    SDL_LockAudioDevice(id);
    SDL_ClearQueuedAudio(id);
    SDL_QueueAudio(id, samples.constData(), Uint32(samples.size()));
    SDL_PauseAudioDevice(id, 0);
    SDL_UnlockAudioDevice(id);
    return std::chrono::milliseconds(samples.size() * 1000 / BytesPerSecond);
}
