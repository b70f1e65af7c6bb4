#pragma once

#include <QPixmap>
#include <vector>

#include "app/Services.h"

class QPainter;

namespace zorva {

/// Pic_Logo: the title's pieces in one picture that is never shown as it is.
class TitleArtwork {
public:
    static constexpr Short Width = 420;
    static constexpr Short Height = 200;

    explicit TitleArtwork(const Services& services);

    /// Copies every piece to its own place across; `scroll` is where the title's top edge is. The
    /// painter counts in pixels of Qt, from the corner of the title's window.
    void Draw(QPainter& painter, Short scroll, const Services& services) const;

private:
    QPixmap logo_;
};

}  // namespace zorva
