#include "store/FieldReader.h"

#include <algorithm>

namespace zorva {
namespace {

/// Beyond every 16-bit number. A longer row of digits stays at this value, so that it overflows nothing.
constexpr long beyondShort = 100000;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

/// A number, or why the text is none.
struct ParsedNumber {
    long value = 0;
    FileError error = FileError::None;
};

// Digits alone, with a minus sign at most: neither a plus sign, nor a fraction, nor blanks.
ParsedNumber ParseNumber(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative) text.remove_prefix(1);
    if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit)) {
        return {0, FileError::TypeMismatch};
    }
    long value = 0;
    for (const char digit : text) value = std::min(beyondShort, value * 10 + (digit - '0'));
    if (negative) value = -value;
    if (value < INT16_MIN || value > INT16_MAX) return {0, FileError::Overflow};
    return {value, FileError::None};
}

}  // namespace

void FieldReader::Refuse(FileError error) {
    if (error_ != FileError::None) return;
    // With nothing left to read, all calls that follow end quickly and cannot misread what comes next.
    error_ = error;
    rest_ = line_ = {};
    lineHasMore_ = false;
}

void FieldReader::EndLine() {
    if (lineHasMore_) Refuse(FileError::TypeMismatch);
}

void FieldReader::NextLine() {
    EndLine();
    if (rest_.empty()) {
        Refuse(FileError::PastTheEnd);
        return;
    }
    // Both line ends are read: the game writes CR LF, an editor may leave LF.
    const std::size_t end = rest_.find('\n');
    line_ = rest_.substr(0, end);
    rest_ = end == std::string_view::npos ? std::string_view{} : rest_.substr(end + 1);
    if (!line_.empty() && line_.back() == '\r') line_.remove_suffix(1);
    lineHasMore_ = true;
}

// In a field that begins with a quote, the comma that ends it is looked for behind the closing quote.
std::string_view FieldReader::Field() {
    if (!lineHasMore_) {
        Refuse(MissingField());
        return {};
    }
    std::size_t from = 0;
    if (!line_.empty() && line_.front() == '"') {
        from = std::min(line_.find('"', 1), line_.size());
    }
    const std::size_t comma = line_.find(',', from);
    const std::string_view field = line_.substr(0, comma);
    lineHasMore_ = comma != std::string_view::npos;
    line_ = lineHasMore_ ? line_.substr(comma + 1) : std::string_view{};
    return field;
}

Short FieldReader::Number(Short lowest, Short highest) {
    const std::string_view field = Field();
    // A line that ends right after a comma or a minus sign
    // was cut off: the number is missing, not mistyped.
    if (!lineHasMore_ && (field.empty() || field == "-")) Refuse(MissingField());
    return NumberIn(field, lowest, highest);
}

Short FieldReader::Cell(std::string_view& cells, std::size_t width, Short lowest, Short highest) {
    if (cells.size() < width) Refuse(FileError::TypeMismatch);
    const std::string_view cell = cells.substr(0, width);
    cells.remove_prefix(cell.size());
    return NumberIn(cell, lowest, highest);
}

Short FieldReader::NumberIn(std::string_view text, Short lowest, Short highest) {
    if (error_ != FileError::None) return lowest;
    const ParsedNumber number = ParseNumber(WithoutLeadingBlanks(text));
    if (number.error != FileError::None) {
        Refuse(number.error);
    } else if (number.value < lowest || number.value > highest) {
        Refuse(FileError::OutOfRange);
    } else {
        return ToShort(number.value);
    }
    return lowest;
}

std::string_view FieldReader::Text() {
    const std::string_view field = Field();
    if (error_ != FileError::None) return {};
    // Four cases: no text at all, a text cut off before its
    // closing quote, a quote inside it, a good one.
    if (field.empty() || field.front() != '"') {
        Refuse(field.empty() && !lineHasMore_ ? MissingField() : FileError::TypeMismatch);
    } else if (field.size() == 1 || field.find('"', 1) == std::string_view::npos) {
        Refuse(MissingField());
    } else if (field.find('"', 1) != field.size() - 1) {
        Refuse(FileError::TypeMismatch);
    } else {
        return field.substr(1, field.size() - 2);
    }
    return {};
}

void FieldReader::End() {
    EndLine();
    if (!rest_.empty()) Refuse(FileError::OutOfRange);
}

}  // namespace zorva
