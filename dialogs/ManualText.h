#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>
#include <filesystem>
#include <optional>

namespace zorva {

/// The text of the player's manual: HTML written as well-formed XML, in UTF-8, made of headings,
/// paragraphs, lists, tables, links to its own anchors and the program's own pictures. Anything else is
/// no manual: whatever lies under the manual's name, it neither reaches out of the program nor keeps the
/// toolkit busy.
std::optional<QString> ManualText(const QByteArray& bytes);

/// Whether that may name a picture of the manual: small letters, digits and hyphens, then ".png".
bool IsPictureName(QStringView name);

/// The manual in a file; nothing when it cannot be read, is longer than any manual or is no manual.
std::optional<QString> ReadManual(const std::filesystem::path& file);

}  // namespace zorva
