#include "core/Dice.h"

namespace zorva {
namespace {

// Faces shown one after another differ, so the throw never equals the ninth face. This is intended.
Short RollOtherFace(Outside& outside, Short shown) {
    Short face = outside.RollFace();
    while (face == shown) face = outside.RollFace();
    return face;
}

void PlayRollSound(Outside& outside, Short roll) {
    if (roll == 1 || roll == 3) outside.PlaySound(Sound::DieRattles);
    if (roll == 5) outside.PlaySound(Sound::DieBounces);
    if (roll == 7) outside.PlaySound(Sound::DieComesToRest);
}

}  // namespace

void ThrowDie(const GameContext& game) {
    GameState& state = game.state;
    state.DieValue = 0;
    for (Short roll = 1; roll <= FacesOfAThrow; ++roll) {
        state.DieValue = RollOtherFace(game.outside, state.DieValue);
        PlayRollSound(game.outside, roll);
        game.outside.DrawDie(state.CurrentColour, state.DieValue,
                             roll < FacesOfAThrow ? DieIs::RollingBy : DieIs::Thrown);
        game.outside.Pause(static_cast<Short>(FacesOfAThrow - roll));
    }
}

}  // namespace zorva
