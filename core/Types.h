#pragma once

#include <array>
#include <cstdint>

namespace zorva {

/// The type of the numbers in GameState, Settings and MoveRecord: squares, piece codes, counts, flags.
/// The settings file holds them in the same 16-bit range. A result outside it is a fault of the program;
/// see ToShort. Only sums on the way to a result and the scores of moves (doubles) have other types.
using Short = std::int16_t;

/// 1 yellow, 2 blue, 3 red, 4 green; 0 stands for "none".
using Colour = Short;

/// 0 is the waiting box; 1..68 the shared ring; 69..100 the four home columns, eight squares each.
using Square = Short;

/// 10 x colour + piece number (11..14, 21..24, 31..34, 41..44); 0 is an empty slot.
using PieceCode = Short;

/// In memory a flag is -1 or 0, except MoveRecord::OnBehalf, which is 1 or 0. The settings file also
/// writes -1 and 0, except in the lines of moves, which have 1 and 0.
inline constexpr Short Yes = -1;
inline constexpr Short No = 0;

inline constexpr Colour ColourCount = 4;
inline constexpr Short PiecesPerColour = 4;
inline constexpr Square LastRingSquare = 68;
inline constexpr Square LastSquare = 100;

/// The count with which a piece leaves its waiting box.
inline constexpr Short ExitCount = 5;

/// Tables by colour and by piece are indexed 1..4; index 0 exists and is not used.
template <typename T>
using PerColour = std::array<T, ColourCount + 1>;
template <typename T>
using PerPiece = std::array<T, PiecesPerColour + 1>;

/// Prints `message` on standard error and aborts: the program itself is at fault, never a person or a
/// file.
[[noreturn]] void Fatal(const char* message);

/// Calls Fatal unless `holds`. Release builds keep the check.
constexpr void Require(bool holds, const char* message) {
    if (!holds) Fatal(message);
}

/// Narrows to 16 bits; Fatal when the value does not fit.
constexpr Short ToShort(long value) {
    Require(value >= INT16_MIN && value <= INT16_MAX, "a game value left the 16-bit range");
    return static_cast<Short>(value);
}

constexpr PieceCode CodeOf(Colour colour, Short piece) {
    return static_cast<PieceCode>(10 * colour + piece);
}

/// Colour of the piece with that code; 0 for an empty slot.
constexpr Colour ColourOf(PieceCode code) {
    return static_cast<Colour>(code / 10);
}

/// Number 1..4 of the piece with that code; 0 for an empty slot.
constexpr Short PieceOf(PieceCode code) {
    return static_cast<Short>(code % 10);
}

}  // namespace zorva
