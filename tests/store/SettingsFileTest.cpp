#include "store/SettingsFile.h"

#include <gtest/gtest.h>

#include "core/Board.h"
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

// Yellow has brought out two pieces with a five, red is to throw after its first six.
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

SettingsContent Loaded(const std::string& bytes) {
    const SettingsReading reading = ReadSettings(bytes);
    if (const auto* error = std::get_if<FileError>(&reading)) {
        ADD_FAILURE() << "refused with " << static_cast<int>(*error) << "\n" << bytes;
        return {};
    }
    return std::get<SettingsContent>(reading);
}

// The number of the refusal, 0 for a file that is good.
int ErrorOf(const std::string& bytes) {
    const SettingsReading reading = ReadSettings(bytes);
    const auto* error = std::get_if<FileError>(&reading);
    return error == nullptr ? 0 : static_cast<int>(*error);
}

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    const std::size_t at = text.find(what);
    if (at == std::string::npos) ADD_FAILURE() << "no " << what << " in the file";
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

// With that in the slots of yellow's goal.
std::string OnGoal(std::string text, const char* slots) {
    const std::size_t board = text.find("\" 0 0") + 1;
    return text.replace(board + 2 * (3 * (GoalSquare[1] - 1)), 6, slots);
}

TEST(SettingsFile, OfAFirstStart) {
    EXPECT_EQ(SettingsText(Settings{}, GameState{}), firstStart);
    const SettingsContent content = Loaded(firstStart);
    EXPECT_EQ(content.settings, Settings{});
    EXPECT_EQ(content.state.GameInProgress, No);
}

TEST(SettingsFile, OfAGame) {
    const SettingsContent content = Loaded(SmallGame());
    EXPECT_EQ(content.settings.PlayerName[1], "Begoña");
    EXPECT_EQ(content.settings.PlayerName[3], "a,b");
    EXPECT_EQ(content.settings.PlayerActive, (PerColour<Short>{0, 1, 2, 1, 2}));
    EXPECT_EQ(content.settings.RuleFiveSomeInBox, 2);
    const GameState& state = content.state;
    EXPECT_EQ(state.GameInProgress, Yes);
    EXPECT_EQ(state.MoveRecordCount, 5);
    EXPECT_EQ(state.CurrentColour, 3);
    EXPECT_EQ(state.SixesInRow, 1);
    EXPECT_EQ(state.PlayDirection, -1);
    EXPECT_EQ(state.SixValue, 7);
    EXPECT_EQ(state.SquareOccupants[5][2], 12);
    EXPECT_EQ(state.MoveRecords[2], (MoveRecord{1, 0, 5, 5, 2, 0, 5, 0, No, 0, No}));
    EXPECT_EQ(state.MoveRecords[4], (MoveRecord{3, 0, 6, 6, 1, 0, 45, 1, No, 0, Yes}));
    EXPECT_EQ(SettingsText(content.settings, state), SmallGame());
}

TEST(SettingsFile, WritesConditionsWithoutChangingTheGame) {
    GameState state;
    state.GameInProgress = Yes;
    state.CurrentColour = 2;
    state.MoveRecordCount = 1;
    EXPECT_NE(SettingsText({}, state).find("\r\n0,1,2,-1,0,"), std::string::npos)
        << "a game whose first move is not made is not kept";
    state = Loaded(SmallGame()).state;
    state.RepeatTurn = No;
    EXPECT_NE(SettingsText({}, state).find("\r\n-1,5,3,-1,1,"), std::string::npos)
        << "the colour on turn is to throw";
    state.MoveRecords[1].Count = 123;
    EXPECT_NE(SettingsText({}, state).find("\"1051231  0  50001\"\r\n"), std::string::npos)
        << "a longer value is written whole";
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
    std::string lineFeeds = SmallGame();
    std::erase(lineFeeds, '\r');
    EXPECT_EQ(ErrorOf(lineFeeds), 0);
    EXPECT_EQ(ErrorOf(SmallGame().substr(0, SmallGame().size() - 2)), 0) << "no line end at the end";
    EXPECT_EQ(ErrorOf(Replaced(SmallGame(), ",100,2,1", ", 100, 2, 1")), 0) << "blanks before numbers";
    EXPECT_EQ(ErrorOf(Replaced(firstStart, "Azul", "123456789")), 0) << "a name of nine letters";
    EXPECT_EQ(Loaded(Replaced(firstStart, "0,0,0,-1", "0,-7,0,-1")).state.MoveRecordCount, 1);
    EXPECT_EQ(Loaded(Replaced(firstStart, "0,0,0,-1", "-1,1,2,-1")).state.GameInProgress, No)
        << "a game without a move";
    const std::string nobody =
        Replaced(Replaced(SmallGame(), ",100,2,1", ",100,2,2"), ",7,1,1", ",7,1,2");
    EXPECT_EQ(Loaded(nobody).settings.PlayerActive, Settings{}.PlayerActive)
        << "a game that nobody plays, and in which nobody could be switched on";
}

