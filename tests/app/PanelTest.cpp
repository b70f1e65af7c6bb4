#include "app/PanelPainter.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "app/Artwork.h"
#include "app/Layout.h"

namespace zorva::test {
namespace {

QRect OnDevice(const Layout& layout, const Box& box) {
    return QRectF(layout.DeviceLeft + box.x * layout.Unit, layout.DeviceTop + box.y * layout.Unit,
                  box.width * layout.Unit, box.height * layout.Unit)
        .toAlignedRect();
}

bool IsPainted(const QImage& picture, QPoint at) {
    return picture.pixelColor(at) != QColor(Qt::magenta);
}

TEST(Panel, LiesUnderTheInstrumentsAndNotOnTheBoard) {
    Artwork artwork;
    for (const QSize screen : {QSize(640, 480), QSize(800, 600), QSize(1024, 768), QSize(1280, 1024),
                               QSize(2560, 1080), QSize(1080, 1920), QSize(600, 800)}) {
        SCOPED_TRACE(std::to_string(screen.width()) + "x" + std::to_string(screen.height()));
        const Layout layout = LayoutFor(screen.width(), screen.height());
        QImage picture(screen, QImage::Format_RGB32);
        picture.fill(Qt::magenta);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        PaintInstrumentPanel(painter, artwork, layout);
        painter.end();
        const int squares = layout.Margin + 21 * layout.Cell;
        for (int y = 0; y < screen.height(); ++y) {
            ASSERT_FALSE(IsPainted(picture, {qRound(squares * layout.Unit), y}))
                << "on the board at " << y;
        }
        for (const Box& box : {layout.Button[0], layout.Button[5], layout.Recorder}) {
            const QRect place = OnDevice(layout, box) & picture.rect();
            EXPECT_TRUE(IsPainted(picture, place.center())) << place.x();
        }
        const QRect paper = OnDevice(layout, layout.LogPaper);
        EXPECT_TRUE(IsPainted(picture, {paper.center().x(), paper.top() - qRound(2 * layout.Unit)}))
            << "nothing that the paper comes out of";
    }
}

}  // namespace
}  // namespace zorva::test
