#include "app/Layout.h"

#include <gtest/gtest.h>

#include <QRegion>
#include <ostream>
#include <vector>

#include "core/Board.h"

namespace zorva {

void PrintTo(const Point& p, std::ostream* out) {
    *out << p.x << ',' << p.y;
}

namespace test {
namespace {

/// Widely used screens, from the smallest to the largest.
constexpr QSize screens[] = {
    {640, 480},   {799, 600},   {800, 600},   {801, 600},   {1024, 600},  {1024, 768},  {1280, 720},
    {1280, 1024}, {1366, 768},  {1920, 1080}, {2560, 1080}, {5120, 1440}, {7680, 4320}, {1080, 1920},
    {768, 1024},  {1024, 1024}, {600, 800},   {640, 512},   {720, 1280},  {1280, 800},  {1440, 900},
    {1680, 1050}, {1600, 900},  {2160, 1440}, {1440, 3440}, {1200, 1920}, {1536, 2048}, {1024, 1280},
    {3840, 2160}, {1152, 864},  {2600, 1000}};

struct SizeRow {
    QSize screen;
    double unit;
    std::vector<int> lengths;  // in the order in which they are compared below
    int top = 0;               // device pixels above the part of the screen that is used
};

const SizeRow sizes[] = {
    {{640, 480}, 1, {640, 480, 1, 21, 49, 19, 479, 534, 484, 180, 41}},
    {{799, 600}, 1, {799, 600, 1, 21, 49, 79, 599, 674, 624, 180, 54}},
    {{800, 600}, 1, {800, 600, 2, 27, 63, 16, 599, 674, 624, 300, 55}},
    {{801, 600}, 0.78125, {1025, 768, 3, 33, 77, 37, 767, 871, 821, 460, 56}},
    {{1024, 768}, 1, {1024, 768, 3, 33, 77, 37, 767, 870, 820, 460, 56}},
    {{3440, 1440}, 1.875, {1835, 768, 3, 33, 77, 37, 767, 1276, 1226, 460, 64}},
    {{1080, 1920}, 1.0546875, {1024, 819, 3, 33, 77, 63, 819, 896, 846, 460, 53}, 528},
    {{768, 1024}, 1, {768, 614, 1, 21, 49, 86, 613, 666, 616, 180, 39}, 205},
};

TEST(Layout, FollowsTheScreen) {
    for (const SizeRow& row : sizes) {
        SCOPED_TRACE(testing::Message() << row.screen.width() << 'x' << row.screen.height());
        const Layout layout = LayoutFor(row.screen.width(), row.screen.height());
        EXPECT_DOUBLE_EQ(layout.Unit, row.unit);
        const std::vector<int> lengths{layout.ScreenWidth, layout.ScreenHeight,   layout.SizeClass,
                                       layout.Cell,        layout.Block,          layout.Margin,
                                       layout.BoardExtent, layout.Recorder.x,     layout.Log.x,
                                       layout.Log.height,  layout.Button[0].width};
        EXPECT_EQ(lengths, row.lengths);
        EXPECT_EQ(layout.Recorder, (Box{layout.Recorder.x, 220, 50, 75}));
        EXPECT_EQ(layout.Log, (Box{layout.Log.x, 304, 150, layout.Log.height}));
        EXPECT_EQ(layout.DeviceTop, row.top);
        EXPECT_EQ(layout.DeviceLeft, 0);
    }
}

struct PlaceRow {
    Square square;
    Short slot;
    Point small, middle, large;  // on screens of 640x480, 800x600 and 1024x768
};

constexpr PlaceRow places[] = {
    // A cut corner.
    {8, 1, {288, 302}, {362, 380}, {460, 482}},
    {68, 1, {239, 449}, {299, 569}, {383, 713}},
    // Beside the first, two thirds of a cell away: on the lower, right, upper and left arm.
    {1, 2, {274, 449}, {344, 569}, {438, 713}},
    {17, 2, {449, 253}, {569, 317}, {713, 405}},
    {34, 2, {253, 29}, {317, 29}, {405, 53}},
    {51, 2, {29, 253}, {29, 317}, {53, 405}},
    // The home columns.
    {99, 1, {176, 240}, {218, 300}, {284, 384}},
    // The goals: three side by side across the arm, the fourth nearer to the middle.
    {76, 1, {240, 281}, {300, 353}, {384, 449}},
    {76, 2, {259, 281}, {325, 353}, {414, 449}},
    {76, 3, {220, 281}, {274, 353}, {353, 449}},
    {76, 4, {240, 261}, {300, 328}, {384, 418}},
    {84, 4, {261, 240}, {328, 300}, {418, 384}},
    {92, 4, {240, 217}, {300, 270}, {384, 348}},
    {100, 4, {217, 240}, {270, 300}, {348, 384}},
};

TEST(Layout, PutsEachPieceOnItsSquare) {
    const Layout small = LayoutFor(640, 480);
    const Layout middle = LayoutFor(800, 600);
    const Layout large = LayoutFor(1024, 768);
    EXPECT_EQ(large.BoxPosition(1, 1), (Point{532, 566}));
    EXPECT_EQ(large.BoxPosition(3, 4), (Point{70, 200}));
    for (const PlaceRow& row : places) {
        SCOPED_TRACE("square " + std::to_string(row.square) + " slot " + std::to_string(row.slot));
        EXPECT_EQ(small.SlotPosition(row.square, row.slot), row.small);
        EXPECT_EQ(middle.SlotPosition(row.square, row.slot), row.middle);
        EXPECT_EQ(large.SlotPosition(row.square, row.slot), row.large);
    }
}

TEST(Layout, HasRoomForEverythingBesideTheBoard) {
    int withCards = 0, withKeys = 0;
    for (const QSize screen : screens) {
        SCOPED_TRACE(testing::Message() << screen.width() << 'x' << screen.height());
        const Layout layout = LayoutFor(screen.width(), screen.height());
        const int above = static_cast<int>(layout.DeviceTop / layout.Unit), edge = layout.Cell / 2;
        const QRect table(0, -above, layout.ScreenWidth, layout.ScreenHeight + 2 * above);
        QRegion taken(QRect(layout.Margin, layout.Margin, 21 * layout.Cell, 21 * layout.Cell)
                          .adjusted(-edge, -edge, edge, edge));
        std::vector<Box> boxes(layout.Button.begin(), layout.Button.end());
        boxes.insert(boxes.end(), {layout.Recorder, layout.LogPaper, layout.Line, layout.Chances});
        if (layout.HasCards()) boxes.insert(boxes.end(), layout.Card.begin(), layout.Card.end());
        withCards += layout.HasCards() ? 1 : 0;
        const QRect band(layout.BandLeft, 0, layout.BandWidth, layout.ScreenHeight);
        for (const Box& card : layout.Card)
            EXPECT_FALSE(band.intersects(QRect(card.x, card.y, card.width, card.height))) << card.x;
        const auto rectOf = [](const Box& box) { return QRect(box.x, box.y, box.width, box.height); };
        const bool hasKeys = layout.Cup.width > 0;
        if (hasKeys) boxes.push_back(layout.Cup);
        for (const Box& reel : {layout.Reel, layout.LargeKey[0]}) {
            EXPECT_TRUE(rectOf(layout.Case).contains(rectOf(reel)));
            boxes.push_back(reel);
        }
        EXPECT_TRUE(band.contains(rectOf(layout.Case)));
        for (std::size_t key = 1; hasKeys && key < layout.LargeKey.size(); ++key) {
            EXPECT_GE(layout.LargeKey[key].width * layout.Unit, 44);
            boxes.push_back(layout.LargeKey[key]);
        }
        for (Box label : layout.Button) {
            label = {label.x, ToShort(label.y + label.height), label.width, layout.LabelHeight};
            EXPECT_FALSE(rectOf(layout.Case).intersects(rectOf(label)));
        }
        EXPECT_TRUE(layout.LabelHeight == 0 || layout.Button[1].x - layout.Button[0].x >= 58);
        withKeys += hasKeys ? 1 : 0;
        EXPECT_LE(layout.LogPaper.y + layout.LogPaper.height, layout.ScreenHeight - 4);
        for (const Box& box : boxes) {
            const QRect place(box.x, box.y, box.width, box.height);
            EXPECT_TRUE(table.contains(place)) << box.x << ',' << box.y;
            const bool isOnCase =
                box == layout.Chances || box == layout.Reel || box == layout.LargeKey[0];
            EXPECT_GE(std::min(box.width, box.height), isOnCase ? 18 : 28) << box.x << ',' << box.y;
            EXPECT_FALSE(taken.intersects(place)) << box.x << ',' << box.y;
            taken += place;
        }
    }
    EXPECT_EQ(withCards, 21);
    EXPECT_EQ(withKeys, 19);
}

TEST(Layout, SurvivesAnySize) {
    for (const int width : {0, 50, 801, 4000, 32768, 100'000}) {
        for (const int height : {0, 1, 303, 4000, 32768, 100'000}) {
            const Layout layout = LayoutFor(width, height);
            EXPECT_TRUE(layout.Unit > 0 && layout.DeviceTop >= 0) << width << 'x' << height;
            EXPECT_GE(layout.Cup.width, 0) << width << 'x' << height;
            layout.SlotPosition(34, 3);
            layout.BoxPosition(1, 4);
            layout.DieBox(1);
        }
    }
}

}  // namespace
}  // namespace test
}  // namespace zorva
