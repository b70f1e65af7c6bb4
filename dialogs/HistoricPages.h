#pragma once

#include <algorithm>

namespace zorva {

/// Which records of the history are on the page that is shown. Record 0 is the oldest game. The numbers
/// are longer than 16 bits, because a history file may hold twenty million games.
class HistoricPages {
public:
    static constexpr long RecordsPerPage = 8;

    /// Begins at the page with the newest records; `entries` is the number of all.
    explicit HistoricPages(long entries) : entries_(entries), top_(entries - 1) {}

    long Entries() const { return entries_; }
    // Counted from 1: the page, and its first and last game, from the newest game on. Senseless for an
    // empty history.
    long Page() const { return (entries_ - 1 - top_) / RecordsPerPage + 1; }
    long FirstGame() const { return entries_ - Top(); }
    long LastGame() const { return entries_ - Bottom(); }

    /// The newest record on the page; -1 for an empty history.
    long Top() const { return top_; }
    /// The oldest record on the page; 0, which is above Top, for an empty history.
    long Bottom() const { return std::max(top_ - RecordsPerPage + 1, 0L); }

    bool CanTurnOlder() const { return top_ - RecordsPerPage >= 0; }
    bool CanTurnNewer() const { return top_ + RecordsPerPage <= entries_ - 1; }
    // Only after the question above was answered with yes.
    void TurnOlder() { top_ -= RecordsPerPage; }
    void TurnNewer() { top_ += RecordsPerPage; }

private:
    long entries_;
    long top_;
};

}  // namespace zorva