TEST(SettingsFile, EachDamageIsRefusedWithItsNumber) {
    const std::string game = SmallGame();
    struct Row {
        const char* name;
        std::string bytes;
        int error;
    };
    const Row rows[] = {
        {"an empty file", "", 62},
        {"more moves than can be counted on from",
         Replaced(firstStart, "0,0,0,-1", "-1,32767,1,-1") + Repeated("\"101 10  0  00001\"\r\n", 32766),
         9},
        {"cut off inside a number", "4,0,", 62},
        {"cut off inside a name", "4,0,0,0,0,0,\"Ama", 62},
        {"the last record is missing", game.substr(0, game.size() - 20), 62},
        {"more records promised than there are", Replaced(game, "-1,5,", "-1,6,"), 62},
        {"a word for a number", Replaced(game, "100,2,1", "cien,2,1"), 13},
        {"a fraction", Replaced(game, "100,2,1", "1.5,2,1"), 13},
        {"a number for a name", Replaced(game, "\"Azul\"", "7"), 13},
        {"a quote inside a name", Replaced(game, "\"Azul\"", "\"A\"zul\""), 13},
        {"a control character in a name", Replaced(game, "\"Azul\"", "\"A\x01zul\""), 13},
        {"a field too many", Replaced(game, ",0,1,2\r\n3,", ",0,1,2,1\r\n3,"), 13},
        {"the board is a cell short", Replaced(game, "1112 0", "1112"), 13},
        {"a letter on the board", Replaced(game, "1112 0", "1112 x"), 13},
        {"a record is too short", Replaced(game, "\"301 10", "\"301 1"), 13},
        {"a number beyond sixteen bits", Replaced(game, "100,2,1", "32768,2,1"), 6},
        {"a level of 101", Replaced(game, "100,2,1", "101,2,1"), 9},
        {"a third type of player", Replaced(game, "100,2,1", "100,3,1"), 9},
        {"a choice of 0", Replaced(game, "1,2,1,1,2,1", "1,0,1,1,2,1"), 9},
        {"a square 101", Replaced(game, "2,0,5,5,", "2,0,5,101,"), 9},
        {"a name of ten letters", Replaced(game, "Azul", "1234567890"), 9},
        {"five colours", Replaced(game, "-1,5,3,", "-1,5,5,"), 9},
        {"no colour on turn in a game", Replaced(game, "-1,5,3,-1,1", "-1,5,0,-1,0"), 9},
        {"another colour on turn after its six", Replaced(game, "-1,5,3,", "-1,5,1,"), 9},
        {"a turn that goes on and does not", Replaced(game, "-1,5,3,-1,1", "-1,5,3,0,1"), 9},
        {"more sixes than the last record says", Replaced(game, "-1,5,3,-1,1", "-1,5,3,-1,2"), 9},
        {"one record more than promised", game + "\"301 10  0  00001\"\r\n", 9},
        {"one record less promised", Replaced(game, "-1,5,", "-1,4,"), 9},
        {"the box disagrees with the positions", Replaced(game, "2,0,5,5,", "1,0,5,5,"), 9},
        {"a piece where the board has none", Replaced(game, "3,0,45,", "3,0,46,"), 9},
        {"a piece on the board twice", Replaced(game, "31 0 0", "31 031"), 9},
        {"a code that no piece has", Replaced(game, "31 0 0", "35 0 0"), 9},
        {"the second slot filled before the first", Replaced(game, "31 0 0", " 031 0"), 9},
        {"the pieces of a square in the other order", Replaced(game, "1112", "1211"), 9},
        {"a record against the rules", Replaced(game, "\"301 10", "\"305 50"), 9},
        {"records that lead elsewhere", Replaced(game, "1  0 451001", "2  0 451001"), 9},
        {"a gap on a goal", OnGoal(Replaced(firstStart, "4,0,0,0,", "2,2,76,76,"), "11 012"), 9},
        {"a rival's piece left on a goal", OnGoal(game, " 0 021"), 9},
    };
    for (const Row& row : rows) EXPECT_EQ(ErrorOf(row.bytes), row.error) << row.name;
}

}  // namespace
}  // namespace zorva::test
