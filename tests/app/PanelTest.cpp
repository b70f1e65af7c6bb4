#include "app/PanelPainter.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "app/Artwork.h"
#include "app/Layout.h"

namespace zorva::test {
namespace {

QImage Painted(const Layout& layout, QSize screen, Qt::GlobalColor below) {
    Artwork artwork;
    QImage image(screen, QImage::Format_RGB32);
    image.fill(below);
    QPainter painter(&image);
    PaintInstrumentPanel(painter, artwork, layout);
    return image;
}

TEST(Panel, LiesUnderTheInstrumentsAndNotOnTheBoard) {
    for (const QSize screen : {QSize(640, 480), QSize(800, 600), QSize(1024, 768), QSize(1280, 1024),
                               QSize(2560, 1080), QSize(1080, 1920), QSize(600, 800)}) {
        SCOPED_TRACE(std::to_string(screen.width()) + "x" + std::to_string(screen.height()));
        const Layout layout = LayoutFor(screen.width(), screen.height());
        const QImage image = Painted(layout, screen, Qt::magenta);
        const auto isPainted = [&](double x, double y) {
            const QPoint at(qRound(layout.DeviceLeft + x * layout.Unit),
                            qRound(layout.DeviceTop + y * layout.Unit));
            return image.pixelColor(at) != QColor(Qt::magenta);
        };
        const int squares = layout.Margin + 21 * layout.Cell;
        for (int y = 0; y < layout.ScreenHeight; ++y) {
            ASSERT_FALSE(isPainted(squares, y)) << "on the board at " << y;
        }
        for (const Box& box : {layout.Button[0], layout.Button[5], layout.Recorder}) {
            EXPECT_TRUE(isPainted(box.x + box.width / 2.0, box.y + box.height / 2.0)) << box.x;
        }
        const Box& paper = layout.LogPaper;
        EXPECT_TRUE(isPainted(paper.x + paper.width / 2.0, paper.y - 2))
            << "nothing that the paper comes out of";
        // The table is not painted where the panel says that it is not seen.
        const QRect hidden = HiddenByPanel(layout) & image.rect();
        EXPECT_GT(hidden.height(), screen.height() / 3);
        EXPECT_EQ(image.copy(hidden), Painted(layout, screen, Qt::green).copy(hidden));
    }
}

}  // namespace
}  // namespace zorva::test
