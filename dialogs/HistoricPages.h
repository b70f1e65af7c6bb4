#pragma once

#include <algorithm>

namespace zorva {

/// The pages of the history: which records are on the page that is shown. Records are counted from
/// 0, the oldest; counts go beyond 16 bits, as the file may.
class HistoricPages {
public:
    static constexpr long RecordsPerPage = 8;

    explicit HistoricPages(long entries) : entries_(entries), top_(entries - 1) {}

    long Entries() const { return entries_; }
    /// The newest record on the page; -1 when there is none at all.
    long Top() const { return top_; }
    /// The oldest record on the page; above Top when there is none at all.
    long Bottom() const { return std::max(top_ - RecordsPerPage + 1, 0L); }

    bool CanTurnOlder() const { return top_ - RecordsPerPage >= 0; }
    bool CanTurnNewer() const { return top_ + RecordsPerPage <= entries_ - 1; }
    void TurnOlder() { top_ -= RecordsPerPage; }
    void TurnNewer() { top_ += RecordsPerPage; }

private:
    long entries_;
    long top_;
};

}  // namespace zorva
