#include "app/Background.h"

#include <gtest/gtest.h>

#include <tuple>

#include "app/Layout.h"
#include "app/Palette.h"

namespace zorva::test {
namespace {

QImage Taken(Background& background, QSize screen) {
    return background.Take(LayoutFor(screen.width(), screen.height()), screen).toImage();
}

// Of the table only what neither the board nor the panel hides is painted; a gap would show the colour
// below all wood.
TEST(Background, HasNoGapsOnAnyShapeOfScreen) {
    for (const QSize screen :
         {QSize(640, 480), QSize(800, 600), QSize(1366, 768), QSize(600, 1000), QSize(1200, 400)}) {
        Background background;
        const QImage image = Taken(background, screen);
        ASSERT_EQ(image.size(), screen);
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
        {"the table", 10, 384, {0x48, 0x2e, 0x1e}},
        {"the shadow right of the board", 745, 400, {0x1a, 0x0e, 0x08}},
        {"the frame", 31, 300, {0x74, 0x41, 0x27}},
        {"the red house, two pixels from its edge", 39, 100, {0xb4, 0x22, 0x18}},
        {"the upper edge of the recorder's case", 895, 208, {0xb1, 0x76, 0x4d}},
        {"a reel", 830, 250, {0xd6, 0xb0, 0x62}},
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

}  // namespace
}  // namespace zorva::test
