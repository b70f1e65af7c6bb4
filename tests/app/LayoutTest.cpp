#include "app/Layout.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "core/Board.h"

namespace zorva {

void PrintTo(const Point& p, std::ostream* out) {
    *out << p.x << ',' << p.y;
}

void PrintTo(const Box& b, std::ostream* out) {
    *out << b.x << ',' << b.y << ' ' << b.width << 'x' << b.height;
}

namespace test {
namespace {

struct Screen {
    int width, height;
};

/// Widely used screens, from the smallest to the largest.
constexpr Screen screens[] = {
    {640, 480},   {799, 600},   {800, 600},   {801, 600},   {1024, 600},  {1024, 768},  {1152, 864},
    {1280, 720},  {1280, 768},  {1280, 800},  {1280, 960},  {1366, 768},  {1280, 1024}, {1440, 900},
    {1600, 1200}, {1680, 1050}, {1920, 1080}, {1920, 1200}, {2560, 1080}, {2560, 1440}, {3440, 1440},
    {3840, 2160}, {5120, 1440}, {7680, 4320}, {1080, 1920}, {1200, 1920}, {768, 1024},  {1024, 1024},
    {600, 800},   {640, 512},   {720, 576},   {720, 1280},
};

// ------------------------------------------------------------------------- numbers of the screen

struct SizeRow {
    Screen screen;
    double unit;
    Short width, height, sizeClass, cell, block, margin, extent, recorder, log, logHeight;
    int top = 0;  // device pixels above the part of the screen that is used
};

constexpr SizeRow sizes[] = {
    {{640, 480}, 1, 640, 480, 1, 21, 49, 19, 479, 534, 484, 180},
    {{799, 600}, 1, 799, 600, 1, 21, 49, 79, 599, 674, 624, 180},
    {{800, 600}, 1, 800, 600, 2, 27, 63, 16, 599, 674, 624, 300},
    {{801, 600}, 0.78125, 1025, 768, 3, 33, 77, 37, 767, 871, 821, 460},
    {{1024, 768}, 1, 1024, 768, 3, 33, 77, 37, 767, 870, 820, 460},
    {{1280, 1024}, 1.25, 1024, 819, 3, 33, 77, 63, 819, 896, 846, 460},
    {{1920, 1080}, 1.40625, 1365, 768, 3, 33, 77, 37, 767, 1041, 991, 460},
    {{3440, 1440}, 1.875, 1835, 768, 3, 33, 77, 37, 767, 1276, 1226, 460},
    {{1080, 1920}, 1.0546875, 1024, 819, 3, 33, 77, 63, 819, 896, 846, 460, 528},
    {{768, 1024}, 1, 768, 614, 1, 21, 49, 86, 613, 666, 616, 180, 205},
};

TEST(Layout, FollowsTheScreen) {
    for (const SizeRow& row : sizes) {
        SCOPED_TRACE(std::to_string(row.screen.width) + "x" + std::to_string(row.screen.height));
        const Layout layout = LayoutFor(row.screen.width, row.screen.height);
        EXPECT_DOUBLE_EQ(layout.Unit, row.unit);
        EXPECT_EQ(layout.ScreenWidth, row.width);
        EXPECT_EQ(layout.ScreenHeight, row.height);
        EXPECT_EQ(layout.SizeClass, row.sizeClass);
        EXPECT_EQ(layout.Cell, row.cell);
        EXPECT_EQ(layout.Block, row.block);
        EXPECT_EQ(layout.Margin, row.margin);
        EXPECT_EQ(layout.BoardExtent, row.extent);
        EXPECT_EQ(layout.PieceSize, row.cell - 5);
        EXPECT_EQ(layout.BoxSide, 3 * row.block);
        EXPECT_EQ(layout.Recorder, (Box{row.recorder, 220, 50, 75}));
        EXPECT_EQ(layout.Log, (Box{row.log, 304, 150, row.logHeight}));
        EXPECT_EQ(layout.DeviceTop, row.top);
        EXPECT_EQ(layout.DeviceLeft, 0);
    }
}

// ------------------------------------------------------------------------------- where pieces stand

struct PlaceRow {
    Square square;
    Short slot;
    Point small, middle, large;  // on screens of 640x480, 800x600 and 1024x768
};

constexpr PlaceRow places[] = {
    // Round the ring, with both squares at each cut corner and the ends of the arms.
    {1, 1, {288, 449}, {362, 569}, {460, 713}},
    {8, 1, {288, 302}, {362, 380}, {460, 482}},
    {9, 1, {302, 288}, {380, 362}, {482, 460}},
    {16, 1, {449, 288}, {569, 362}, {713, 460}},
    {17, 1, {449, 239}, {569, 299}, {713, 383}},
    {18, 1, {449, 190}, {569, 236}, {713, 306}},
    {25, 1, {302, 190}, {380, 236}, {482, 306}},
    {26, 1, {288, 176}, {362, 218}, {460, 284}},
    {33, 1, {288, 29}, {362, 29}, {460, 53}},
    {34, 1, {239, 29}, {299, 29}, {383, 53}},
    {35, 1, {190, 29}, {236, 29}, {306, 53}},
    {42, 1, {190, 176}, {236, 218}, {306, 284}},
    {43, 1, {176, 190}, {218, 236}, {284, 306}},
    {50, 1, {29, 190}, {29, 236}, {53, 306}},
    {51, 1, {29, 239}, {29, 299}, {53, 383}},
    {52, 1, {29, 288}, {29, 362}, {53, 460}},
    {59, 1, {176, 288}, {218, 362}, {284, 460}},
    {60, 1, {190, 302}, {236, 380}, {306, 482}},
    {67, 1, {190, 449}, {236, 569}, {306, 713}},
    {68, 1, {239, 449}, {299, 569}, {383, 713}},
    // The home columns.
    {69, 1, {240, 428}, {300, 542}, {384, 680}},
    {75, 1, {240, 302}, {300, 380}, {384, 482}},
    {77, 1, {428, 240}, {542, 300}, {680, 384}},
    {83, 1, {302, 240}, {380, 300}, {482, 384}},
    {85, 1, {240, 50}, {300, 56}, {384, 86}},
    {91, 1, {240, 176}, {300, 218}, {384, 284}},
    {93, 1, {50, 240}, {56, 300}, {86, 384}},
    {99, 1, {176, 240}, {218, 300}, {284, 384}},
    // The goals: three side by side across the arm, the fourth nearer to the middle.
    {76, 1, {240, 281}, {300, 353}, {384, 449}},
    {76, 2, {259, 281}, {325, 353}, {414, 449}},
    {76, 3, {220, 281}, {274, 353}, {353, 449}},
    {76, 4, {240, 261}, {300, 328}, {384, 418}},
    {84, 1, {281, 240}, {353, 300}, {449, 384}},
    {84, 2, {281, 259}, {353, 325}, {449, 414}},
    {84, 3, {281, 220}, {353, 274}, {449, 353}},
    {84, 4, {261, 240}, {328, 300}, {418, 384}},
    {92, 1, {240, 197}, {300, 245}, {384, 317}},
    {92, 2, {259, 197}, {325, 245}, {414, 317}},
    {92, 3, {220, 197}, {274, 245}, {353, 317}},
    {92, 4, {240, 217}, {300, 270}, {384, 348}},
    {100, 1, {197, 240}, {245, 300}, {317, 384}},
    {100, 2, {197, 259}, {245, 325}, {317, 414}},
    {100, 3, {197, 220}, {245, 274}, {317, 353}},
    {100, 4, {217, 240}, {270, 300}, {348, 384}},
};

TEST(Layout, PutsEachPieceOnItsSquare) {
    const Layout small = LayoutFor(640, 480);
    const Layout middle = LayoutFor(800, 600);
    const Layout large = LayoutFor(1024, 768);
    for (const PlaceRow& row : places) {
        SCOPED_TRACE("square " + std::to_string(row.square) + " slot " + std::to_string(row.slot));
        EXPECT_EQ(small.SlotPosition(row.square, row.slot), row.small);
        EXPECT_EQ(middle.SlotPosition(row.square, row.slot), row.middle);
        EXPECT_EQ(large.SlotPosition(row.square, row.slot), row.large);
        if (row.slot > 1) continue;
        EXPECT_EQ(large.SquarePosition(row.square), row.large);
    }
}

// Between the squares of the table above the ways run straight, a cell a step.
TEST(Layout, WalksInStraightLinesOfWholeCells) {
    const Layout layout = LayoutFor(1024, 768);
    for (Square square = 1; square < LastSquare; ++square) {
        const bool turns = square <= 68 && (square % 17 == 8 || square % 17 == 0 || square % 17 == 16);
        const bool ends = square >= 68 && (square - 68) % 8 >= 7;
        if (turns || ends || square == 68 || (square - 68) % 8 == 0) continue;
        const Point from = layout.SquarePosition(square);
        const Point to = layout.SquarePosition(static_cast<Square>(square + 1));
        EXPECT_EQ(std::abs(from.x - to.x) + std::abs(from.y - to.y), 33) << "after square " << square;
        EXPECT_TRUE(from.x == to.x || from.y == to.y) << "after square " << square;
    }
}

TEST(Layout, KeepsPiecesApartAndOnTheBoard) {
    for (const Screen& screen : screens) {
        SCOPED_TRACE(std::to_string(screen.width) + "x" + std::to_string(screen.height));
        const Layout layout = LayoutFor(screen.width, screen.height);
        const int end = layout.Margin + 21 * layout.Cell;
        for (Square square = 1; square <= LastSquare; ++square) {
            for (Short slot = 1; slot <= 3; ++slot) {
                const Point at = layout.SlotPosition(square, slot);
                EXPECT_GE(std::min(at.x, at.y), layout.Margin + layout.PieceSize / 2) << square;
                EXPECT_LE(std::max(at.x, at.y), end - layout.PieceSize / 2) << square;
                const Point next = layout.SlotPosition(square, static_cast<Short>(slot % 3 + 1));
                const int apart = std::abs(at.x - next.x) + std::abs(at.y - next.y);
                EXPECT_GE(apart, layout.PieceSize / 2) << "pieces hide each other on " << square;
            }
        }
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            const Box house = layout.House(colour);
            for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
                const Point at = layout.BoxPosition(colour, piece);
                EXPECT_EQ(at.x, house.x + layout.Cell);
                EXPECT_TRUE(house.Contains({at.x, ToShort(at.y - layout.PieceSize / 2)}));
                EXPECT_TRUE(house.Contains({at.x, ToShort(at.y + layout.PieceSize / 2)}));
                if (piece > 1) {
                    const Point above = layout.BoxPosition(colour, static_cast<Short>(piece - 1));
                    EXPECT_EQ(at.y - above.y, layout.PieceSize + 4);
                }
            }
        }
    }
}

// -------------------------------------------------------------------- the space right of the board

bool Overlap(const Box& one, const Box& other) {
    return one.x < other.x + other.width && other.x < one.x + one.width &&
           one.y < other.y + other.height && other.y < one.y + one.height;
}

TEST(Layout, HasRoomForEverythingAtTheRight) {
    for (const Screen& screen : screens) {
        SCOPED_TRACE(std::to_string(screen.width) + "x" + std::to_string(screen.height));
        const Layout layout = LayoutFor(screen.width, screen.height);
        std::vector<Box> boxes(layout.Button.begin(), layout.Button.end());
        boxes.push_back(layout.Recorder);
        boxes.push_back(layout.LogPaper);
        for (std::size_t one = 0; one < boxes.size(); ++one) {
            const Box& box = boxes[one];
            EXPECT_GE(box.x, layout.BoardExtent) << "box " << one;
            EXPECT_LE(box.x + box.width, layout.ScreenWidth) << "box " << one;
            EXPECT_GE(box.y, 0) << "box " << one;
            EXPECT_LE(box.y + box.height, layout.ScreenHeight) << "box " << one;
            EXPECT_GE(std::min(box.width, box.height), 28) << "box " << one;
            for (std::size_t other = 0; other < one; ++other) EXPECT_FALSE(Overlap(box, boxes[other]));
        }
        for (const Box& button : layout.Button) {
            EXPECT_GE(button.x, layout.Buttons.x);
            EXPECT_LE(button.x + button.width, layout.Buttons.x + layout.Buttons.width);
            EXPECT_LE(button.y + button.height, layout.Buttons.y + layout.Buttons.height);
        }
    }
}

// Below the smallest screens nothing is guaranteed to be seen, but a window may well be that small for
// a moment, or as wide as a row of screens.
TEST(Layout, SurvivesAnySize) {
    constexpr int lengths[] = {0, 1, 2, 50, 303, 480, 801, 4000, 32768, 100'000};
    for (const int width : lengths) {
        for (const int height : lengths) {
            const Layout layout = LayoutFor(width, height);
            EXPECT_GT(layout.Unit, 0) << width << 'x' << height;
            EXPECT_GE(layout.DeviceTop, 0) << width << 'x' << height;
            layout.SlotPosition(34, 3);
            layout.BoxPosition(1, 4);
            layout.DieBox(1);
        }
    }
}

}  // namespace
}  // namespace test
}  // namespace zorva
