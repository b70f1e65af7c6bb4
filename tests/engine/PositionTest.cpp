#include "engine/Position.h"

#include <gtest/gtest.h>

#include "core/Execution.h"
#include "core/Rules.h"
#include "core/SilentOutside.h"
#include "tests/support/Positions.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

/// Makes the moves of a game that the core plays, and compares the position with the core's before each.
class Follower {
public:
    void See(const GameState& state, const MoveRecord& record) {
        // A captured piece goes home by a record of its own; here it is in its box already.
        if (record.OnBehalf != 0) return;
        const engine::Position played(state);
        if (isKnown_) {
            ++compared_;
            differs_ += !(position_ == played);
        } else {
            position_ = played;
        }
        isKnown_ = record.Manual == No;  // a piece dragged by hand captures nothing
        if (isKnown_ && record.Piece != 0) Make(record);
    }

    int Compared() const { return compared_; }
    int Differs() const { return differs_; }

private:
    void Make(const MoveRecord& record) {
        const auto seat = engine::SeatOf(record.MoverColour);
        const auto piece = static_cast<unsigned>(record.Piece - 1);
        if (record.To == 0) {
            position_.SendToBox(seat, piece);
        } else {
            position_.Move(seat, piece, engine::StepOf(seat, record.To));
        }
    }

    engine::Position position_{12};
    bool isKnown_ = false;
    int compared_ = 0;
    int differs_ = 0;
};

TEST(Position, ComesOutOfMovesAsOutOfTheCoresTables) {
    int compared = 0;
    for (std::uint64_t number = 0; number < 150; ++number) {
        RandomGame game(4, number);
        Follower follower;
        game.beforeRecord = [&](const MoveRecord& record) { follower.See(game.state, record); };
        game.Play();
        ASSERT_EQ(follower.Differs(), 0) << "in game " << number;
        compared += follower.Compared();
    }
    EXPECT_GT(compared, 50'000);
}

/// Carries a record out in the core.
void Execute(GameState& state, Colour colour, Short piece, Square to) {
    MoveRecord record;
    record.MoverColour = colour;
    record.Piece = piece;
    record.From = state.PiecePosition[colour][piece];
    record.To = to;
    state.MoveRecords[1] = record;
    SilentOutside nobody;
    ExecuteMove({state, Settings{}, nobody}, ExecutionMode::Forward, 1);
}

// Games bring few of these about, and fewer in which the order of the two decides.
TEST(Position, LosesThePieceThatTheCoreCapturesWhenAThirdComesOutOfTheBox) {
    struct Row {
        const char* position;
        Square to;
    };
    constexpr Row rows[] = {
        {"2:8 0 0 0  3:8 0 0 0", 8}, {"3:8 0 0 0  2:8 0 0 0", 8}, {"2:0 8 8 0", 8},
        {"2:5 0 0 0  3:5 0 0 0", 5}, {"3:5 0 0 0  2:5 0 0 0", 5}, {"2:0 5 5 0", 5},
        {"1:0 5 0 0  2:5 0 0 0", 5}, {"2:5 0 0 0  1:0 5 0 0", 5},
    };
    for (const Row& row : rows) {
        GameState state = Position(row.position);
        engine::Position position(state);
        const engine::Occupant victim = position.Move(0, 0, engine::StepOf(0, row.to));
        Execute(state, 1, 1, row.to);
        const PieceCode captured = CapturedPieceOn(state, row.to);
        EXPECT_EQ(victim, engine::OccupantOf(captured)) << row.position;
        Execute(state, ColourOf(captured), PieceOf(captured), 0);
        EXPECT_TRUE(position == engine::Position(state)) << row.position;
    }
}

}  // namespace
}  // namespace zorva::test
