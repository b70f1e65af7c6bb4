#pragma once

#include <string>
#include <string_view>

namespace zorva {

// The two files of the game are text in Windows-1252, one byte per character. In memory all texts are
// UTF-8. Windows-1252 leaves five bytes undefined (81, 8D, 8F, 90, 9D). Here each of them stands for the
// control character with the same number, so that every byte survives being read and written again.

/// Whether Windows-1252 has a byte for the character.
bool IsInWindows1252(char32_t character);

/// The text in Windows-1252. A character without a byte becomes '?', and so does each byte that is not
/// part of well-formed UTF-8. The result is never longer than the text.
std::string ToWindows1252(std::string_view utf8);

/// The bytes of a file as UTF-8. Every byte is a character, so this never fails.
std::string FromWindows1252(std::string_view bytes);

/// Reads the character that begins at byte `at` and moves `at` to the next one. If the bytes there are
/// no well-formed UTF-8, it moves on by one byte and returns U+FFFD. `at` must be less than the length.
char32_t NextCharacter(std::string_view utf8, std::size_t& at);

}  // namespace zorva
