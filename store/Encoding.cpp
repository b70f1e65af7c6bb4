#include "store/Encoding.h"

#include <algorithm>
#include <array>
#include <optional>

namespace zorva {
namespace {

// The characters of the bytes 80..9F, as the Unicode mapping of Windows-1252 lists them. Each other byte
// is the character with its own number, as in Latin-1.
constexpr std::array<char32_t, 32> specialCharacters{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned firstSpecial = 0x80;
constexpr unsigned firstBehindSpecials = 0xA0;
constexpr char32_t replacement = 0xFFFD;  // Unicode's sign for broken text

char32_t CharacterOf(unsigned char byte) {
    if (byte < firstSpecial || byte >= firstBehindSpecials) return byte;
    return specialCharacters[byte - firstSpecial];
}

// Nothing when Windows-1252 lacks the character. U+0080 is such a one: its byte is the euro sign.
std::optional<unsigned char> ByteOf(char32_t character) {
    if (character < firstSpecial || (character >= firstBehindSpecials && character <= 0xFF)) {
        return static_cast<unsigned char>(character);
    }
    const auto found = std::find(specialCharacters.begin(), specialCharacters.end(), character);
    if (found == specialCharacters.end()) return std::nullopt;
    return static_cast<unsigned char>(firstSpecial + (found - specialCharacters.begin()));
}

// Three bytes are enough: all characters of Windows-1252 lie below U+10000.
void AppendUtf8(std::string& text, char32_t character) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

// The number of bytes of a character, from its first byte; 0 if no character begins with that byte.
// C0 and C1 would begin overlong forms, F5 and above lie beyond U+10FFFF.
std::size_t LengthOf(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    if (first >= 0xF0 && first <= 0xF4) return 4;
    return 0;
}

// UTF-8 allows only the shortest form of a character, and no half of a surrogate pair. Accepting others
// would let two different byte strings show the same name.
bool IsWellFormed(char32_t character, std::size_t length) {
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    return character >= smallest[length] && character <= 0x10FFFF && !surrogate;
}

}  // namespace

char32_t NextCharacter(std::string_view utf8, std::size_t& at) {
    const std::size_t begin = at++;
    const auto first = static_cast<unsigned char>(utf8[begin]);
    const std::size_t length = LengthOf(first);
    if (length == 1) return first;
    if (length == 0 || utf8.size() - begin < length) return replacement;
    // The first byte has `length` one bits and a zero in front; each byte that follows brings six bits.
    char32_t character = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(utf8[begin + i]);
        if ((next & 0xC0) != 0x80) return replacement;
        character = (character << 6) | (next & 0x3FU);
    }
    if (!IsWellFormed(character, length)) return replacement;
    at = begin + length;
    return character;
}

bool IsInWindows1252(char32_t character) {
    return ByteOf(character).has_value();
}

std::string ToWindows1252(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        bytes += static_cast<char>(ByteOf(NextCharacter(utf8, at)).value_or('?'));
    }
    return bytes;
}

std::string FromWindows1252(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char byte : bytes) AppendUtf8(utf8, CharacterOf(static_cast<unsigned char>(byte)));
    return utf8;
}

}  // namespace zorva
