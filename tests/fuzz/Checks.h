#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "store/SettingsFile.h"

namespace zorva::fuzz {

/// The fuzzer's input as the bytes of a file.
inline std::string_view AsBytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Each of these stops the program unless its sentence holds. The fuzzer then reports the input.

/// The tables agree with one another, unless a captured piece is still to be sent home.
void RequireSoundTables(const GameState& state);

/// All moves of the game can be taken back to the start and made again.
void RequireWayBack(GameState state);

/// The content can be written and read again, and then gives the same text. Returns what was read.
SettingsContent RequireReadable(const SettingsContent& content);

/// The game can be taken back, and after loading it can go on for some moves, its persons' by chance.
void RequirePlayable(const SettingsContent& content, std::uint64_t seed);

}  // namespace zorva::fuzz
