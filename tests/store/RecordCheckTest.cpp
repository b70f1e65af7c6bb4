#include "store/RecordCheck.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "core/Execution.h"
#include "core/SilentOutside.h"

namespace zorva::test {
namespace {

// The record that a line of the file describes.
MoveRecord RecordOf(const std::string& line) {
    const auto number = [&line](std::size_t at, std::size_t width) {
        return ToShort(std::stoi(line.substr(at, width)));
    };
    const auto flag = [&](std::size_t at) { return number(at, 1) == 1 ? Yes : No; };
    return {number(0, 1), number(1, 1),  number(2, 1), number(3, 2),  number(5, 1), number(6, 3),
            number(9, 3), number(12, 1), flag(13),     number(14, 1), flag(15)};
}

/// A game that plays the records it is given.
class Game {
public:
    bool Takes(const std::string& line) const { return CanFollow(state_, RecordOf(line)); }

    void Play(const std::string& line) {
        ASSERT_TRUE(Takes(line)) << line;
        state_.MoveRecords[++state_.MoveRecordCount] = RecordOf(line);
        SilentOutside silent;
        ExecuteMove({state_, settings_, silent}, ExecutionMode::Forward, state_.MoveRecordCount);
    }

private:
    Settings settings_;
    GameState state_;
};

// The records played before, with commas between them, and the record that comes next. "100 01  0
// 440101": yellow drags its piece 1 out of the box to square 44.
struct Row {
    const char* name;
    std::string played;
    const char* next;
};

const std::string redIsOut = "303 31  0 420001";
const std::string twoAreOut = "105 51  0  50001,105 52  0  50000";
const std::string capture = "100 01  0 440101,300 01  0 450101,101 11 44 450001";
const std::string captureDone = capture + ",310 01 45  00010";
const std::string exitCapture = "200 01  0  50101,300 01  0  50101,105 51  0  50001";
const std::string allOut = "100 01  0 100101,100 02  0 110101,100 03  0 130101,100 04  0 140101";
const std::string twoSixes = "100 01  0 100101,100 02  0 110101,106 61 10 161001,106 61 16 222000";
const std::string twoSixesHome = "100 01  0 640101,106 61 64 701001,106 61 70 762000,100100  0  02000";

const Row rows[] = {
    {"no opening once a piece is out", redIsOut, "303 32  0 420001"},
    {"a colour with a five does not pass", "", "305 50  0  00001"},
    {"a pass names no square", "", "304 40  5  00001"},
    {"a pass names no following colour", "", "314 40  0  00001"},
    {"a piece that is not there", "", "303 31 39 420001"},
    {"a first move cannot go on with a turn", "", "304 40  0  00000"},
    {"a face needs its own count", redIsOut, "302 31 42 450001"},
    {"a walk ends where it ends", redIsOut, "302 21 42 450001"},

    {"the second of two pieces is piece 2", "105 51  0  50001", "105 53  0  50000"},
    {"no second exit when a third piece was out", "100 03  0 100101,105 51  0  50001",
     "105 52  0  50000"},

    {"no other piece goes home after a capture", capture, "310 02 45  00010"},
    {"nobody goes home uncaptured", "300 01  0 450101", "310 01 45  00010"},
    {"a capture does not earn ten", captureDone, "100101 45 550000"},
    {"the colour that captured gets the twenty", captureDone, "200200  0  00000"},
    {"no throw comes before the bonus move", captureDone, "204 40  0  00001"},
    {"no displacement comes before the bonus move", captureDone, "200 01  0 220101"},
    {"after a capture on the exit square slot 1 stays", exitCapture, "210 01  5  00010"},

    {"being dragged to the goal earns nothing", "100 01  0 760101", "100100  0  00000"},

    {"a six with all out does not count six", allOut, "106 61 10 161001"},
    {"a six with one in the box counts six", "100 01  0 100101", "106 71 10 171001"},
    {"the second six follows the first", "100 01  0 100101", "106 61 10 162000"},
    {"a second six needs a first one of its colour", "106 60  0  01001", "306 60  0  02000"},
    {"the third six sends no other piece back", twoSixes, "106 62 11  00001"},
    {"the third six sends no piece back from the goal", twoSixesHome, "106 61 76  00001"},

    {"the colour on turn does not stand beside itself", "", "110 01  0 440101"},
    {"nobody is dragged onto a rival", "300 01  0 450101", "100 01  0 450101"},
    {"nobody is dragged off its way", "", "200 01  0 200101"},
    {"nobody is dragged from the goal", "100 01  0 760101", "100 01 76 100101"},
    {"a displacement ends its turn", "", "100 01  0 440100"},
};

TEST(RecordCheck, RefusesWhatTheGameNeverWrites) {
    for (const Row& row : rows) {
        Game game;
        SCOPED_TRACE(row.name);
        std::istringstream played(row.played);
        for (std::string line; std::getline(played, line, ',');) game.Play(line);
        EXPECT_FALSE(game.Takes(row.next));
    }
}

}  // namespace
}  // namespace zorva::test
