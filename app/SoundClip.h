#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/Sound.h"

namespace zorva {

/// Samples a second of every clip and of the sound device.
inline constexpr int SampleRate = 44100;

/// One sound of the game, ready to be played: one channel of signed 16-bit samples, SampleRate of them
/// a second.
using SoundClip = std::vector<std::int16_t>;

/// Loads the clip of a sound from the program's resources. Returns an empty clip, which is silence, when
/// there is none.
SoundClip LoadSoundClip(Sound sound);

/// Reads the bytes of a WAV file. Returns an empty clip when the bytes are damaged or cut short, or hold
/// any other format than that of a SoundClip: the game's own files need no conversion, so another format
/// means that a wrong file came into the program.
SoundClip ReadSoundClip(std::span<const std::uint8_t> bytes);

}  // namespace zorva
