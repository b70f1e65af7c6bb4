#include "store/Encoding.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace zorva::test {
namespace {

TEST(Encoding, NamesOfPlayers) {
    struct Row {
        const char* utf8;
        const char* bytes;
    };
    constexpr Row rows[] = {
        {"", ""},
        {"Begoña",
         "Bego\xF1"
         "a"},
        {"Íñigo", "\xCD\xF1igo"},
        {"10 €", "10 \x80"},
        {"Žižek œ Ÿ",
         "\x8Ei\x9E"
         "ek \x9C \x9F"},
        {"“y”…", "\x93y\x94\x85"},
        {"\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D", "\x81\x8D\x8F\x90\x9D"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ToWindows1252(row.utf8), row.bytes) << row.utf8;
        EXPECT_EQ(FromWindows1252(row.bytes), row.utf8) << row.utf8;
    }
}

TEST(Encoding, EveryByteSurvives) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
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
        {"the control that the euro displaced", "\xC2\x80", "?"},
        {"a lone continuation", "a\x80z", "a?z"},
        {"cut off at the end", "a\xC3", "a?"},
        {"a letter where a continuation should be", "\xC3z", "?z"},
        {"an overlong blank", "\xC0\xA0", "??"},
        {"an overlong slash of three bytes", "\xE0\x80\xAF", "???"},
        {"half of a surrogate pair", "\xED\xA0\x80", "???"},
        {"above the last character", "\xF4\x90\x80\x80", "????"},
    };
    for (const Row& row : rows) EXPECT_EQ(ToWindows1252(row.utf8), row.bytes) << row.name;
}

TEST(Encoding, KnowsWhatCanBeTyped) {
    for (const char32_t character : U"Añç€Šž·ÿ") EXPECT_TRUE(IsInWindows1252(character));
    for (const char32_t character : {U'Ł', U'Ω', U'Ж', U'🎲', char32_t{0x80}, char32_t{0x9F}}) {
        EXPECT_FALSE(IsInWindows1252(character)) << static_cast<unsigned>(character);
    }
}

RC_GTEST_PROP(Encoding, TakesAnyBytes, (const std::string& bytes)) {
    RC_ASSERT(ToWindows1252(FromWindows1252(bytes)) == bytes);
    RC_ASSERT(ToWindows1252(bytes).size() <= bytes.size());
}

}  // namespace
}  // namespace zorva::test
