#include "engine/Position.h"

#include <gtest/gtest.h>

#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

void Make(engine::Position& position, const MoveRecord& record) {
    const auto seat = engine::SeatOf(record.MoverColour);
    const auto piece = static_cast<unsigned>(record.Piece - 1);
    if (record.To == 0) {
        position.SendToBox(seat, piece);
    } else {
        position.Move(seat, piece, engine::StepOf(seat, record.To));
    }
}

// Makes each move of games that the core plays, and compares the position with the core's afterwards.
TEST(Position, ComesOutOfMovesAsOutOfTheCoresTables) {
    int compared = 0, different = 0;
    for (std::uint64_t number = 0; number < 150; ++number) {
        RandomGame game(4, number);
        engine::Position position(12);
        bool isKnown = false;
        game.beforeRecord = [&](const MoveRecord& record) {
            // A captured piece goes home by a record of its own; here it is in its box already.
            if (record.OnBehalf != 0) return;
            const engine::Position played(game.state);
            compared += isKnown;
            different += isKnown && !(position == played);
            position = played;
            isKnown = record.Manual == No;  // a piece dragged by hand captures nothing
            if (isKnown && record.Piece != 0) Make(position, record);
        };
        game.Play();
        ASSERT_EQ(different, 0) << "in game " << number;
    }
    EXPECT_GT(compared, 50'000);
}

}  // namespace
}  // namespace zorva::test
