#include "store/Encoding.h"

#include <gtest/gtest.h>
#include <iconv.h>

namespace zorva::test {
namespace {

TEST(Encoding, IsThatOfTheSystemsConverter) {
    const iconv_t converter = iconv_open("UTF-8", "WINDOWS-1252");
    ASSERT_NE(converter, reinterpret_cast<iconv_t>(-1));
    std::string undefined;
    for (int number = 0; number < 256; ++number) {
        std::string byte(1, static_cast<char>(number)), utf8(4, '\0');
        char *from = byte.data(), *to = utf8.data();
        std::size_t bytesLeft = 1, room = utf8.size();
        if (iconv(converter, &from, &bytesLeft, &to, &room) == 0) {
            utf8.resize(utf8.size() - room);
        } else {
            undefined += byte;
            utf8 = "\xC2" + byte;  // the control character with the same number
        }
        EXPECT_EQ(FromWindows1252(byte), utf8) << number;
        EXPECT_EQ(ToWindows1252(utf8), byte) << number;
    }
    EXPECT_EQ(undefined, "\x81\x8D\x8F\x90\x9D");
    iconv_close(converter);
}

TEST(Encoding, WhatItCannotHoldBecomesAQuestionMark) {
    struct Row {
        const char* name;
        const char* utf8;
        const char* bytes;
    };
    constexpr Row rows[] = {
        {"another script", "Лев", "???"},
        {"a letter of central Europe", "Ł", "?"},
        {"beyond sixteen bits", "😀!", "?!"},
        {"the control character of the euro's byte", "\xC2\x80", "?"},
        {"a lone continuation", "a\x80z", "a?z"},
        {"cut off at the end", "a\xC3", "a?"},
        {"a letter where a continuation should be", "\xC3z", "?z"},
        {"an overlong blank", "\xC0\xA0", "??"},
        {"an overlong letter of three bytes", "\xE0\x83\xA9", "???"},
        {"halves of surrogate pairs", "\xED\xA0\x80\xED\xBF\xBF", "??????"},
        {"above the last character", "\xF4\x90\x80\x80", "????"},
    };
    for (const Row& row : rows) EXPECT_EQ(ToWindows1252(row.utf8), row.bytes) << row.name;
}

}  // namespace
}  // namespace zorva::test
