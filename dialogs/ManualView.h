#pragma once

#include <QTextBrowser>

#include "app/Services.h"

namespace zorva {

/// The page on which the manual is read. The arrows, Page Up, Page Down, Home and End scroll it, Tab
/// goes through the links in sight, Enter and a click follow one. Its pictures are those built into the
/// program; nothing is ever loaded from outside.
class ManualView : public QTextBrowser {
public:
    ManualView(QWidget* parent, const Services& services, const QString& html);

    /// Brings the place of that name to the top.
    void GoTo(const QString& anchor);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    bool focusNextPrevChild(bool next) override;

private:
    void DressUp();
    void DressTables();
    void StartInSight(bool forwards);
    void DropMark();

    const Services& services_;
};

}  // namespace zorva
