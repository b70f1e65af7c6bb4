#pragma once

#include <QAccessible>
#include <QTextBrowser>
#include <filesystem>
#include <optional>

#include "app/Services.h"

namespace zorva {

/// The HTML of the manual in that file. Nothing when the file cannot be read, is longer than 64 KiB (our
/// manual has some 40), is not in UTF-8, lacks its beginning or its end, or has another title than our
/// manual: it is damaged, or another file has the manual's name. Only a plain file is opened, because
/// reading a pipe could wait for ever.
std::optional<QString> ReadManual(const std::filesystem::path& file);

/// Txt_Manual: the page on which the player reads the manual. The arrows, Page Up, Page Down, Home and
/// End scroll it, Tab goes through the links in sight, Enter and a click follow one. Sizes in its style
/// are layout pixels.
///
/// While a screen reader listens, those keys move a caret, because a reader speaks the line that the
/// caret comes to. Links are said when Tab reaches them, and headings when a link has led to them.
class ManualView : public QTextBrowser, private QAccessible::ActivationObserver {
public:
    /// `html` is the manual. The services must outlive the page.
    ManualView(QWidget* parent, const Services& services, const QString& html);
    ManualView(const ManualView&) = delete;
    ManualView& operator=(const ManualView&) = delete;
    ~ManualView() override;

protected:
    /// The images of the manual are those built into the program. Everything else that HTML can name
    /// (files, addresses, style sheets) is an empty image.
    QVariant loadResource(int type, const QUrl& name) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void DressUp();
    void DressTables();
    void LightLinkUnderMouse(const QUrl& url);
    void ReadOn(bool forwards);
    void GoTo(const QString& anchor);
    QTextBlock HeadingAt(const QString& anchor) const;
    void StartInSight(bool forwards);
    void accessibilityActiveChanged(bool active) override;

    const Services& services_;
};

}  // namespace zorva
