#include "app/SoundClip.h"

#include <SDL.h>

#include <QFile>
#include <memory>

namespace zorva {

SoundClip LoadSoundClip(Sound sound) {
    const int id = static_cast<Short>(sound);
    QFile file(QStringLiteral(":/sounds/%1.wav").arg(id, 2, 10, QLatin1Char('0')));
    if (!file.open(QFile::ReadOnly)) return {};
    const QByteArray bytes = file.readAll();
    return ReadSoundClip(
        {reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())});
}

SoundClip ReadSoundClip(std::span<const std::uint8_t> bytes) {
    // By default SDL plays what is left of a file that was cut short.
    SDL_SetHint(SDL_HINT_WAVE_TRUNCATION, "strict");
    SDL_AudioSpec spec{};
    Uint8* samples = nullptr;
    Uint32 size = 0;  // in bytes
    SDL_RWops* file = SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size()));
    if (SDL_LoadWAV_RW(file, 1, &spec, &samples, &size) == nullptr) return {};
    const std::unique_ptr<Uint8, decltype(&SDL_FreeWAV)> owner(samples, SDL_FreeWAV);
    if (spec.freq != SampleRate || spec.format != AUDIO_S16SYS || spec.channels != 1) return {};
    const auto* first = reinterpret_cast<const std::int16_t*>(samples);
    return {first, first + size / sizeof(std::int16_t)};
}

}  // namespace zorva
