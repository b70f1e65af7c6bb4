#include "store/SettingsFile.h"

#include <gtest/gtest.h>

#include "core/Board.h"
#include "core/Turns.h"
#include "store/Encoding.h"

namespace zorva::test {
namespace {

std::string Repeated(const std::string& text, int times) {
    std::string all;
    while (times-- > 0) all += text;
    return all;
}

const std::string emptyBoard = "\"" + Repeated(" 0", 300) + "\"\r\n";

const std::string firstStart =
    "4,0,0,0,0,0,\"Amarillo\",50,1,1\r\n"
    "4,0,0,0,0,0,\"Azul\",50,1,1\r\n"
    "4,0,0,0,0,0,\"Rojo\",50,1,1\r\n"
    "4,0,0,0,0,0,\"Verde\",50,1,1\r\n" +
    emptyBoard + "0,0,0,-1,0,1,1,2,1,1,2,1,1,1,50\r\n";

// Yellow has brought out two pieces with a five; red throws again after its first six.
std::string SmallGame() {
    std::string board = Repeated(" 0", 300);
    board.replace(2 * (3 * (5 - 1)), 4, "1112");
    board.replace(2 * (3 * (45 - 1)), 2, "31");
    return "2,0,5,5,0,0,\"Bego\xF1"
           "a\",100,2,1\r\n"
           "4,0,0,0,0,0,\"Azul\",0,1,2\r\n"
           "3,0,45,0,0,0,\"a,b\",7,1,1\r\n"
           "4,0,0,0,0,0,\" x \",50,1,2\r\n"
           "\"" +
           board +
           "\"\r\n"
           "-1,5,3,-1,1,2,1,1,2,1,1,1,1,2,0\r\n"
           "\"105 51  0  50001\"\r\n"
           "\"105 52  0  50000\"\r\n"
           "\"301 10  0  00001\"\r\n"
           "\"306 61  0 451001\"\r\n";
}

// Throws, and so fails the test, when the bytes are refused.
SettingsContent Loaded(const std::string& bytes) {
    return std::get<SettingsContent>(ReadSettings(bytes));
}

// The number of the refusal, 0 for a good file.
int ErrorOf(const std::string& bytes) {
    const SettingsReading reading = ReadSettings(bytes);
    return reading.index() == 0 ? 0 : static_cast<int>(std::get<FileError>(reading));
}

// Throws when `what` is not in the text.
std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    return text.replace(text.find(what), what.size(), with);
}

// The text with `slots` as the three cells of yellow's goal.
std::string OnGoal(std::string text, const char* slots) {
    const std::size_t board = text.find("\" 0 0") + 1;
    return text.replace(board + 2 * (3 * (GoalSquare[1] - 1)), 6, slots);
}

TEST(SettingsFile, EachChoiceHasItsPlace) {
    constexpr Short Settings::*inOrder[] = {&Settings::PauseBetweenMoves, &Settings::Tutor,
                                            &Settings::PlayOrder,         &Settings::SoundOn,
                                            &Settings::ButtonInfo,        &Settings::RuleSixAllOut,
                                            &Settings::RuleLeaveAllInBox, &Settings::RuleFiveAllInBox,
                                            &Settings::RuleFiveSomeInBox};
    std::size_t at = firstStart.rfind("-1,0,") + 5;
    for (Short Settings::*const choice : inOrder) {
        Settings settings;
        settings.*choice = static_cast<Short>(3 - settings.*choice);
        std::string text = firstStart;
        text[at] = text[at] == '1' ? '2' : '1';
        EXPECT_EQ(SettingsText(settings, {}), text) << at;
        EXPECT_EQ(Loaded(text).settings, settings) << at;
        at += 2;
    }
}

TEST(SettingsFile, OfAGame) {
    const SettingsContent content = Loaded(SmallGame());
    EXPECT_EQ(content.settings.PlayerName, (PerColour<std::string>{"", "Begoña", "Azul", "a,b", " x "}));
    EXPECT_EQ(content.settings.PlayerLevel, (PerColour<Short>{0, 100, 0, 7, 50}));
    EXPECT_EQ(content.settings.PlayerType[1], 2);
    EXPECT_EQ(content.settings.PlayerActive, (PerColour<Short>{0, 1, 2, 1, 2}));
    EXPECT_EQ(SettingsText(content.settings, content.state), SmallGame());
}

TEST(SettingsFile, WritesWhatAContinuedGameNeeds) {
    GameState state = Loaded(SmallGame()).state;
    state.RepeatTurn = No;
    state.MoveRecords[1].Count = 123;
    const std::string text = SettingsText({}, state);
    EXPECT_NE(text.find("\r\n-1,5,3,-1,1,"), std::string::npos) << "the colour on turn is to throw";
    EXPECT_NE(text.find("\"1051231  0  50001\"\r\n"), std::string::npos)
        << "a long value is written whole";
}

TEST(SettingsFile, ANameNeverBreaksTheFile) {
    Settings settings;
    settings.PlayerName = {"", "a\"b", "Łódź", "\r\n", "   "};
    const std::string text = SettingsText(settings, GameState{});
    EXPECT_EQ(Loaded(text).settings.PlayerName,
              (PerColour<std::string>{"", "a'b", "?ód?", "''", "Verde"}));
}

TEST(SettingsFile, WhatCanStandInANameComesBack) {
    int characters = 0;
    for (int byte = 0; byte < 256; ++byte) {
        Settings settings;
        settings.PlayerName[1] = "x" + FromWindows1252(std::string(1, static_cast<char>(byte)));
        std::size_t at = 1;
        if (!CanStandInName(NextCharacter(settings.PlayerName[1], at))) continue;
        ++characters;
        EXPECT_EQ(Loaded(SettingsText(settings, {})).settings, settings) << byte;
    }
    EXPECT_EQ(characters, 94 + 27 + 96);
    for (const char32_t character : std::u32string(U"\"\n\x7F\x81Ł🎲")) {
        EXPECT_FALSE(CanStandInName(character)) << static_cast<unsigned>(character);
    }
}

TEST(SettingsFile, IsGoodWithSmallLiberties) {
    for (const char lineEnd : {'\r', '\n'}) {
        std::string oneOnly = SmallGame();
        std::erase(oneOnly, lineEnd);
        EXPECT_EQ(Loaded(oneOnly), Loaded(SmallGame()));
    }
    EXPECT_EQ(ErrorOf(SmallGame().substr(0, SmallGame().size() - 2)), 0) << "no line end at the end";
    for (const char* end : {"\r\n", " \n\t\n", "\x1A", "\r\n\x1A\r\n"}) {
        EXPECT_EQ(Loaded(SmallGame() + end), Loaded(SmallGame())) << end;
    }
    const std::pair<const char*, const char*> sameThings[] = {
        {",100,2,1", ", 100\t, 2 ,1 "},        {",100,2,1", ",+100,02,1"},
        {",\"Azul\",", ", \"Azul\" ,"},        {"\"301 10", " \"301 10"},
        {"1\"\r\n\"306", "1\" \r\n\r\n\"306"},
    };
    for (const auto& [written, read] : sameThings) {
        EXPECT_EQ(Loaded(Replaced(SmallGame(), written, read)), Loaded(SmallGame())) << read;
    }
    EXPECT_EQ(Loaded(Replaced(firstStart, "Azul", "123456789ab")).settings.PlayerName[2], "123456789");
    EXPECT_EQ(Loaded(Replaced(firstStart, "0,0,0,-1", "0,-7,0,-1")).state.MoveRecordCount, 1);
    EXPECT_EQ(Loaded(Replaced(firstStart, "0,0,0,-1", "-1,1,2,0")).state.GameInProgress, No)
        << "a game without a move, whose turn passes on";
    const std::string nobody =
        Replaced(Replaced(SmallGame(), ",100,2,1", ",100,2,2"), ",7,1,1", ",7,1,2");
    EXPECT_EQ(Loaded(nobody).settings.PlayerActive, Settings{}.PlayerActive) << "no colour takes part";
}

TEST(SettingsFile, EachDamageIsRefusedWithItsNumber) {
    struct Row {
        const char *name, *good, *damaged;
        int error;
        bool keepsSettings = true;
    };
    constexpr Row rows[] = {
        {"a word for a number", "100,2,1", "cien,2,1", 13, false},
        {"a number for a name", "\"Azul\"", "7", 13, false},
        {"a quote inside a name", "\"Azul\"", "\"A\"zul\"", 13, false},
        {"a control character in a name", "\"Azul\"", "\"A\x01zul\"", 13, false},
        {"a field too many", ",0,1,2\r\n3,", ",0,1,2,1\r\n3,", 13, false},
        {"a field too many in the game line", "1,1,2,0\r\n", "1,1,2,0,0\r\n", 13, false},
        {"a field too many in the last line", "0 451001\"", "0 451001\",1", 13},
        {"the board is a cell short", "1112 0", "1112", 13},
        {"a record is too short", "\"301 10", "\"301 1", 13},
        {"a number beyond sixteen bits", "100,2,1", "32768,2,1", 6, false},
        {"a level of 101", "100,2,1", "101,2,1", 9, false},
        {"a third type of player", "100,2,1", "100,3,1", 9, false},
        {"a choice of 0", "1,2,1,1,2,1", "1,0,1,1,2,1", 9, false},
        {"a square 101", "2,0,5,5,", "2,0,5,101,", 9},
        {"five colours", "-1,5,3,", "-1,5,5,", 9},
        {"no colour on turn in a game", "-1,5,3,-1,1", "-1,5,0,-1,0", 9},
        {"another colour on turn after its six", "-1,5,3,", "-1,5,1,", 9},
        {"a turn that goes on and does not", "-1,5,3,-1,1", "-1,5,3,0,1", 9},
        {"more sixes than the last record says", "-1,5,3,-1,1", "-1,5,3,-1,2", 9},
        {"one record less promised", "-1,5,", "-1,4,", 9},
        {"the box disagrees with the positions", "2,0,5,5,", "1,0,5,5,", 9},
        {"a piece where the board has none", "3,0,45,", "3,0,46,", 9},
        {"a piece on the board twice", "31 0 0", "31 031", 9},
        {"a code that no piece has", "31 0 0", "35 0 0", 9},
        {"the second slot filled before the first", "31 0 0", " 031 0", 9},
        {"the pieces of a square in the other order", "1112", "1211", 9},
        {"a record against the rules", "\"301 10", "\"305 50", 9},
        {"records that lead elsewhere", "1  0 451001", "2  0 451001", 9},
    };
    const std::string game = SmallGame();
    for (const Row& row : rows) {
        const std::string damaged = Replaced(game, row.good, row.damaged);
        EXPECT_EQ(ErrorOf(damaged), row.error) << row.name;
        const auto kept = ReadSettingsAlone(damaged);
        EXPECT_EQ(kept.has_value(), row.keepsSettings) << row.name;
        EXPECT_EQ(kept.value_or(Loaded(game).settings), Loaded(game).settings) << row.name;
    }
    EXPECT_EQ(ErrorOf(""), 62);
    EXPECT_EQ(ErrorOf("4,0,"), 62) << "cut off inside a number";
    EXPECT_EQ(ErrorOf("4,0,0,0,0,0,\"Ama"), 62) << "cut off inside a name";
    EXPECT_EQ(ErrorOf(game.substr(0, game.size() - 20)), 62) << "the last record is missing";
    EXPECT_EQ(ErrorOf(game + "\"301 10  0  00001\"\r\n"), 9) << "one record more than promised";
    EXPECT_EQ(ErrorOf(OnGoal(game, " 0 021")), 9) << "a rival's piece left on a goal";
    const std::string oneHome = OnGoal(Replaced(firstStart, "4,0,0,0,", "3,1,76,0,"), "11 0 0");
    EXPECT_EQ(ErrorOf(oneHome), 0);
    EXPECT_EQ(ErrorOf(Replaced(oneHome, "3,1,76", "3,2,76")), 9) << "two at home";
    EXPECT_EQ(ErrorOf(OnGoal(oneHome, " 011 0")), 9) << "an empty slot";
    EXPECT_EQ(ErrorOf(OnGoal(Replaced(firstStart, "4,0,0,0,", "2,2,76,76,"), "11 012")), 9) << "a gap";
    const std::string crowd = Replaced(firstStart, "4,0,0,0,0,0,\"Azul", "1,0,1,1,1,0,\"Azul");
    EXPECT_EQ(ErrorOf(Replaced(crowd, "\" 0 0 0", "\"212223")), 9) << "three on a square";
}

TEST(SettingsFile, HoldsTheLongestGame) {
    const std::string passes = Repeated("\"101 10  0  00001\"\r\n", LongestGame);
    const std::string count = std::to_string(LongestGame + 1);
    const std::string longest = Replaced(firstStart, "0,0,0,-1", "-1," + count + ",1,-1") + passes;
    const SettingsContent content = Loaded(longest);
    EXPECT_EQ(SettingsText(content.settings, content.state), longest);
}

}  // namespace
}  // namespace zorva::test
