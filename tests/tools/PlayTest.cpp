#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <sstream>

#include "store/SettingsFile.h"
#include "tests/support/Files.h"
#include "tests/support/RandomGame.h"
#include "tools/Sim.h"

namespace zorva::test {
namespace {

namespace fs = std::filesystem;

const fs::path gamesFolder = fs::path(ZORVA_TEST_DATA) / "games";

TEST(PlayCommand, PlaysEachWholeGameToTheByte) {
    int games = 0;
    for (const auto& entry : fs::directory_iterator(gamesFolder)) {
        if (!entry.is_directory()) continue;
        ++games;
        SCOPED_TRACE(entry.path());
        const TemporaryFolder temporary;
        const fs::path folder = entry.path(), saved = temporary / "OUT.INI";
        std::ostringstream out, err;
        RunSim({"play", "--settings", folder / "in.INI", "--first",
                FileBytes(folder / "first.txt").substr(0, 1), "--dice", folder / "dice.txt", "--log",
                "--records", "--save", saved},
               out, err, false);
        EXPECT_EQ(err.str(), "");
        EXPECT_EQ(out.str(), FileBytes(folder / "expected.txt"));
        EXPECT_EQ(FileBytes(saved), FileBytes(folder / "expected.INI"));
    }
    EXPECT_EQ(games, 48);
}

struct BadRow {
    const char* arguments;  ///< separated by blanks
    const char* message;    ///< a part of it
};

constexpr BadRow badRows[] = {
    {"", "a command is missing"},
    {"watch", "unknown command \"watch\""},
    {"play --sound", "unknown option \"--sound\""},
    {"play --log --log", "--log is given twice"},
    {"play --settings", "--settings needs a value"},
    {"play --log", "--settings is missing"},
    {"play --settings none.INI", "cannot open"},
    {"play --settings empty.txt", "no settings file: it ends too early"},
    {"play --settings good.INI --first 5", "a whole number from 1 to 4, not \"5\""},
    {"play --settings good.INI --first 3", "colour 3 takes no part"},
    {"play --settings good.INI --first 1 --dice none.txt", "cannot read"},
    {"play --settings good.INI --first 1 --dice seven.txt", "throw 3 is \"7\""},
    {"play --settings good.INI --first 1 --dice good.txt --save none/OUT.INI", "cannot write"},
    {"dice --throws 1", "either --seed S or --system"},
    {"match --games 1 --seed 1 --rules 1,2,3,1", "--rules takes four options"},
    {"match --games 1 --seed 1 --players 1,2,2", "--players takes a 1"},
    {"match --games 1x --seed 1", "not \"1x\""},
    {"match --games 1 --seed 1 --die 3", "--die needs --from"},
    {"match --games 1 --seed 1 --thinker 5,200", "--thinker takes a colour and a number"},
    {"match --games 1 --seed 1 --thinker 1,0", "not \"1,0\""},
    {"match --games 1 --seed 1 --thinker 1", "not \"1\""},
    {"match --games 1 --seed 1 --thinker 1,9 --by-the-book", "excludes --by-the-book"},
    {"match --games 1 --seed 1 --from good.INI --order 1", "--from excludes --order"},
    {"match --games 1 --seed 1 --from good.INI", "good.INI has no game in progress"},
    {"analyse --settings none.INI", "cannot open"},
    {"analyse --settings bonus.INI --die 7", "from 1 to 6, not \"7\""},
    {"analyse --settings bonus.INI --die 3", "a bonus move is due, no throw"},
    {"analyse --settings bonus.INI --playouts 0", "--playouts takes a whole number from 1"},
};

TEST(Help, ComesFromEveryCommand) {
    using Words = std::vector<std::string>;
    for (const Words& asking :
         {Words{"-h"}, {"--help"}, {"play", "--help"}, {"match", "-h"}, {"analyse", "-h"}}) {
        std::ostringstream out, err;
        EXPECT_EQ(RunSim(asking, out, err, false), 0) << err.str();
        EXPECT_NE(out.str().find("zorva-sim match --games"), std::string::npos);
    }
    std::ostringstream out;
    EXPECT_EQ(RunSim({"--version"}, out, out, false), 0);
    EXPECT_TRUE(out.str().starts_with("zorva-sim ") && out.str().find('.') < 14) << out.str();
}

TEST(BadInput, GetsOneClearLineAndStatusTwo) {
    const TemporaryFolder folder;
    fs::current_path(folder / "");
    WriteBytes("good.INI", FileBytes(gamesFolder / "game02" / "in.INI"));  // red takes no part
    WriteBytes("empty.txt", "");
    WriteBytes("good.txt", "1 2 3\n");
    WriteBytes("seven.txt", "1 2\n7 4\n");
    RandomGame game(1, 1);
    game.atPosition = [&](const GameState& position) {
        if (!position.ThrowNext) WriteBytes("bonus.INI", SettingsText(game.kind.settings, position));
    };
    game.Play();
    for (const BadRow& row : badRows) {
        SCOPED_TRACE(row.arguments);
        std::istringstream words(row.arguments);
        std::ostringstream out, err;
        EXPECT_EQ(RunSim({std::istream_iterator<std::string>(words), {}}, out, err, false), 2);
        EXPECT_EQ(err.str().find("zorva-sim: "), 0U);
        EXPECT_NE(err.str().find(row.message), std::string::npos) << err.str();
        EXPECT_EQ(err.str().find('\n'), err.str().size() - 1);
    }
    fs::current_path(gamesFolder);
    std::ostream fullDisk(nullptr);
    std::ostringstream err;
    EXPECT_EQ(RunSim({"--help"}, fullDisk, err, false), 2);
    EXPECT_EQ(err.str(), "zorva-sim: cannot write the output\n");
}

}  // namespace
}  // namespace zorva::test
