#pragma once

#include <QPixmap>
#include <vector>

#include "app/Services.h"

class QPainter;

namespace zorva {

/// Pic_Logo: the pieces of the title in one pixmap, which is never shown as a whole. Each piece is
/// copied from it to its place in the window at every step.
class TitleArtwork {
public:
    static constexpr Short Width = 420;  ///< layout pixels
    static constexpr Short Height = 200;

    explicit TitleArtwork(const Services& services);

    /// Draws the pieces with the top edge of the title at `scroll`, in layout pixels from the top edge
    /// of Pic_Careta. The painter counts in logical pixels from its corner.
    void Draw(QPainter& painter, Short scroll, const Services& services) const;

private:
    QPixmap logo_;
};

}  // namespace zorva
