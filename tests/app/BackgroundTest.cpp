#include "app/Background.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <tuple>
#include <utility>
#include <vector>

#include "app/Artwork.h"
#include "app/Layout.h"
#include "app/Palette.h"
#include "app/PiecePlaces.h"
#include "core/Board.h"

namespace zorva::test {
namespace {

QImage Taken(Background& background, QSize screen) {
    return background.Take(LayoutFor(screen.width(), screen.height()), screen).toImage();
}

// The lamp's pool is round the board. Of the table only what neither the board nor the panel hides is
// painted; a gap would show the colour below all wood.
TEST(Background, IsLitAndHasNoGapsOnAnyShapeOfScreen) {
    for (const QSize screen :
         {QSize(640, 480), QSize(800, 600), QSize(1366, 768), QSize(600, 1000), QSize(1200, 400)}) {
        Background background;
        const QImage image = Taken(background, screen);
        ASSERT_EQ(image.size(), screen);
        EXPECT_LT(image.pixelColor(image.width() - 3, image.height() - 3).value(),
                  0.55 * image.pixelColor(2, 2).value())
            << screen.width();
        const auto isBare = [&](int x, int y) { return image.pixel(x, y) == palette::DarkWood.rgb(); };
        for (int y = 1; y < image.height(); ++y) {
            for (int x = 1; x < image.width(); ++x) {
                ASSERT_FALSE(isBare(x, y) && isBare(x - 1, y) && isBare(x, y - 1))
                    << x << "," << y << " of " << screen.width() << "x" << screen.height();
            }
        }
    }
}

TEST(Background, HasItsPartsAtTheirPlaces) {
    const std::tuple<const char*, int, int, QColor> rows[] = {
        {"the table", 10, 384, {0x80, 0x4e, 0x26}},
        {"the pad under the lamp", 800, 190, {0x32, 0x4a, 0x3b}},
        {"the pad far below the lamp", 800, 740, {0x26, 0x3c, 0x1d}},
        {"the shadow right of the board", 745, 400, {0x17, 0x0c, 0x06}},
        {"the frame", 31, 300, {0x74, 0x41, 0x27}},
        {"the red house, two pixels from its edge", 39, 100, {0x91, 0x16, 0x16}},
        {"the upper edge of the recorder's case", 895, 208, {0xb1, 0x76, 0x4d}},
        {"a reel", 830, 254, {0xd2, 0xaa, 0x5a}},
    };
    Background background;
    const QImage image = Taken(background, {1024, 768});
    for (const auto& [name, x, y, colour] : rows) {
        const QColor is = image.pixelColor(x, y);
        EXPECT_NEAR(is.red(), colour.red(), 6) << name;
        EXPECT_NEAR(is.blue(), colour.blue(), 6) << name;
    }
}

TEST(Background, IsOfTheSizeThatIsTakenWhateverWasBegun) {
    constexpr QSize begun(800, 600), other(800, 480);
    const Layout layout = LayoutFor(begun.width(), begun.height());
    Background background;
    const QImage plain = Taken(background, begun);
    background.Begin(layout, begun);
    EXPECT_EQ(Taken(background, begun), plain);
    background.Begin(layout, begun);
    EXPECT_EQ(Taken(background, other).size(), other);
    background.Begin(layout, {});
    EXPECT_TRUE(Taken(background, {}).isNull());
    background.Begin(layout, begun);  // and nobody takes it
}

struct Shown {
    Layout layout;
    QImage image;
};

const std::vector<Shown>& OnAllScales() {
    static std::vector<Shown> all;
    if (!all.empty()) return all;
    for (const QSize screen : {QSize(640, 480), QSize(800, 600), QSize(801, 600), QSize(1366, 768),
                               QSize(1920, 1080), QSize(3840, 2160)}) {
        Background background;
        all.push_back({LayoutFor(screen.width(), screen.height()), Taken(background, screen)});
    }
    return all;
}

// Between the home column and the pieces on the squares 60 to 66, and on 9 to 15.
TEST(Background, HasEqualLinesOnWholePixels) {
    for (const auto& [layout, image] : OnAllScales()) {
        const double cell = layout.Cell * layout.Unit;
        const QPointF corner(layout.Margin, layout.Margin);
        for (const bool aside : {false, true}) {
            const QImage arm = aside ? image.transformed(QTransform(0, 1, 1, 0, 0, 0)) : image;
            const QPointF inArm((aside ? 5.15 : 3.85) * layout.Block, 14.3 * layout.Cell);
            const QPoint start = layout.Device(corner + inArm).toPoint();
            std::vector<int> widths;
            int width = 0;
            for (int y = start.y(); y < start.y() + 6.3 * cell; ++y) {
                const QColor pixel = arm.pixelColor(start.x(), y);
                if (pixel == palette::Line) {
                    ++width;
                } else {
                    // The paper is darker away from the lamp.
                    const int paper = std::max(arm.pixelColor(start.x(), y - 6).blue(),
                                               arm.pixelColor(start.x(), y + 6).blue());
                    EXPECT_GT(pixel.blue(), 0.85 * paper) << "a line lies across two pixels at " << y;
                    if (width > 0) widths.push_back(std::exchange(width, 0));
                }
            }
            EXPECT_EQ(widths, std::vector<int>(6, qMax(1, qRound(cell / 33)))) << image.width();
        }
    }
}

int Exact(const QImage& image, const QRect& part, Colour colour) {
    int exact = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            exact += image.pixelColor(x, y) == palette::Player[colour];
        }
    }
    return exact;
}

