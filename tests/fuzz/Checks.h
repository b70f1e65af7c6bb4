#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/GameState.h"

namespace zorva::fuzz {

/// What the fuzzer made up, as bytes of a file.
inline std::string_view AsBytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Whatever does not hold stops the program, which the fuzzer reports with the bytes that did it.

/// The tables are sound, unless a captured piece is still on its way home.
void RequireSoundTables(const GameState& state);

/// All moves of the game, made forwards by now, can be taken back to the boxes and made again.
void RequireWayBack(GameState state);

/// A game in progress that was loaded can be played on for some moves.
void RequireGoingOn(GameState state, const Settings& settings, std::uint64_t seed);

}  // namespace zorva::fuzz
