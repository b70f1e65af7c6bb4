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
    bool fits;
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
    {"the opening counts from the exit square", "", "303 31  0 420001", true},
    {"no opening once a piece is out", redIsOut, "303 32  0 420001", false},
    {"a colour with a five does not pass", "", "305 50  0  00001", false},
    {"a colour with four in the box passes", "", "304 40  0  00001", true},
    {"a pass names no square", "", "304 40  5  00001", false},
    {"a pass names no following colour", "", "314 40  0  00001", false},
    {"a piece that is not there", "", "303 31 39 420001", false},
    {"a first move cannot go on with a turn", "", "304 40  0  00000", false},
    {"a face needs its own count", redIsOut, "302 31 42 450001", false},
    {"a walk ends where it ends", redIsOut, "302 21 42 450001", false},

    {"the second of two pieces goes on with the turn", "105 51  0  50001", "105 52  0  50000", true},
    {"an exit with a five may also begin a turn", "105 51  0  50001", "105 52  0  50001", true},
    {"the second of two pieces is piece 2", "105 51  0  50001", "105 53  0  50000", false},
    {"no second exit when a third piece was out", "100 03  0 100101,105 51  0  50001",
     "105 52  0  50000", false},

    {"a capture is followed by the return", capture, "310 01 45  00010", true},
    {"no other piece goes home after a capture", capture, "310 02 45  00010", false},
    {"nobody goes home uncaptured", "300 01  0 450101", "310 01 45  00010", false},
    {"a capture earns twenty", captureDone, "100201 45 650000", true},
    {"a capture does not earn ten", captureDone, "100101 45 550000", false},
    {"the colour that captured gets the twenty", captureDone, "200200  0  00000", false},
    {"no throw comes before the bonus move", captureDone, "204 40  0  00001", false},
    {"no displacement comes before the bonus move", captureDone, "200 01  0 220101", false},
    {"a capture on the exit square earns nothing", exitCapture + ",310 01  5  00010", "404 40  0  00001",
     true},
    {"after a capture on the exit square slot 1 stays", exitCapture, "210 01  5  00010", false},

    {"reaching the goal earns ten", "100 01  0 750101,101 11 75 760001", "100100  0  00000", true},
    {"being dragged to the goal earns nothing", "100 01  0 760101", "100100  0  00000", false},

    {"a six with all out counts seven or twelve", allOut, "106121 10 221001", true},
    {"a six with all out does not count six", allOut, "106 61 10 161001", false},
    {"a six with one in the box counts six", "100 01  0 100101", "106 71 10 171001", false},
    {"the second six follows the first", "100 01  0 100101", "106 61 10 162000", false},
    {"a second six needs a first one of its colour", "106 60  0  01001", "306 60  0  02000", false},
    {"the third six sends the piece back", twoSixes, "106 61 22  00001", true},
    {"the third six sends no other piece back", twoSixes, "106 62 11  00001", false},
    {"the third six sends no piece back from the goal", twoSixesHome, "106 61 76  00001", false},

    {"the colour on turn is kept when another is dragged", "", "120 01  0 440101", true},
    {"the colour on turn does not stand beside itself", "", "110 01  0 440101", false},
    {"nobody is dragged onto a rival", "300 01  0 450101", "100 01  0 450101", false},
    {"a piece may be dragged beside a rival on a safe square", "300 01  0 460101", "100 01  0 460101",
     true},
    {"nobody is dragged off its way", "", "200 01  0 200101", false},
    {"nobody is dragged from the goal", "100 01  0 760101", "100 01 76 100101", false},
    {"a displacement ends its turn", "", "100 01  0 440100", false},
};

TEST(RecordCheck, KnowsWhatTheGameWrites) {
    for (const Row& row : rows) {
        Game game;
        SCOPED_TRACE(row.name);
        std::istringstream played(row.played);
        for (std::string line; std::getline(played, line, ',');) game.Play(line);
        EXPECT_EQ(game.Takes(row.next), row.fits);
    }
}

}  // namespace
}  // namespace zorva::test
