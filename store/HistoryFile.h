#pragma once

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/Ending.h"
#include "core/Settings.h"
#include "store/FileError.h"

namespace zorva {

// The history file: a record of fixed length for each finished game whose result the player chose to
// keep, oldest first, in Windows-1252. docs/file-formats.md describes a record position by position.

inline constexpr const char* HistoryFileName = "ZORVA32.HIS";
/// Bytes of a record, including the two of its line end.
inline constexpr std::size_t HistoryRecordLength = 53;

/// The bytes of a record, line end included. `when` is the local time at which the game ended. Names of
/// more than 9 characters are cut. The losers take their slots in the order of `result`, at most three;
/// the points, 0..999 hundredths, get leading zeros.
std::string HistoryRecordText(const std::tm& when, const GameResult& result, const Settings& settings);

/// Records on their way to the history. Those that cannot be written stay here for the next call of
/// Write.
///
/// The file only ever grows. If its last record is incomplete, as after a power cut, that one is first
/// filled up with blanks: readers take records by their position in the file, so an incomplete one would
/// shift all that follow. A record of which a failed Write has left a part is completed by the next.
class HistoryWriter {
public:
    void Add(const std::string& record) { records_ += record; }
    bool IsEmpty() const { return records_.empty(); }
    /// Appends the records to the history in that folder. Does not wait for the disk.
    FileError Write(const std::filesystem::path& folder);

private:
    std::string BytesFor(std::size_t fileSize);

    std::string records_;
    std::optional<std::size_t> begin_;  // where they begin in the file, once a Write was tried
};

/// The history as it was read from the file.
class History {
public:
    History() = default;
    explicit History(std::string bytes) : bytes_(std::move(bytes)) {}

    /// The number of records. An incomplete last one counts.
    std::size_t Count() const;
    /// The bytes of a record, line end included; an incomplete one has fewer than 53. Record 0 is the
    /// oldest game, Count() - 1 the newest; any other index is Fatal. Valid as long as the History.
    std::string_view Record(std::size_t index) const;

private:
    std::string bytes_;
};

/// Reads the history in that folder. A file that is missing, cannot be read or has more than 1 GiB gives
/// an empty history: the player is not told, because there may simply be no finished game yet.
History ReadHistory(const std::filesystem::path& folder);

/// The five texts that the history window shows for a record, in UTF-8.
struct HistoryEntry {
    std::string date;  ///< "03-11-1999"
    std::string time;  ///< "09:07"
    std::string winner;
    std::string points;  ///< "2.50"
    std::string losers;  ///< "Ana, Luis y Eva"

    bool operator==(const HistoryEntry&) const = default;
};

/// Accepts any bytes as a record, an incomplete one too: a missing field gives an empty text, missing
/// points give 0.00. A date or time that is incomplete gives an empty text.
HistoryEntry DecodeHistoryRecord(std::string_view record);

}  // namespace zorva
