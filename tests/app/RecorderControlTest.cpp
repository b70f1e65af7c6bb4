#include "app/RecorderControl.h"

#include <gtest/gtest.h>

#include "core/Records.h"
#include "tests/app/BoardWindow.h"
#include "tests/support/NotingOutside.h"

namespace zorva::test {
namespace {

using enum RecorderKey;

/// A world that notes the calls it gets, and in which somebody may press a key during a yield.
class YieldingOutside : public NotingOutside {
public:
    using NotingOutside::NotingOutside;
    void YieldToEvents(UserInput input) override {
        EXPECT_EQ(input, UserInput::Handled);
        if (atYield) atYield();
    }
    void SetScreenCursor(ScreenCursor cursor) override { hourglass = cursor == ScreenCursor::Hourglass; }
    void Pause(Short n) override {
        NotingOutside::Pause(n);
        if (hourglass) busy.push_back(n);
    }
    std::function<void()> atYield;
    bool hourglass = false;
    std::vector<Short> busy;  // the pauses under the hourglass
};

/// Yellow has walked from 10 to 13 and to 18; a throw is awaited.
class WithATape : public testing::Test, public BoardWindow {
protected:
    WithATape() : BoardWindow("1:18 0 0 0") {
        state.GameInProgress = state.WaitingForThrow = Yes;
        state.CurrentColour = 2;
        state.MoveRecords[1] = {1, 0, 3, 3, 1, 10, 13, 0, No, 0, Yes};
        state.MoveRecords[2] = {1, 0, 5, 5, 1, 13, 18, 0, No, 0, Yes};
        state.MoveRecordCount = 3;
    }

    void Press(auto... keys) { (control.Press(keys), ...); }

    std::string Live() {
        std::string live;
        for (int key = 0; key < RecorderKeyCount; ++key) {
            live += control.IsLive(static_cast<RecorderKey>(key)) ? 'x' : '-';
        }
        return live;
    }

    RecorderState recorder;
    YieldingOutside outside{state};
    RecorderControl control{{state, settings, outside}, recorder, mesa};
};

TEST_F(WithATape, KeysAreLiveWhereTheyDoSomething) {
    EXPECT_EQ(Live(), "x-----");
    state.WaitingForThrow = No;
    EXPECT_EQ(Live(), "------");
    state.WaitingForThrow = Yes;
    Press(BackOne);
    EXPECT_EQ(state.MoveRecordCount, 3) << "the recorder is off";
    Press(OnOff);
    EXPECT_EQ(Live(), "xx-x--");
    Press(BackOne);
    EXPECT_EQ(Live(), "xxxxxx");
    Press(BackOne);
    EXPECT_EQ(Live(), "x-x-xx");
    Press(BackOne, ForwardOne);
    EXPECT_EQ(state.MoveRecordCount, 2) << "there is no move before the first";
    EXPECT_EQ(state.PiecePosition[1][1], 13);
}

TEST_F(WithATape, TheDieOfTheLastMoveLiesAtRest) {
    Press(OnOff, BackOne);
    EXPECT_EQ(outside.Only({"die"}), Notes{"die 1 3 rests"});
    EXPECT_EQ(outside.Only({"turn"}).back(), "turn 1 tape");
    Press(BackOne);
    EXPECT_EQ(outside.Only({"die"}), Notes{"die 1 3 rests"}) << "no move is on the board";
    Press(OnOff);
    EXPECT_EQ(outside.Only({"die"}).back(), "die 2 5 ready");
    EXPECT_EQ(outside.Only({"turn"}).back(), "turn 2 throws");
    EXPECT_EQ(outside.busy, (std::vector<Short>{10, 10})) << "before it goes to the end, and after";
    EXPECT_FALSE(outside.hourglass);
    EXPECT_EQ(state.PiecePosition[1][1], 18);
    EXPECT_EQ(recorder.RecorderOn, No);
}

TEST_F(WithATape, AKeyThatRunsByItselfStopsAtTheEndOrWhenItIsPressedAgain) {
    Press(OnOff, AutoBack);
    EXPECT_EQ(state.MoveRecordCount, 1);
    int yields = 0;
    outside.atYield = [&] {
        ++yields;
        EXPECT_EQ(Live(), "x---x-");
        Press(AutoBack, OnOff, Restore);
        EXPECT_EQ(recorder.RecorderOn, Yes);
        Press(AutoForward);
    };
    Press(AutoForward);
    EXPECT_EQ(yields, 1) << "pressed again it stops";
    EXPECT_EQ(state.MoveRecordCount, 2);
    EXPECT_FALSE(IsReplaying(recorder));
    outside.atYield = {};
    Press(AutoForward);
    EXPECT_EQ(state.MoveRecordCount, 3);
    EXPECT_EQ(outside.Only({"pause"}), (Notes{"pause 5", "pause 5", "pause 5", "pause 5"}));
}

TEST_F(WithATape, RestoreForgetsTheMovesBehindOrExplainsItself) {
    Press(OnOff, Restore);
    EXPECT_EQ(outside.Only({"message"}).size(), 1u);
    EXPECT_EQ(recorder.RecorderOn, Yes);
    Press(BackOne, Restore);
    EXPECT_EQ(recorder.RecorderOn, No);
    EXPECT_EQ(state.MoveRecordCount, 2);
    EXPECT_EQ(outside.busy, (std::vector<Short>{8, 8, 10}));
    EXPECT_FALSE(outside.hourglass);
    EXPECT_EQ(outside.Only({"message"}).size(), 1u);
}

TEST_F(WithATape, GoesToAMoveWhileItIsOn) {
    control.GoTo(0);
    EXPECT_EQ(state.MoveRecordCount, 3);
    Press(OnOff);
    for (const auto& [to, reached] : {std::pair<Short, Short>{0, 10}, {2, 18}, {1, 13}, {3, 13}}) {
        control.GoTo(to);
        EXPECT_EQ(state.PiecePosition[1][1], reached) << to;
    }
}

TEST_F(WithATape, TakingTheTapeOutStopsAReplayAtTheEnd) {
    control.TakeTapeOut();
    EXPECT_EQ(outside.All(), Notes{}) << "the recorder is off";
    outside.atYield = [&] { control.TakeTapeOut(); };
    Press(OnOff, AutoBack);
    EXPECT_EQ(recorder.RecorderOn, No);
    EXPECT_EQ(state.MoveRecordCount, 3);
    EXPECT_EQ(state.PiecePosition[1][1], 18);
}

}  // namespace
}  // namespace zorva::test
