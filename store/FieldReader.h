#pragma once

#include <string_view>

#include "core/Types.h"
#include "store/FileError.h"

namespace zorva {

/// Reads a text line by line and field by field. Fields are decimal numbers or texts in double quotes,
/// separated by commas; a number may have a sign, and blanks and tabs may stand on both sides of a
/// field. A line ends with CR, LF or both; the last one may lack its end. Blank lines count for nothing,
/// nor does Ctrl+Z at the end.
///
/// The reader keeps the first mistake. From then on each call returns at once, with the lowest number
/// allowed or an empty text, so a caller can read everything and ask for the error once, at the end.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes);

    /// Goes to the next line. Refuses the text if fields of the line before are left unread
    /// (TypeMismatch) or if there is no next line (PastTheEnd).
    void NextLine();
    /// Refuses the text if the current line has unread fields (TypeMismatch).
    void EndLine();
    /// Skip passes over that many fields without reading them, SkipLine over the rest of the line.
    void Skip(int fields);
    void SkipLine();
    /// The next field as a number from `lowest` to `highest`. Refuses what is no number (TypeMismatch),
    /// needs more than 16 bits (Overflow) or lies outside (OutOfRange).
    Short Number(Short lowest, Short highest);
    /// The next field as a text, without its quotes. A comma inside the quotes belongs to the text.
    std::string_view Text();
    /// Refuses the text if anything is left: a field (TypeMismatch) or a line (OutOfRange).
    void End();

    /// Takes the first `width` characters off `cells`, a text made of numbers in cells of fixed width,
    /// each right-aligned. Refuses like Number.
    Short Cell(std::string_view& cells, std::size_t width, Short lowest, Short highest);

    /// Refuses the text for a mistake that the caller found. Only the first refusal counts.
    void Refuse(FileError error);
    /// The first mistake, or None.
    FileError Error() const { return error_; }

private:
    /// The next field as it stands in the text, with its quotes but without blanks around it.
    std::string_view Field();
    /// The text as a number within the limits; refuses it as Number says.
    Short NumberIn(std::string_view text, Short lowest, Short highest);
    /// The error for a missing field. In the last line the file was cut off, as by a full disk; in an
    /// earlier line something else was written.
    FileError MissingField() const {
        return rest_.empty() ? FileError::PastTheEnd : FileError::TypeMismatch;
    }

    std::string_view rest_;     // the lines after the current one
    std::string_view line_;     // the unread part of the current line
    bool lineHasMore_ = false;  // an empty line_ may still hold one field, an empty one
    FileError error_ = FileError::None;
};

}  // namespace zorva
