#include "core/Dice.h"

namespace zorva {
namespace {

// Faces shown one after another differ, so the throw never equals the ninth face. Wanted: keep it.
Short RollOtherFace(Outside& outside, Short shown) {
    Short face = outside.RollFace();
    while (face == shown) face = outside.RollFace();
    return face;
}

void PlayRollSound(const Show& show, Short roll) {
    if (roll == 1 || roll == 3) show.PlaySound(Sound::DieRattles);
    if (roll == 5) show.PlaySound(Sound::DieBounces);
    if (roll == 7) show.PlaySound(Sound::DieComesToRest);
}

}  // namespace

void ShowThrow(const GameContext& game) {
    GameState& state = game.state;
    state.DieValue = 0;
    for (Short roll = 1; roll <= RollsOfAThrow; ++roll) {
        state.DieValue = RollOtherFace(game.outside, state.DieValue);
        PlayRollSound(game.show, roll);
        game.show.DrawDie(state.CurrentColour, state.DieValue);
        game.show.Pause(static_cast<Short>(RollsOfAThrow - roll));
    }
}

}  // namespace zorva
