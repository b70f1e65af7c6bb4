#include "app/Layout.h"

#include <algorithm>
#include <cmath>

#include "core/Board.h"

namespace zorva {
namespace {

// Every value of the layout is rounded half to even, for the positions of pieces are defined so.
Short Round(double value) {
    return ToShort(std::lround(std::nearbyint(value)));
}

constexpr Short recorderWidth = 50;
constexpr Short recorderHeight = 75;
constexpr Short recorderTop = 220;
constexpr Short chancesKey = 24;
constexpr Short logWidth = 150;
constexpr Short logTop = 304;
constexpr Short belowLog = 4;
constexpr int caseTop = recorderTop - 14;  // of the case that holds the recorder
constexpr int caseHeight = 14 + recorderHeight + 13;
constexpr int widestCase = 196;
constexpr int boardFrame = 16;  // around the squares of the largest board

// --------------------------------------------------------------------- the screen and the board

// Up to 800 pixels of width a layout pixel is a device pixel. Wider screens show the largest size class,
// enlarged or reduced until 768 layout pixels fill their height, or enlarged until 1024 fill their
// width.
void UseScreen(Layout& layout, int width, int height) {
    layout.DeviceWidth = std::max(width, 1);
    layout.DeviceHeight = std::max(height, 1);
    if (layout.DeviceWidth * 4 < layout.DeviceHeight * 5) {
        layout.DeviceHeight = std::max(layout.DeviceWidth * 4 / 5, 1);
        layout.DeviceTop = (height - layout.DeviceHeight) / 2;
    }
    const double byHeight = layout.DeviceHeight / 768.0;
    const bool wideButLow = layout.DeviceWidth > 800 && layout.DeviceHeight < 768;
    layout.Unit = wideButLow ? byHeight : std::max(1.0, std::min(byHeight, layout.DeviceWidth / 1024.0));
    // A window may be a mere stripe for a moment: its coordinates must stay 16-bit numbers.
    layout.Unit = std::max(layout.Unit, layout.DeviceWidth / 8192.0);
    layout.ScreenWidth = Round(layout.DeviceWidth / layout.Unit);
    layout.ScreenHeight = Round(layout.DeviceHeight / layout.Unit);
}

void PlaceBoard(Layout& layout) {
    layout.SizeClass = layout.ScreenWidth < 800 ? 1 : layout.ScreenWidth == 800 ? 2 : 3;
    layout.Cell = ToShort(layout.SizeClass * 6 + 15);
    layout.Block = Round(layout.Cell * 7 / 3.0);
    layout.Margin = ToShort(std::lround(std::floor((layout.ScreenHeight - 21 * layout.Cell) / 2.0)));
    layout.BoardExtent = ToShort(2 * layout.Margin + 21 * layout.Cell);
    layout.PieceSize = ToShort(layout.Cell - 5);
    layout.BoxSide = ToShort(3L * layout.Block);
    const Short near = layout.Margin;
    const Short far = ToShort(6 * layout.Block + layout.Margin);
    layout.CornerBox = {Point{}, {far, far}, {far, near}, {near, near}, {near, far}};
}

// ----------------------------------------------------------------- the space right of the board

Short CentredBesideBoard(const Layout& layout, int width) {
    return Round(layout.BoardExtent + (layout.ScreenWidth - layout.BoardExtent - width) / 2.0);
}

Short LogHeight(const Layout& layout) {
    constexpr std::array<Short, 4> heights{0, 180, 300, 460};
    return heights[layout.SizeClass];
}

Short FrameRight(const Layout& layout) {
    return Round(layout.Margin + (21 + boardFrame / 33.0) * layout.Cell);
}

// ------------------------------------------------------------------------- the players' cards

// A row of cards or a column of them, each this far from the next and from what lies beside it.
constexpr int cardGap = 11;
constexpr int narrowestCard = 128;
constexpr int usualCard = 148;  // the band makes room for it
constexpr int widestCard = 264;
constexpr int furthestFromBoard = 44;
constexpr int widestBand = 248;
constexpr int narrowestBand = widestCase;

// The band lies centred beside the board, reaches nearly from side to side of its room, and makes room
// for cards where they fit at all. Where wood lies above it, its edge is seen unless the paper needs all
// the room.
void PlaceBand(Layout& layout) {
    const int room = layout.ScreenWidth - layout.BoardExtent;
    const int beforeBand = layout.BoardExtent - FrameRight(layout) - 2 * cardGap;
    const bool cardsFit = (room - narrowestBand) / 2 + beforeBand >= narrowestCard;
    const int besideCards = room - 2 * (usualCard - beforeBand);
    const int width = cardsFit ? std::clamp(besideCards, narrowestBand, widestBand) : widestBand;
    const bool showsEdge = layout.DeviceTop > 0 && room > logWidth + 30;
    layout.BandWidth = ToShort(std::max(1, std::min(room - (showsEdge ? 12 : 2), width)));
    layout.BandLeft = CentredBesideBoard(layout, layout.BandWidth);
}

// Between the board and the band, from the upper edge of the board's frame to its lower one.
bool PlaceCardsBeside(Layout& layout) {
    constexpr int lineHeight = 88;
    const int left = FrameRight(layout);
    const int width = std::min(layout.BandLeft - left - 2 * cardGap, widestCard);
    if (width < narrowestCard || layout.SizeClass < 3) return false;
    const int x = left + std::min((layout.BandLeft - left - width) / 2, furthestFromBoard);
    const int top = layout.Margin - boardFrame;
    const int height = 21 * layout.Cell + 2 * boardFrame;
    const int step = (height - lineHeight + 1) / ColourCount;
    layout.Line = {ToShort(x), ToShort(top), ToShort(width), lineHeight};
    for (int card = 0; card < ColourCount; ++card) {
        layout.Card[card] = {ToShort(x), ToShort(top + lineHeight + cardGap + card * step),
                             ToShort(width), ToShort(step - cardGap)};
    }
    return true;
}

// On a tall screen the line lies above the used part and the cards below it: in two rows, or in one
// where there is less room.
bool PlaceCardsBelow(Layout& layout) {
    constexpr int aroundBand = 28, side = 20, lineHeight = 58;
    constexpr int lowest = 112, highest = 149, highestOfTwoRows = 190;
    const int room = static_cast<int>(layout.DeviceTop / layout.Unit) - aroundBand - cardGap;
    if (room < lowest) return false;
    const int halfRoom = (room - cardGap) / 2;
    const bool inOneRow = halfRoom < highest;
    const int columns = inOneRow ? ColourCount : ColourCount / 2;
    const int height = inOneRow ? std::min(room, highest) : std::min(halfRoom, highestOfTwoRows);
    const int width = layout.ScreenWidth - 2 * side;
    const int step = (width + cardGap) / columns;
    layout.Line = {side, -aroundBand - lineHeight, ToShort(width), lineHeight};
    for (int card = 0; card < ColourCount; ++card) {
        const int top = layout.ScreenHeight + aroundBand + card / columns * (height + cardGap);
        layout.Card[card] = {ToShort(side + card % columns * step), ToShort(top),
                             ToShort(step - cardGap), ToShort(height)};
    }
    return true;
}

// ------------------------------------------------------------------------------------ the panel

// In one row where the band is wide enough, else in two, as large as the room above the recorder allows:
// sides of 28 to 64. Where there are no cards the line lies above them.
void PlaceButtons(Layout& layout) {
    constexpr int aroundLine = 7, besideLine = 8, narrowestRow = 380, aboveCase = 18;
    const bool isLineAbove = !layout.HasCards(), hasLabels = layout.LabelHeight > 0;
    const int columns = layout.BandWidth < narrowestRow ? MenuButtonCount / 2 : MenuButtonCount;
    const int besideButtons = hasLabels ? 16 : 11, gap = hasLabels ? 10 : 6;
    const int room = layout.BandWidth - 2 * besideButtons - (columns - 1) * gap;
    const int side = std::clamp(room / columns, 28, isLineAbove ? 56 : 64);
    const int width = columns * (side + gap) - gap;
    const int betweenRows = hasLabels ? 4 : gap, rowStep = side + layout.LabelHeight + betweenRows;
    const int height = MenuButtonCount / columns * rowStep - betweenRows;
    const Short left = ToShort(layout.BandLeft + (layout.BandWidth - width) / 2);
    Short top =
        ToShort(hasLabels ? caseTop - aboveCase - height : std::max(8, (recorderTop - height) / 2));
    if (isLineAbove) {
        const int lineWidth = std::max(layout.BandWidth - 2 * besideLine, 1);
        const int lineHeight = caseTop - height - 3 * aroundLine;
        layout.Line = {CentredBesideBoard(layout, lineWidth), aroundLine, ToShort(lineWidth),
                       ToShort(lineHeight)};
        top = ToShort(lineHeight + 2 * aroundLine);
    }
    layout.Buttons = {left, top, ToShort(width), ToShort(height)};
    for (int index = 0; index < MenuButtonCount; ++index) {
        layout.Button[index] = {ToShort(left + index % columns * (side + gap)),
                                ToShort(top + index / columns * rowStep), ToShort(side), ToShort(side)};
    }
}

// The recorder and the log lie centred beside the board, the log below.
void PlaceStrip(Layout& layout) {
    layout.Recorder = {CentredBesideBoard(layout, recorderWidth), recorderTop, recorderWidth,
                       recorderHeight};
    // At the upper edge of the case, above its right reel.
    const int chancesLeft = layout.Recorder.x + recorderWidth + 21;
    layout.Chances = {ToShort(std::min(chancesLeft, layout.ScreenWidth - chancesKey - 2)),
                      recorderTop - 9, chancesKey, chancesKey};
    layout.Log = {CentredBesideBoard(layout, logWidth), logTop, logWidth, LogHeight(layout)};
    // Beside the board there may be less room than the log takes. On screens of 640x480 and 800x600 its
    // height reaches 4 pixels below the screen (304 + 300 = 604). The paper ends 4 pixels above the
    // screen's edge, as on 768 pixels (304 + 460 = 764), so that nothing of it is cut off.
    const int left = std::max<int>(layout.Log.x, layout.BoardExtent);
    const int right = std::min<int>(layout.Log.x + logWidth, layout.ScreenWidth - 1);
    const int height = std::clamp(layout.ScreenHeight - belowLog - logTop, 1, int{layout.Log.height});
    layout.LogPaper = {ToShort(left), logTop, ToShort(std::max(right - left, 1)), ToShort(height)};
}

// The case is as wide as the band allows, and wider than the paper that comes out of it where there is
// room. The reels are as large as the case allows.
void PlaceCase(Layout& layout) {
    constexpr int besideCase = 12, beyondPaper = 3, besideReel = 6;
    constexpr int belowKey = 7;  // how far the reels are moved down, clear of the small key above them
    constexpr int widestReel = 58, smallestReel = 18;
    const int overPaper = std::min(layout.LogPaper.width + 2 * beyondPaper, layout.BandWidth - 2);
    const int width = std::max(std::min(layout.BandWidth - 2 * besideCase, widestCase), overPaper);
    layout.Case = {CentredBesideBoard(layout, width), caseTop, ToShort(width), caseHeight};
    const int room = (width - recorderWidth) / 2;
    const int side = std::min(room - 2 * besideReel, widestReel);
    if (side < smallestReel) return;
    const Point middle = layout.Recorder.Centre();
    const int fromMiddle = (recorderWidth + room - 3) / 2;
    const Short top = ToShort(middle.y + belowKey - side / 2);
    layout.Reel = {ToShort(middle.x - fromMiddle - side / 2), top, ToShort(side), ToShort(side)};
    layout.LargeKey[0] = layout.Reel;
    layout.LargeKey[0].x = ToShort(layout.Reel.x + 2 * fromMiddle);
}

// --------------------------------------------------------------------- large keys and the cup

constexpr int smallestLargeKey = 48, usualKey = 64, largestKey = 96;
constexpr int keyGap = 4;

// Upright they lie as on the strip: backwards left, forwards right. Across, the keys that go by
// themselves lie below those that go one step.
void PlaceLargeKeys(Layout& layout, int left, int top, int side, bool across) {
    // In halves of a key with its gap.
    constexpr std::array<std::array<int, 2>, RecorderKeyCount> upright{
        {{}, {0, 0}, {2, 0}, {0, 2}, {2, 2}, {1, 4}}};
    constexpr std::array<std::array<int, 2>, RecorderKeyCount> lying{
        {{}, {0, 0}, {2, 0}, {0, 2}, {2, 2}, {4, 1}}};
    const int step = side + keyGap;
    for (std::size_t key = 1; key < layout.LargeKey.size(); ++key) {
        const auto [column, row] = across ? lying[key] : upright[key];
        layout.LargeKey[key] = {ToShort(left + column * step / 2), ToShort(top + row * step / 2),
                                ToShort(side), ToShort(side)};
    }
}

constexpr double cupOfRoom = 0.92;  // what the cup with its shadow takes of the room

void PlaceCup(Layout& layout, Point centre, int side) {
    layout.Cup = {ToShort(centre.x - side / 2), ToShort(centre.y - side / 2), ToShort(side),
                  ToShort(side)};
}

// Beside cards the band reaches on to the right, to the edge of all but the widest screens, and so does
// the case, which then holds the key of the chances. Below it lie the large keys, then the cup.
bool WidenBand(Layout& layout) {
    constexpr int widestPart = 450, border = 16;
    constexpr int largestCup = 220, labelHeight = 20, largeChancesKey = 56;
    constexpr double smallestWithLabels = 0.78;  // there their letters are 9 device pixels high
    const int right = layout.BandLeft + layout.BandWidth;
    const int added = std::min(layout.ScreenWidth - right, widestPart);
    const int left = layout.Case.x + layout.Case.width;
    const int room = right + added - border - left;
    const int side = std::min((room - keyGap) / 2, usualKey);
    if (side < smallestLargeKey || !layout.HasCards()) return false;
    layout.BandWidth = ToShort(layout.BandWidth + added);
    layout.LabelHeight = layout.Unit < smallestWithLabels ? 0 : labelHeight;
    layout.Case.x = std::min(layout.Case.x, ToShort(layout.BandLeft + border));
    layout.Case.width = ToShort(left + room - layout.Case.x);
    const int middle = left + room / 2;
    const int reelTop = layout.Recorder.Centre().y - layout.Reel.height / 2;
    layout.Reel.y = layout.LargeKey[0].y = ToShort(reelTop);
    const int aboveKey = (caseHeight - largeChancesKey - layout.LabelHeight) / 2;
    layout.Chances = {ToShort(middle - largeChancesKey / 2), ToShort(caseTop + aboveKey),
                      largeChancesKey, largeChancesKey};
    const int top = caseTop + caseHeight + border;
    PlaceLargeKeys(layout, middle - side - keyGap / 2, top, side, false);
    const int keysEnd = top + 3 * (side + keyGap), below = layout.ScreenHeight - keysEnd;
    PlaceCup(layout, {ToShort(middle), ToShort(keysEnd + below / 2)},
             std::min({int{Round(room * cupOfRoom)}, largestCup, std::max(below, 0)}));
    return true;
}

// On a tall screen the cup lies in the middle above the line, and the keys beside it.
void PlaceAboveLine(Layout& layout) {
    constexpr int largestCup = 260, highest = 8000;  // the coordinates stay 16-bit numbers
    const int top = -std::min(static_cast<int>(layout.DeviceTop / layout.Unit), highest);
    const int room = layout.Line.y - top;
    const int cup = std::min<int>(Round(room * cupOfRoom), largestCup);
    const int besideCup = (layout.ScreenWidth - cup) / 2;
    const int side = std::min({(room * 3 / 4 - keyGap) / 2, besideCup / 4, largestKey});
    if (side < smallestLargeKey) return;
    const Point middle{ToShort(layout.ScreenWidth / 2), ToShort(top + room / 2)};
    PlaceCup(layout, middle, cup);
    const int left = middle.x + cup / 2 + (besideCup - 3 * (side + keyGap)) / 2;
    PlaceLargeKeys(layout, left, middle.y - side - keyGap / 2, side, true);
}

// ------------------------------------------------------------------------ where pieces stand

// A straight run of squares: one coordinate is fixed to the middle of a lane, the other follows the
// square. The 68 squares of the ring are eight runs, each home column is one.
struct Run {
    Square first;
    Square last;
    bool vertical;  // the run goes up or down: the lane fixes x
    double lane;    // in blocks
    double offset;  // the moving coordinate is floor((offset + direction * square) * Cell)
    int direction;
};

constexpr Run runs[] = {
    {1, 8, true, 5.5, 21.5, -1},    {9, 17, false, 5.5, 4.5, 1},   {18, 25, false, 3.5, 38.5, -1},
    {26, 34, true, 5.5, 33.5, -1},  {35, 42, true, 3.5, -34.5, 1}, {43, 51, false, 3.5, 50.5, -1},
    {52, 59, false, 5.5, -51.5, 1}, {60, 68, true, 3.5, -46.5, 1}, {69, 75, true, 4.5, 88.5, -1},
    {77, 83, false, 4.5, 96.5, -1}, {85, 91, true, 4.5, -83.5, 1}, {93, 99, false, 4.5, -91.5, 1},
};

const Run& RunOf(Square square) {
    const auto* run = std::find_if(std::begin(runs), std::end(runs), [square](const Run& r) {
        return square >= r.first && square <= r.last;
    });
    Require(run != std::end(runs), "a square without a place on the board");
    return *run;
}

// The square at the end of each arm lies on the middle lane, one lane further in and one cell back from
// where its run would put it. Added after the rounding, in whole pixels.
Point AroundArmEnd(const Layout& layout, Square square, Point at) {
    const Short cell = layout.Cell;
    const Short block = layout.Block;
    switch (square) {
        case 17: return {ToShort(at.x - cell), ToShort(at.y - block)};
        case 34: return {ToShort(at.x - block), ToShort(at.y + cell)};
        case 51: return {ToShort(at.x + cell), ToShort(at.y + block)};
        case 68: return {ToShort(at.x + block), ToShort(at.y - cell)};
        default: return at;
    }
}

// Three pieces side by side across the arm, the fourth in front of the first, nearer to the board's
// centre.
Point GoalPosition(const Layout& layout, Square goal, Short slot) {
    constexpr std::array<double, 5> across{0, 4.5, 4.9, 4.1, 4.5};
    const bool vertical = goal == GoalSquare[1] || goal == GoalSquare[3];
    const bool beyondCentre = goal == GoalSquare[1] || goal == GoalSquare[2];
    const double forward = slot == 4 ? 0.4 * layout.Block : 0;
    const double along = std::floor((beyondCentre ? 12.5 : 8.5) * layout.Cell) +
                         (beyondCentre ? -forward : forward) + layout.Margin;
    const double lane = across[slot] * layout.Block + layout.Margin;
    return vertical ? Point{Round(lane), Round(along)} : Point{Round(along), Round(lane)};
}

// A second piece stands beside the first, towards the middle lane (in a cut corner there is no room
// on the other side); a third on the other side of it.
Point BesideFirst(const Layout& layout, Square square, Short slot, Point first) {
    const Run& run = RunOf(square);
    const bool lies = square % 17 == 0 && square <= LastRingSquare;
    const bool shiftX = run.vertical;
    const int step = layout.Cell * 2 / 3;
    const int inward = run.lane > 4.5 && !lies ? -step : step;
    const int shift = slot == 2 ? inward : -inward;
    return shiftX ? Point{ToShort(first.x + shift), first.y} : Point{first.x, ToShort(first.y + shift)};
}

// What lies inside a house, given for a cell of 33 pixels relative to its corner.
Box InHouse(const Layout& layout, Colour colour, int centreX, int centreY, int width, int height) {
    const double scale = layout.Cell / 33.0;
    const Point corner = layout.CornerBox[colour];
    return {Round(corner.x + (centreX - width / 2.0) * scale),
            Round(corner.y + (centreY - height / 2.0) * scale), Round(width * scale),
            Round(height * scale)};
}

}  // namespace

Point Layout::SquarePosition(Square square) const {
    if (IsGoal(square)) return GoalPosition(*this, square, 1);
    const Run& run = RunOf(square);
    const Short lane = Round(run.lane * Block + Margin);
    const Short along = Round(std::floor((run.offset + run.direction * square) * Cell) + Margin);
    return AroundArmEnd(*this, square, run.vertical ? Point{lane, along} : Point{along, lane});
}

Point Layout::SlotPosition(Square square, Short slot) const {
    if (IsGoal(square)) return GoalPosition(*this, square, slot);
    const Point first = SquarePosition(square);
    return slot <= 1 ? first : BesideFirst(*this, square, slot, first);
}

Point Layout::BoxPosition(Colour colour, Short piece) const {
    const Point corner = CornerBox[colour];
    const double step = PieceSize + 4;
    return {ToShort(corner.x + Cell), Round(corner.y + BoxSide / 2.0 + step * (piece - 2.5))};
}

Box Layout::DieBox(Colour colour) const {
    return InHouse(*this, colour, 140, 128, 72, 72);
}

Box Layout::NamePlate(Colour colour) const {
    return InHouse(*this, colour, 140, 48, 156, 26);
}

Box Layout::House(Colour colour) const {
    return {CornerBox[colour].x, CornerBox[colour].y, BoxSide, BoxSide};
}

Layout LayoutFor(int deviceWidth, int deviceHeight) {
    Layout layout;
    UseScreen(layout, deviceWidth, deviceHeight);
    PlaceBoard(layout);
    PlaceBand(layout);
    if (!PlaceCardsBeside(layout)) PlaceCardsBelow(layout);
    PlaceStrip(layout);
    PlaceCase(layout);
    const bool isWide = WidenBand(layout);
    PlaceButtons(layout);
    if (!isWide && layout.DeviceTop > 0 && layout.Line.y < 0) PlaceAboveLine(layout);
    return layout;
}

}  // namespace zorva
