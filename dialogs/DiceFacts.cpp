#include "dialogs/DiceFacts.h"

#include <algorithm>
#include <cmath>

#include "core/Ending.h"
#include "core/Records.h"

namespace zorva {
namespace {

constexpr double chance = 1.0 / 6;
constexpr double tail = 0.005;

/// Counts the throws of a game one after another.
class DiceCounter {
public:
    /// A throw of that colour, after so many sixes of the same turn.
    void Add(Colour colour, Short face, Short sixesBefore) {
        auto& counts = result[colour].counts;
        for (Short row = 1; row <= 6; ++row) Count(counts[row - 1], row == face);
        if (sixesBefore > 0) Count(counts[5 + sixesBefore], face == 6);
    }

    PerColour<DiceOfColour> result{};

private:
    static void Count(DiceCount& count, bool came) {
        ++count.tries;
        count.count += came;
    }
};

// Only the record of a six tells how many sixes were thrown before it; `latest` is the throw before.
Short SixesBefore(const MoveRecord& record, const MoveRecord& latest) {
    if (record.Die != 6) return record.MoverColour == latest.MoverColour ? latest.RepeatState : Short{0};
    return record.RepeatState == 0 ? Short{2} : ToShort(record.RepeatState - 1);
}

// After two sixes the colour throws again; where another one follows, it threw the third.
bool IsThirdSixMissing(const MoveRecord& latest, Colour next) {
    return latest.RepeatState == 2 && latest.MoverColour != next;
}

}  // namespace

// The probabilities of 0, 1, 2, ... are added up; logarithms keep them from vanishing in long games.
NormalRange NormalRangeOf(int tries) {
    NormalRange range{0, tries};
    double sum = 0;
    for (int count = 0; count <= tries; ++count) {
        sum +=
            std::exp(std::lgamma(tries + 1) - std::lgamma(count + 1) - std::lgamma(tries - count + 1) +
                     count * std::log(chance) + (tries - count) * std::log1p(-chance));
        if (sum <= tail) range.low = count + 1;
        if (sum < 1 - tail) continue;
        range.high = count;
        break;
    }
    return range;
}

int DiceOfColour::Unusual() const {
    return static_cast<int>(std::count_if(counts.begin(), counts.end(), [](const DiceCount& count) {
        return !NormalRangeOf(count.tries).Holds(count.count);
    }));
}

PerColour<DiceOfColour> DiceOfGame(const GameState& game) {
    DiceCounter counter;
    MoveRecord latest;  // that threw
    for (Short move = 1; move < game.MoveRecordCount; ++move) {
        const MoveRecord& record = game.MoveRecords[move];
        if (record.Die == 0 || FollowsByItself(game, move)) continue;
        if (IsThirdSixMissing(latest, record.MoverColour)) counter.Add(latest.MoverColour, 6, 2);
        counter.Add(record.MoverColour, record.Die, SixesBefore(record, latest));
        latest = record;
    }
    if (!HasWon(game) && IsThirdSixMissing(latest, game.CurrentColour))
        counter.Add(latest.MoverColour, 6, 2);
    return counter.result;
}

}  // namespace zorva
