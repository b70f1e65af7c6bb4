#include "store/HistoryFile.h"

#include <new>

#include "store/Encoding.h"
#include "store/SystemFile.h"

namespace zorva {
namespace {

constexpr std::size_t loserSlots = 3;
constexpr std::size_t dataLength = HistoryRecordLength - 2;
constexpr const char* lineEnd = "\r\n";
/// Bytes of twenty million games. A longer file is no history and would only fill the memory.
constexpr std::size_t longestFile = std::size_t{1} << 30;

/// The bytes of a record that a field takes up; the first byte of the record is number 0.
struct Field {
    std::size_t begin;
    std::size_t length;
};
constexpr Field yearField{0, 4}, monthField{4, 2}, dayField{6, 2}, hourField{8, 2}, minuteField{10, 2};
constexpr Field winnerField{12, LongestName}, pointsField{48, 3};

constexpr Field LoserField(std::size_t slot) {
    return {winnerField.begin + (slot + 1) * LongestName, LongestName};
}

// ---------------------------------------------------------------------------------- writing

// The last `width` digits of a number, with leading zeros.
std::string Digits(int number, std::size_t width) {
    const std::string digits = std::string(width, '0') + std::to_string(number);
    return digits.substr(digits.size() - width);
}

// Converted before it is cut: the file's 9 characters are bytes, and the name's UTF-8 may need more.
std::string NameText(const std::string& name) {
    std::string text = ToWindows1252(name);
    text.resize(LongestName, ' ');
    return text;
}

// The bytes that complete a record after its first `length` bytes. They end with the part of the line
// end that is missing, so that a record cut inside its line end gets a correct one, too.
std::string FillUp(std::size_t length) {
    if (length == 0) return {};
    std::string rest = std::string(dataLength, ' ') + lineEnd;
    return rest.substr(length);
}

// ---------------------------------------------------------------------------------- reading

std::string_view Part(std::string_view record, Field field) {
    if (record.size() <= field.begin) return {};
    return record.substr(field.begin, field.length);
}

std::string NameOf(std::string_view record, Field field) {
    return Trimmed(FromWindows1252(Part(record, field)));
}

// The fields in this order with a mark between them. Empty if a field is incomplete or all are blank, as
// in a record that was filled up with blanks.
std::string JoinedParts(std::string_view record, std::initializer_list<Field> fields, char mark) {
    std::string text;
    bool onlyBlanks = true;
    for (const Field field : fields) {
        const std::string_view part = Part(record, field);
        if (part.size() < field.length) return {};
        if (part.find_first_not_of(' ') != std::string_view::npos) onlyBlanks = false;
        if (!text.empty()) text += mark;
        text += FromWindows1252(part);
    }
    return onlyBlanks ? std::string{} : text;
}

// Skips blanks, since points may be padded with blanks or zeros, and stops at the first other character.
// Three digits at most, so the number fits.
Short NumberIn(std::string_view text) {
    Short number = 0;
    for (const char character : text) {
        if (character == ' ') continue;
        if (character < '0' || character > '9') break;
        number = ToShort(number * 10 + (character - '0'));
    }
    return number;
}

// The joint belongs to the slot of the name that follows it: with slots 1 and 2 filled the text is
// "Ana, Luis", not "Ana y Luis".
std::string LosersText(std::string_view record) {
    constexpr const char* joints[loserSlots] = {"", ", ", " y "};
    std::string text;
    for (std::size_t slot = 0; slot < loserSlots; ++slot) {
        const std::string loser = NameOf(record, LoserField(slot));
        if (loser.empty()) continue;
        if (!text.empty()) text += joints[slot];
        text += loser;
    }
    return text;
}

}  // namespace

// tm counts years from 1900 and months from 0.
std::string HistoryRecordText(const std::tm& when, const GameResult& result, const Settings& settings) {
    Require(result.losers.size() <= loserSlots, "more losers than the history has room for");
    std::string text = Digits(when.tm_year + 1900, yearField.length) +
                       Digits(when.tm_mon + 1, monthField.length) +
                       Digits(when.tm_mday, dayField.length) + Digits(when.tm_hour, hourField.length) +
                       Digits(when.tm_min, minuteField.length);
    text += NameText(settings.PlayerName[result.winner]);
    for (const Colour loser : result.losers) text += NameText(settings.PlayerName[loser]);
    text.resize(pointsField.begin, ' ');
    return text + Digits(result.points, pointsField.length) + lineEnd;
}

// What the records lack is found out from the size of the file, which is right even after an error that
// was reported as late as when the file was closed.
std::string HistoryWriter::BytesFor(std::size_t fileSize) {
    if (begin_ && fileSize >= *begin_ && fileSize - *begin_ <= records_.size())
        return records_.substr(fileSize - *begin_);
    const std::string filling = FillUp(fileSize % HistoryRecordLength);
    begin_ = fileSize + filling.size();
    return filling + records_;
}

FileError HistoryWriter::Write(const std::filesystem::path& folder) {
    if (IsEmpty()) return FileError::None;
    const FileError error = AppendToFile(folder / HistoryFileName,
                                         [this](std::size_t fileSize) { return BytesFor(fileSize); });
    if (error == FileError::None) *this = {};
    return error;
}

std::size_t History::Count() const {
    return (bytes_.size() + HistoryRecordLength - 1) / HistoryRecordLength;
}

std::string_view History::Record(std::size_t index) const {
    Require(index < Count(), "no such record in the history");
    return std::string_view(bytes_).substr(index * HistoryRecordLength, HistoryRecordLength);
}

History ReadHistory(const std::filesystem::path& folder) {
    std::string bytes;
    try {
        if (ReadWholeFile(folder / HistoryFileName, longestFile, bytes) != FileError::None) return {};
    } catch (const std::exception&) {  // not enough memory for the file
        return {};
    }
    return History(std::move(bytes));
}

HistoryEntry DecodeHistoryRecord(std::string_view record) {
    HistoryEntry entry;
    entry.date = JoinedParts(record, {dayField, monthField, yearField}, '-');
    entry.time = JoinedParts(record, {hourField, minuteField}, ':');
    entry.winner = NameOf(record, winnerField);
    entry.points = PointsText(NumberIn(Part(record, pointsField)));
    entry.losers = LosersText(record);
    return entry;
}

}  // namespace zorva
