#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/support/Files.h"
#include "tools/Sim.h"

namespace zorva::test {
namespace {

namespace fs = std::filesystem;

const fs::path gamesFolder = fs::path(ZORVA_TEST_DATA) / "games";

std::vector<std::string> GameNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(gamesFolder)) {
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class WholeGame : public testing::TestWithParam<std::string> {};

TEST_P(WholeGame, ComesOutToTheByte) {
    const fs::path folder = gamesFolder / GetParam();
    const TemporaryFolder temporary;
    const fs::path saved = temporary / "OUT.INI";
    std::ostringstream out, err;
    const int status =
        RunSim({"play", "--settings", (folder / "in.INI").string(), "--first",
                FileBytes(folder / "first.txt").substr(0, 1), "--dice", (folder / "dice.txt").string(),
                "--log", "--records", "--save", saved.string()},
               out, err, false);
    ASSERT_EQ(status, 0) << err.str();
    EXPECT_EQ(out.str(), FileBytes(folder / "expected.txt"));
    EXPECT_EQ(FileBytes(saved), FileBytes(folder / "expected.INI"));
}

INSTANTIATE_TEST_SUITE_P(Games, WholeGame, testing::ValuesIn(GameNames()),
                         [](const auto& game) { return game.param; });

TEST(PlayCommand, PrintsTheLogAndTheRecordsOnlyWhenAsked) {
    const fs::path folder = gamesFolder / "game02";
    const std::vector<std::string> plain = {
        "play", "--settings", (folder / "in.INI").string(),  "--first",
        "1",    "--dice",     (folder / "dice.txt").string()};
    for (const auto& [option, firstWord] :
         {std::pair{"", "positions "}, {"--log", "Inicio "}, {"--records", "1: "}}) {
        std::vector<std::string> arguments = plain;
        if (*option) arguments.emplace_back(option);
        std::ostringstream out, err;
        EXPECT_EQ(RunSim(arguments, out, err, false), 0);
        EXPECT_TRUE(out.str().starts_with(firstWord)) << option;
    }
}

struct BadRow {
    const char* name;
    const char* arguments;  ///< blank separated; $ stands for a folder with the files below
    const char* told;       ///< a part of the message
};

constexpr BadRow badRows[] = {
    {"no command", "", "a command is missing"},
    {"an unknown command", "watch", "unknown command \"watch\""},
    {"an unknown option", "play --sound", "unknown option \"--sound\""},
    {"an option twice", "play --log --log", "--log is given twice"},
    {"settings that are not there", "play --settings $/none.INI", "cannot open"},
    {"settings that are empty", "play --settings $/empty.txt", "no settings file"},
    {"a colour beyond green", "play --settings $/good.INI --first 5 --dice $/good.txt", "from 1 to 4"},
    {"a colour that takes no part", "play --settings $/good.INI --first 3 --dice $/good.txt",
     "colour 3 takes no part"},
    {"a throw of 7", "play --settings $/good.INI --first 1 --dice $/seven.txt", "throw 3 is \"7\""},
    {"an unwritable result",
     "play --settings $/good.INI --first 1 --dice $/good.txt --save $/none/OUT.INI", "cannot write"},
    {"a rule of three", "match --games 1 --seed 1 --rules 1,2,3,1", "--rules takes four options"},
    {"a player too few", "match --games 1 --seed 1 --players 1,2,2", "--players takes a 1"},
    {"a level above 100", "match --games 1 --seed 1 --levels 1,2,101,4", "--levels takes four levels"},
};

std::vector<std::string> Arguments(const std::string& text, const std::string& folder) {
    std::vector<std::string> arguments;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (word[0] == '$') word.replace(0, 1, folder);
        arguments.push_back(word);
    }
    return arguments;
}

TEST(BadInput, GetsOneClearLineAndStatusTwo) {
    const TemporaryFolder folder;
    std::string settings = FileBytes(gamesFolder / "game01" / "in.INI");
    const std::size_t red = settings.find(",60,1,1");
    ASSERT_NE(red, std::string::npos);
    WriteBytes(folder / "good.INI", settings.replace(red, 7, ",60,1,2"));
    WriteBytes(folder / "cut.INI", settings.substr(0, 300));
    WriteBytes(folder / "empty.txt", "");
    WriteBytes(folder / "good.txt", "1 2 3\n");
    WriteBytes(folder / "seven.txt", "1 2\n7 4\n");
    WriteBytes(folder / "glued.txt", "123\n");
    for (const BadRow& row : badRows) {
        SCOPED_TRACE(row.name);
        std::ostringstream out, err;
        EXPECT_EQ(RunSim(Arguments(row.arguments, (folder / "").string()), out, err, false), 2);
        EXPECT_EQ(err.str().find("zorva-sim: "), 0U);
        EXPECT_NE(err.str().find(row.told), std::string::npos) << err.str();
        EXPECT_EQ(err.str().find('\n'), err.str().size() - 1);
    }
}

}  // namespace
}  // namespace zorva::test
