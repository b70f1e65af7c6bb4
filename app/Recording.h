#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace zorva {

/// Samples a second of every recording and of what is played.
inline constexpr int SampleRate = 44100;

/// The sound itself: one channel, SampleRate samples of 16 bits a second.
using Samples = std::vector<std::int16_t>;

/// Reads the bytes of a wave file: one channel, 16 bits, SampleRate, uncompressed; further chunks
/// are passed over. Empty when the bytes are anything else or are cut short.
Samples ReadRecording(std::span<const std::uint8_t> bytes);

}  // namespace zorva