// The share of a part, given in layout pixels, that has exactly that colour.
double ShareOf(const Shown& shown, Colour colour, QPointF middle, QSizeF size) {
    QRectF area(QPointF(), size * shown.layout.Unit);
    area.moveCenter(shown.layout.Device(middle));
    return Exact(shown.image, area.toRect(), colour) / (area.width() * area.height());
}

TEST(Background, HasTheColoursThemselvesOnHalfOfTheSquaresAndAFifthOfEachPiece) {
    for (const Shown& shown : OnAllScales()) {
        const Layout& layout = shown.layout;
        const QSizeF across(layout.Block, layout.Cell);
        const QPointF middle = QPointF(1, 1) * (layout.Margin + 10.5 * layout.Cell);
        const QSize piece = PieceDrawing(layout, {}).size();
        const double face = M_PI * 13.5 * 11.7 * std::pow(PieceUnit(layout), 2);
        Artwork artwork;
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            std::vector<Square> squares{ExitSquare[colour]};
            for (Short back = 1; back <= 7; ++back)
                squares.push_back(ToShort(GoalSquare[colour] - back));
            for (const Square square : squares) {
                EXPECT_GE(ShareOf(shown, colour, AsPointF(layout.SquarePosition(square)),
                                  colour % 2 == 1 ? across : across.transposed()),
                          0.5)
                    << square << " at " << shown.image.width();
            }
            const QImage drawing = artwork.Pixmap(QString("piece_%1").arg(colour), piece).toImage();
            EXPECT_GE(Exact(drawing, drawing.rect(), colour) / face, 0.2) << colour;
            EXPECT_GE(4 * ShareOf(shown, colour, middle, QSizeF(5, 5) * layout.Cell), 0.5) << colour;
        }
    }
}

// From the left and from the right to the first pixel of a row that is so: twice the middle between
// them.
int TwiceTheMiddle(const QImage& image, const QRect& row, const std::function<bool(QColor)>& isSo) {
    int left = row.left(), right = row.right();
    while (left < right && !isSo(image.pixelColor(left, row.top()))) ++left;
    while (right > left && !isSo(image.pixelColor(right, row.top()))) --right;
    EXPECT_GT(right - left, row.width() / 2);
    return left + right + 1;
}

TEST(Background, HasItsRingsUnderThePieces) {
    Artwork artwork;
    for (const auto& [layout, image] : OnAllScales()) {
        const QSize size = PieceDrawing(layout, {}).size();
        const QImage piece = artwork.Pixmap("piece_3", size).toImage();
        const int body = TwiceTheMiddle(piece, {0, size.height() / 2, size.width(), 1},
                                        [](QColor c) { return c.alpha() > 250; });
        for (const Square square : {12, 29, 46, 63}) {
            const QRect place = PieceDrawing(layout, AsPointF(layout.SquarePosition(ToShort(square))));
            const int beside = qRound(4.3 * PieceUnit(layout));  // there lie lines and figures
            const QRect row(place.left() + beside, place.top() + size.height() / 2,
                            size.width() - 2 * beside, 1);
            const int ring = TwiceTheMiddle(image, row, [](QColor c) { return c.lightness() < 185; });
            EXPECT_NEAR(ring, 2 * place.left() + body, 1) << square << " at " << image.width();
        }
    }
}

}  // namespace
}  // namespace zorva::test
