#include "SdlWaveOutput.h"

#include "WaveResource.h"

namespace {

// The format every sound is decoded into and the device is opened with.
constexpr int Frequency = 22050;
constexpr SDL_AudioFormat SampleFormat = AUDIO_S16SYS;
constexpr Uint8 Channels = 1;

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

SdlWaveOutput::SdlWaveOutput(const QMap<int, QByteArray> &waves)
{
    // Names the stream in the desktop's volume mixer.
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Velkaro");
    // SDL would otherwise take SIGINT and SIGTERM for its own event queue, which nobody reads,
    // and the game could no longer be stopped by a signal (at logout, say).
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    for (auto it = waves.cbegin(); it != waves.cend(); ++it) {
        Decode(it.key(), it.value());
    }
}

SdlWaveOutput::~SdlWaveOutput()
{
    Close();
}

void SdlWaveOutput::SetOpen(bool open)
{
    if (open) {
        Open();
    } else {
        Close();
    }
}

void SdlWaveOutput::Open()
{
    if (device != 0 || SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        return;
    }
    SDL_AudioSpec desired{};
    desired.freq = Frequency;
    desired.format = SampleFormat;
    desired.channels = Channels;
    // About 23 ms: the longest a new sound waits behind the block the device is already playing.
    desired.samples = 512;
    device = SDL_OpenAudioDevice(nullptr, 0, &desired, nullptr, 0);
    if (device == 0) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
}

void SdlWaveOutput::Close()
{
    if (device == 0) {
        return;
    }
    SDL_CloseAudioDevice(device);
    device = 0;
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void SdlWaveOutput::Decode(int id, const QByteArray &wave)
{
    SDL_AudioSpec waveSpec{};
    Uint8 *samples = nullptr;
    Uint32 length = 0;
    SDL_RWops *source = SDL_RWFromConstMem(wave.constData(), int(wave.size()));
    if (SDL_LoadWAV_RW(source, 1, &waveSpec, &samples, &length) == nullptr) {
        return;
    }
    QByteArray converted(reinterpret_cast<const char *>(samples), qsizetype(length));
    SDL_FreeWAV(samples);
    SDL_AudioCVT cvt;
    const int conversion = SDL_BuildAudioCVT(&cvt, waveSpec.format, waveSpec.channels,
                                             waveSpec.freq, SampleFormat, Channels, Frequency);
    if (conversion < 0) {
        return;
    }
    if (conversion > 0) {
        // The converter works in place and needs len_mult times the input as room.
        cvt.len = int(converted.size());
        converted.resize(converted.size() * cvt.len_mult);
        cvt.buf = reinterpret_cast<Uint8 *>(converted.data());
        converted.resize(SDL_ConvertAudio(&cvt) == 0 ? cvt.len_cvt : 0);
    }
    if (!converted.isEmpty()) {
        sounds.insert(id, converted);
    }
}

void SdlWaveOutput::Play(int id)
{
    const auto sound = sounds.constFind(id);
    if (device == 0 || sound == sounds.cend()) {
        return;
    }
    // Held across clear and queue so the audio thread never plays silence in between; SDL's
    // device lock may be taken again by the thread holding it, as SDL_QueueAudio does.
    SDL_LockAudioDevice(device);
    SDL_ClearQueuedAudio(device);
    SDL_QueueAudio(device, sound->constData(), Uint32(sound->size()));
    SDL_PauseAudioDevice(device, 0);
    SDL_UnlockAudioDevice(device);
}
