#include "store/FieldReader.h"

#include <algorithm>

namespace zorva {
namespace {

/// Beyond every 16-bit number. A longer row of digits stays at this value, so that it overflows nothing.
constexpr long beyondShort = 100000;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

constexpr const char* blanks = " \t";
constexpr const char* lineEnds = "\r\n";
constexpr const char* blankLines = " \t\r\n";
constexpr const char* endOfText = " \t\r\n\x1A";  // old editors end a text with Ctrl+Z

std::string_view WithoutLeading(const char* characters, std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(characters), text.size()));
}

std::string_view WithoutTrailing(const char* characters, std::string_view text) {
    return text.substr(0, text.find_last_not_of(characters) + 1);
}

std::string_view WithoutBlanks(std::string_view text) {
    return WithoutTrailing(blanks, WithoutLeading(blanks, text));
}

/// A number, or why the text is none.
struct ParsedNumber {
    long value = 0;
    FileError error = FileError::None;
};

// Digits with a sign at most: neither a fraction nor blanks.
ParsedNumber ParseNumber(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
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

FieldReader::FieldReader(std::string_view bytes) : rest_(WithoutTrailing(endOfText, bytes)) {}

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
    rest_ = WithoutLeading(blankLines, rest_);
    if (rest_.empty()) {
        Refuse(FileError::PastTheEnd);
        return;
    }
    const std::size_t end = std::min(rest_.find_first_of(lineEnds), rest_.size());
    line_ = rest_.substr(0, end);
    rest_ = rest_.substr(end);
    lineHasMore_ = true;
}

// In a field that begins with a quote, the comma that ends it is looked for behind the closing quote.
std::string_view FieldReader::Field() {
    if (!lineHasMore_) {
        Refuse(MissingField());
        return {};
    }
    line_ = WithoutLeading(blanks, line_);
    const std::size_t from = line_.starts_with('"') ? std::min(line_.find('"', 1), line_.size()) : 0;
    const std::size_t comma = line_.find(',', from);
    const std::string_view field = WithoutTrailing(blanks, line_.substr(0, comma));
    lineHasMore_ = comma != std::string_view::npos;
    line_ = lineHasMore_ ? line_.substr(comma + 1) : std::string_view{};
    return field;
}

Short FieldReader::Number(Short lowest, Short highest) {
    const std::string_view field = Field();
    // A line that ends right after a comma or a minus sign
    // was cut off: the number is missing, not mistyped.
    if (!lineHasMore_ && (field.empty() || field == "-" || field == "+")) Refuse(MissingField());
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
    const ParsedNumber number = ParseNumber(WithoutBlanks(text));
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

void FieldReader::Skip(int fields) {
    for (; fields > 0; --fields) Field();
}

void FieldReader::SkipLine() {
    lineHasMore_ = false;
}

void FieldReader::End() {
    EndLine();
    if (!rest_.empty()) Refuse(FileError::OutOfRange);
}

}  // namespace zorva
