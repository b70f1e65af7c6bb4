#pragma once

#include <QTextBrowser>
#include <filesystem>
#include <optional>

#include "app/Services.h"

namespace zorva {

/// The HTML of the manual in that file. Nothing when the file cannot be read, is longer than 64 KiB
/// (twice our manual), is not in UTF-8, lacks its beginning or its end, or has another title than our
/// manual: it is damaged, or another file has the manual's name. Only a plain file is opened, because
/// reading a pipe could wait for ever.
std::optional<QString> ReadManual(const std::filesystem::path& file);

/// Txt_Manual: the page on which the player reads the manual. The arrows, Page Up, Page Down, Home and
/// End scroll it, Tab goes through the links in sight, Enter and a click follow one. Sizes in its style
/// are layout pixels.
class ManualView : public QTextBrowser {
public:
    /// `html` is the manual. The services must outlive the page.
    ManualView(QWidget* parent, const Services& services, const QString& html);

protected:
    /// The images of the manual are those built into the program. Everything else that HTML can name
    /// (files, addresses, style sheets) is an empty image.
    QVariant loadResource(int type, const QUrl& name) override;
    bool focusNextPrevChild(bool next) override;

private:
    void DressUp();
    void DressTables();
    void GoTo(const QString& anchor);
    void StartInSight(bool forwards);
    void DropMark();

    const Services& services_;
};

}  // namespace zorva
