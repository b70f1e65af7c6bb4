#pragma once

#include <string_view>

#include "core/Types.h"
#include "store/FileError.h"

namespace zorva {

/// Takes a text apart, line by line and field by field: numbers in decimal and texts in double
/// quotes, separated by commas. The first mistake is kept; from then on every line is empty and
/// every number is the lowest allowed, so that a caller may ask for the error once, at the end.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes) : rest_(bytes) {}

    /// Goes to the next line. The line before must have been read to its end.
    void NextLine();
    /// The next field as a number from `lowest` to `highest`.
    Short Number(Short lowest, Short highest);
    /// The next field as a text, without its quotes.
    std::string_view Text();
    /// Says that the text ends here: a further line is a mistake.
    void End();

    /// The next cell of a text, `width` characters with the number at their right end.
    Short Cell(std::string_view& cells, std::size_t width, Short lowest, Short highest);

    /// Reports a mistake seen by the caller.
    void Refuse(FileError error);
    FileError Error() const { return error_; }

private:
    /// The next field as it stands, quotes and all.
    std::string_view Field();
    void EndLine();
    /// The error for something missing: the text was cut off, or the line is another one.
    FileError Missing() const { return rest_.empty() ? FileError::PastTheEnd : FileError::TypeMismatch; }

    std::string_view rest_;
    std::string_view line_;
    bool lineHasMore_ = false;
    FileError error_ = FileError::None;
};

}  // namespace zorva
