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
        {"Íñigo", "\xCD\xF1igo"},
        {"10 €", "10 \x80"},
        {"Žž œ Ÿ", "\x8E\x9E \x9C \x9F"},
        {"“y”…", "\x93y\x94\x85"},
        {"\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D", "\x81\x8D\x8F\x90\x9D"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ToWindows1252(row.utf8), row.bytes) << row.utf8;
        EXPECT_EQ(FromWindows1252(row.bytes), row.utf8) << row.utf8;
    }
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

RC_GTEST_PROP(Encoding, TakesAnyBytesAndGivesThemBack, (const std::string& bytes)) {
    RC_ASSERT(ToWindows1252(FromWindows1252(bytes)) == bytes);
    RC_ASSERT(ToWindows1252(bytes).size() <= bytes.size());
}

}  // namespace
}  // namespace zorva::test
