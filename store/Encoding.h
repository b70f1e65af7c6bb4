#pragma once

#include <string>
#include <string_view>

namespace zorva {

// The files of the game are text in Windows-1252, one byte a character; in memory texts are UTF-8.
// The five bytes which that encoding leaves undefined (81, 8D, 8F, 90, 9D) stand for the control
// characters of the same number, so that every byte survives being read and written again.

/// Whether the encoding of the files has a byte for the character.
bool IsInWindows1252(char32_t character);

/// The text in the encoding of the files. What it cannot hold, broken UTF-8 included, becomes '?'.
std::string ToWindows1252(std::string_view utf8);

/// The bytes of a file as UTF-8; every byte is some character.
std::string FromWindows1252(std::string_view bytes);

/// Reads the character that begins at `at` and moves `at` behind it: one to four bytes, or a single
/// byte when there is no well-formed UTF-8; the result is then U+FFFD. `at` must lie in the text.
char32_t NextCharacter(std::string_view utf8, std::size_t& at);

}  // namespace zorva
