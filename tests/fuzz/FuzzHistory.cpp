// Feeds any bytes to the reader of the history, and as players' names to its writer.

#include "core/Settings.h"
#include "store/Encoding.h"
#include "store/HistoryFile.h"
#include "tests/fuzz/Checks.h"

namespace {

using namespace zorva;

bool IsWellFormed(const std::string& utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        const bool isOneByte = static_cast<unsigned char>(utf8[at]) < 0x80;
        const std::size_t from = at;
        if (NextCharacter(utf8, at) == 0xFFFD || (at - from == 1) != isOneByte) return false;
    }
    return true;
}

void ReadAll(const std::string& bytes) {
    const History history(bytes);
    std::string together;
    for (std::size_t index = 0; index < history.Count(); ++index) {
        const std::string_view record = history.Record(index);
        together += record;
        const HistoryEntry entry = DecodeHistoryRecord(record);
        for (const std::string& text :
             {entry.date, entry.time, entry.winner, entry.points, entry.losers}) {
            Require(IsWellFormed(text), "a text that cannot be shown");
        }
        Require(entry.points.size() == 4 && entry.points[1] == '.', "points that are no points");
    }
    Require(together == bytes, "the records are not the file");
}

// The input gives four names of nine bytes, the points and the losers. A record of them must be read
// back as it was written, but for blanks around the names.
void WriteAndRead(std::string_view bytes) {
    if (bytes.size() < 4 * 9 + 3) return;
    Settings settings;
    GameResult result{1, {}, static_cast<Short>(static_cast<unsigned char>(bytes[36]) * 1000 / 256)};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        const std::size_t begin = 9 * static_cast<std::size_t>(colour - 1);
        settings.PlayerName[colour] = FromWindows1252(bytes.substr(begin, 9));
        if (colour != 1 && (bytes[37] >> colour & 1) != 0) result.losers.push_back(colour);
    }
    std::tm when{};
    when.tm_year = static_cast<unsigned char>(bytes[38]);
    when.tm_mday = 1;
    const std::string record = HistoryRecordText(when, result, settings);
    Require(record.size() == HistoryRecordLength, "a record of another length");
    const HistoryEntry entry = DecodeHistoryRecord(record);
    Require(entry.winner == Trimmed(settings.PlayerName[1]), "the winner's name is another");
    Require(entry.points == PointsText(result.points), "other points");
    for (const Colour loser : result.losers) {
        const std::string name = Trimmed(settings.PlayerName[loser]);
        Require(entry.losers.find(name) != std::string::npos, "a loser is missing");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::AsBytes(data, size);
    ReadAll(std::string(bytes));
    WriteAndRead(bytes);
    return 0;
}
