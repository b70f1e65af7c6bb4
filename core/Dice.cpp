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
    if (roll == 1 || roll == 3) show.PlaySound(17);
    if (roll == 5) show.PlaySound(18);
    if (roll == 7) show.PlaySound(19);
}

}  // namespace

void ShowThrow(const Table& table) {
    GameState& state = table.state;
    state.DieValue = 0;
    for (Short roll = 1; roll <= RollsOfAThrow; ++roll) {
        state.DieValue = RollOtherFace(table.outside, state.DieValue);
        PlayRollSound(table.show, roll);
        table.show.DrawDie(state.CurrentColour, state.DieValue);
        table.show.Pause(static_cast<Short>(RollsOfAThrow - roll));
    }
}

}  // namespace zorva
