// Preloaded into the program: its dice fall the same way for the same ZORVA_DICE, so that a test with
// a window throws today what it threw yesterday.
#include <QRandomGenerator>
#include <cstdlib>

#include "engine/Chance.h"

quint64 QRandomGenerator::_fillRange(void* buffer, qptrdiff count) {
    static zorva::Chance chance(std::strtoull(std::getenv("ZORVA_DICE"), nullptr, 10));
    if (buffer == nullptr) return chance.Next();
    auto* words = static_cast<quint32*>(buffer);
    for (qptrdiff i = 0; i < count; ++i) words[i] = static_cast<quint32>(chance.Next());
    return 0;
}
