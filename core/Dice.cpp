#include "core/Dice.h"

namespace zorva {
namespace {

// Faces shown one after another differ, so the throw never equals the ninth face. Wanted: keep it.
Short RollOtherFace(Outside& outside, Short shown) {
    Short face = outside.RollFace();
    while (face == shown) face = outside.RollFace();
    return face;
}

void PlayRollSound(Outside& outside, Short roll) {
    if (roll == 1 || roll == 3) outside.PlaySound(17);
    if (roll == 5) outside.PlaySound(18);
    if (roll == 7) outside.PlaySound(19);
}

}  // namespace

void ThrowDie(Table table) {
    GameState& state = table.state;
    if (!table.outside.IsWatched()) {
        state.DieValue = table.outside.RollFace();
        return;
    }
    state.DieValue = 0;
    for (Short roll = 1; roll <= RollsOfAThrow; ++roll) {
        state.DieValue = RollOtherFace(table.outside, state.DieValue);
        PlayRollSound(table.outside, roll);
        table.outside.DrawDie(state.CurrentColour, state.DieValue);
        table.outside.Pause(static_cast<Short>(RollsOfAThrow - roll));
    }
}

void ClearDice(Outside& outside) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) outside.DrawDie(colour, 0);
}

}  // namespace zorva
