#pragma once

#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/Ending.h"
#include "core/Settings.h"
#include "store/FileError.h"

namespace zorva {

/// The history file: one record of fixed length per finished game, in Windows-1252, oldest first.
inline constexpr const char* HistoryFileName = "ZORVA32.HIS";
/// Bytes of a record, its line end included.
inline constexpr std::size_t HistoryRecordLength = 53;

/// The record of a game that ended at `when` (a local time): date and time, the winner, the losers
/// in colour order, the points in hundredths.
std::string HistoryRecordText(const std::tm& when, const GameResult& result, const Settings& settings);

/// Adds a record to the history in that folder and waits for the disk. Records torn by an earlier
/// failure are filled up with blanks first: the file only grows.
FileError AppendToHistory(const std::filesystem::path& folder, const std::string& record);

/// All records of the history.
class History {
public:
    History() = default;
    explicit History(std::string bytes) : bytes_(std::move(bytes)) {}

    /// The number of records; a last one cut short counts.
    std::size_t Count() const;
    /// The bytes of a record: 0 is the oldest game, Count() - 1 the newest.
    std::string_view Record(std::size_t index) const;

private:
    std::string bytes_;
};

/// Reads the history of that folder. A file that is missing or cannot be read is an empty history.
History ReadHistory(const std::filesystem::path& folder);

/// A record as it is shown, in UTF-8.
struct HistoryEntry {
    std::string date;  ///< "03-11-1999"
    std::string time;  ///< "09:07"
    std::string winner;
    std::string points;  ///< "2.50"
    std::string losers;  ///< "Ana, Luis y Eva"

    bool operator==(const HistoryEntry&) const = default;
};

/// Takes a record apart, also one that is cut short: what is missing is an empty text, points 0.00.
HistoryEntry DecodeHistoryRecord(std::string_view record);

}  // namespace zorva
