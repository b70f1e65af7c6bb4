#include "engine/Position.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace zorva::test
