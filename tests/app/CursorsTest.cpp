#include "app/Cursors.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

#include "app/Artwork.h"

namespace zorva::test {
namespace {

/// The first pixel of the highest row with ink.
QPoint Tip(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y).alpha() > 128) return {x, y};
        }
    }
    return {-1000, -1000};
}

TEST(Cursors, PointWithTheirHotSpots) {
    Artwork artwork;
    Cursors cursors(artwork);
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        cursors.SetScale(scale, 1);
        for (const char* name :
             {"DadoAmar", "DadoVerd", "ManoCeAm", "ManoCeVe", "ManoAbie", "ManoBlan", "ManoIndice"}) {
            SCOPED_TRACE(std::string(name) + " at scale " + std::to_string(scale));
            const QCursor cursor = cursors.Named(name);
            const QImage picture = cursor.pixmap().toImage();
            ASSERT_EQ(picture.width(), qRound(32 * scale));
            const QPoint hot = cursor.hotSpot();
            EXPECT_GT(picture.pixelColor(hot).alpha(), 250) << "points beside its drawing";
            const QPointF wanted = name == std::string("ManoIndice")
                                       ? Tip(picture) + QPointF(1.5, 1) * scale
                                       : QPointF(16, 16) * scale;
            EXPECT_LE((hot - wanted).manhattanLength(), 4 * scale);
        }
    }
}

}  // namespace
}  // namespace zorva::test
