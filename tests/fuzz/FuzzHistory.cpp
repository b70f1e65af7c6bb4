// Feeds any bytes to the reader of the history. Its records must be the bytes in their order, and each
// must have something to show.

#include "store/HistoryFile.h"
#include "tests/fuzz/Checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zorva;
    const std::string bytes(fuzz::AsBytes(data, size));
    const History history(bytes);
    std::string together;
    for (std::size_t index = 0; index < history.Count(); ++index) {
        together += history.Record(index);
        const HistoryEntry entry = DecodeHistoryRecord(history.Record(index));
        Require(entry.points.size() == 4 && entry.points[1] == '.', "points that are no points");
        Require(entry.date.empty() || entry.date.size() >= 10, "a date that is cut off");
    }
    Require(together == bytes, "the records are not the file");
    return 0;
}
