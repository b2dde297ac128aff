#include "SdlWaveOutput.h"

#include "WaveResource.h"

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

SdlWaveOutput::SdlWaveOutput(const QMap<int, QByteArray> &waves)
{
    // Names the stream in the desktop's volume mixer.
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Velkaro");
    // SDL would otherwise take SIGINT and SIGTERM for its own event queue, which nobody reads,
    // and the game could no longer be stopped by a signal (at logout, say).
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    audioStarted = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    if (!audioStarted) {
        return;
    }
    SDL_AudioSpec desired{};
    desired.freq = 22050;
    desired.format = AUDIO_S16SYS;
    desired.channels = 1;
    // About 23 ms: the longest a new sound waits behind the block the device is already playing.
    desired.samples = 512;
    device = SDL_OpenAudioDevice(nullptr, 0, &desired, &deviceSpec, SDL_AUDIO_ALLOW_ANY_CHANGE);
    if (device == 0) {
        return;
    }
    for (auto it = waves.cbegin(); it != waves.cend(); ++it) {
        Decode(it.key(), it.value());
    }
}

SdlWaveOutput::~SdlWaveOutput()
{
    if (device != 0) {
        SDL_CloseAudioDevice(device);
    }
    if (audioStarted) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
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
    const int conversion =
        SDL_BuildAudioCVT(&cvt, waveSpec.format, waveSpec.channels, waveSpec.freq,
                          deviceSpec.format, deviceSpec.channels, deviceSpec.freq);
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
    if (sound == sounds.cend()) {
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
