#pragma once

#include <cstdint>
#include <functional>

#include "core/DecidedThrows.h"
#include "core/GameState.h"
#include "engine/Chance.h"

namespace zorva::test {

/// What a random game may be made of.
struct RandomGameKind {
    Settings settings;
    PerColour<PieceCode> leftovers{};  ///< what stands in slot 3 of the goals before the game
    std::array<Short, 10> faces{};     ///< throws are picked from these
    bool shiftsByHand = false;         ///< pieces are dragged by hand now and then
    bool changesRules = false;         ///< the options of the rules change now and then
    Colour first = 1;

    /// Any rules, levels, directions and players, the same to the end; dice fair or rich in some faces.
    static RandomGameKind Of(Chance& chance);
};

/// A game played by chance: persons pick any piece that may move, and drag any piece to where it may
/// stand. It ends when a colour has won or when it has grown longer than `longest` moves.
class RandomGame : public DecidedThrows {
public:
    RandomGame(std::uint64_t seed, std::uint64_t number, Short longest = 3000);
    /// A game that goes on in the same way, without the functions that are called.
    RandomGame(const RandomGame& other);

    Chance chance;
    RandomGameKind kind = RandomGameKind::Of(chance);
    GameState state;
    Short logged = 0;  ///< the number of the latest record

    /// Called before each record is carried out: the state still stands as the record before left it.
    std::function<void(const MoveRecord&)> beforeRecord;
    /// Called with each position at which the game could be kept.
    std::function<void(const GameState&)> atPosition;

    GameContext AsGame() { return {state, kind.settings, *this}; }

    /// Plays from the start. The records of the game stay in the state.
    void Play();

    void AddLogLine(Short moveNumber, const MoveRecord& record) override;
    void PositionReached(const GameState& position) override;
    void WaitForInput() override;

protected:
    Short NextThrow() override { return kind.faces[chance.Below(kind.faces.size())]; }
    virtual void ThrowAwaited() {}

private:
    void PickPiece();
    void TryShiftByHand();

    Short longest_;
};

}  // namespace zorva::test
