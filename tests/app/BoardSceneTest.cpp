#include "app/BoardScene.h"

#include <gtest/gtest.h>

#include <tuple>

#include <QCoreApplication>
#include <QScreen>
#include <QTest>
#include <algorithm>

#include "app/WindowOutside.h"
#include "core/Board.h"
#include "core/GameStart.h"
#include "tests/app/BoardWindow.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

constexpr QSize screens[] = {{640, 480}, {800, 600}, {1280, 1024}, {1080, 1920}};

std::string NameOf(QSize size) {
    return std::to_string(size.width()) + "x" + std::to_string(size.height());
}

std::vector<PieceCode> AllPieces() {
    std::vector<PieceCode> all;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) all.push_back(CodeOf(colour, piece));
    }
    return all;
}

/// A board window of that size, and a second painter for what its board should look like.
struct Board : BoardWindow {
    explicit Board(QSize screen) : BoardWindow("", screen) {
        fresh.SetScreen(layout, screen);
        scene.ShowStep(1);
    }

    /// A picture without what lies on the board window.
    QImage PartOf(const QPixmap& picture) const {
        QPixmap board = picture;
        std::vector<Box> controls(layout.LargeKey.begin(), layout.LargeKey.end());
        controls.insert(controls.end(),
                        {layout.Buttons, layout.Recorder, layout.LogPaper, layout.Chances});
        for (const Box& box : controls) QPainter(&board).fillRect(fresh.DeviceArea(box, 2), Qt::black);
        return board.toImage().convertToFormat(QImage::Format_RGB32);
    }
    /// What the window shows, of which only what has changed is painted anew.
    QImage Seen() const {
        QCoreApplication::processEvents();
        return PartOf(mesa.screen()->grabWindow(mesa.winId()));
    }
    /// What is to be seen, painted as a whole.
    QImage Painted() {
        fresh.Paint(View(), settings, mesa.rect());
        return PartOf(fresh.Picture());
    }

    QPoint Device(Point at) const {
        return {static_cast<int>(layout.DeviceLeft + at.x * layout.Unit),
                static_cast<int>(layout.DeviceTop + at.y * layout.Unit)};
    }

    BoardScene& scene = mesa.Scene();
    BoardPainter fresh{mesa.Shared().artwork};
};

/// The smallest rectangle around all pixels that differ by more than a few steps of shade.
QRect Difference(const QImage& one, const QImage& other) {
    constexpr int rounding = 6;
    QRect found;
    for (int y = 0; y < one.height(); ++y) {
        const auto* a = reinterpret_cast<const QRgb*>(one.constScanLine(y));
        const auto* b = reinterpret_cast<const QRgb*>(other.constScanLine(y));
        if (std::equal(a, a + one.width(), b)) continue;
        for (int x = 0; x < one.width(); ++x) {
            const int most =
                std::max({std::abs(qRed(a[x]) - qRed(b[x])), std::abs(qGreen(a[x]) - qGreen(b[x])),
                          std::abs(qBlue(a[x]) - qBlue(b[x]))});
            if (most > rounding) found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

std::string Text(const QRect& r) {
    return r.isEmpty() ? ""
                       : NameOf(r.size()) + " at " + std::to_string(r.x()) + "," + std::to_string(r.y());
}

TEST(BoardPicture, HasTheColourOfEachSquareAtItsCentre) {
    constexpr QRgb colours[] = {0, 0xffffff00, 0xff0000ff, 0xffff0000, 0xff008000};
    for (const QSize screen : screens) {
        SCOPED_TRACE(NameOf(screen));
        const Board board(screen);
        const QImage picture = board.Seen();
        for (Square square = 1; square <= LastSquare; ++square) {
            const QColor is = picture.pixelColor(board.Device(board.PlaceOfSquare(square)));
            if (square > LastRingSquare || square % 17 == 5) {
                const int colour = square > LastRingSquare ? (square - 69) / 8 + 1 : square / 17 + 1;
                EXPECT_EQ(is, QColor(colours[colour])) << "square " << square;
            } else {
                EXPECT_GT(std::min({is.red(), is.green(), is.blue()}), 100) << "square " << square;
            }
        }
    }
}

/// Plays a game in a window and compares what is seen with a whole painting, again and again.
class PaintedGame : private Board, private WindowOutside {
public:
    PaintedGame(std::uint64_t number, QSize screen, Short longest)
        : Board(screen), WindowOutside(mesa, state, settings), chance_(6, number), longest_(longest) {
        settings = kind_.settings;
        settings.PlayerType.fill(1);
        settings.PauseBetweenMoves = 2;
        settings.Speed = 100;
        mesa.Ask = [](auto...) { return MessageAnswer::Accepted; };
    }

    void Play() {
        StartGame({state, settings, *this});
        for (const TurnIs end : {TurnIs::Won, TurnIs::Over}) {
            ShowTurn(2, end);
            Look("the end");
        }
    }
    int Looks() const { return looks_; }

private:
    Short RollFace() override { return kind_.faces[chance_.Below(kind_.faces.size())]; }
    void StepDelay(Short n) override {
        LookOnTheWay();
        WindowOutside::StepDelay(n);
    }
    void Pause(Short n) override {
        LookOnTheWay();
        WindowOutside::Pause(n);
    }
    void PositionReached(const GameState& position) override {
        if (position.MoveRecordCount > longest_) state.GameInProgress = No;
        Look("the turn");
        scene.ShowGuide();
        const QImage before = Seen();
        scene.Refresh();
        EXPECT_EQ(Text(Difference(Seen(), before)), "") << "a piece is not at its place";
        Decorate();
    }

    void Look(const std::string& after) {
        if (testing::Test::HasFailure()) state.GameInProgress = No;
        if (testing::Test::HasFailure()) return;
        ++looks_;
        EXPECT_EQ(Text(Difference(Seen(), Painted())), "")
            << "after " << after << ", move " << state.MoveRecordCount;
    }

    void LookOnTheWay() {
        for (const double progress : {0.35, 0.8}) {
            scene.ShowStep(progress);
            if (chance_.Below(6) == 0) Look("a frame of a wait");
        }
    }

    PieceCode AnyPiece() { return AllPieces()[chance_.Below(16)]; }

    BoardView::ShownMove AnyMove() {
        const PieceCode piece = AnyPiece();
        const Colour colour = ColourOf(piece);
        const Square from = state.PositionOf(piece);
        if (from == GoalSquare[colour]) return {};
        Square to = from == 0 ? ExitSquare[colour] : AdvanceSquare(from, 1, colour);
        for (std::uint32_t steps = chance_.Below(12); steps > 0 && to < GoalSquare[colour]; --steps) {
            to = AdvanceSquare(to, 1, colour);
        }
        return {piece, from, to};
    }

    /// Puts marks on the board and takes them away, in any order.
    void Decorate() {
        const std::vector<BoardView::ShownMove> choices{AnyMove(), AnyMove(), AnyMove()};
        const std::function<void(bool)> marks[] = {
            [&](bool on) { on ? scene.ShowChoices(choices) : scene.ShowChoices({}); },
            [&](bool on) { scene.ShowMarked(on ? choices[chance_.Below(3)].piece : PieceCode{0}); },
            [&](bool on) { scene.ShowMove(on ? AnyMove() : BoardView::ShownMove{}); },
            [&](bool on) { scene.ShowPreview(on ? AnyMove() : BoardView::ShownMove{}); },
            [&](bool on) { scene.ShowTape(ToShort(on ? 3 : -1)); },
            [&](bool on) { ShowSign(on); },
            [&](bool on) { on ? DragAndLetGo() : scene.EmptyTrays(); },
            [&](bool on) { on ? scene.ShowDie(3, 6, DieIs::RollingBy) : scene.ShowBonus(2, 10); },
            [&](bool on) { on ? scene.ShowWinner(1) : scene.ShowTurn(state.CurrentColour); },
        };
        if (chance_.Below(2) == 0) scene.ShowChoices(choices);
        for (int count = 0; count < 5; ++count) {
            const std::size_t mark = chance_.Below(std::size(marks));
            marks[mark](chance_.Below(2) == 0);
            Look("mark " + std::to_string(mark));
        }
        for (const auto& mark : marks) mark(false);
        Look("taking the marks away");
    }

    void ShowSign(bool on) {
        state.WaitingForThrow = on ? Yes : No;
        settings.Speed = 0;  // the hand moves
        scene.PointAt(on ? layout.Cup.Centre() : Point{});
        scene.ShowGuide();
        settings.Speed = 100;
    }

    void DragAndLetGo() {
        const PieceCode piece = AnyPiece();
        for (int count = 0; count < 3; ++count) {
            scene.Drag(piece, QPointF(chance_.Below(700), chance_.Below(700)));
            Look("dragging");
        }
        scene.StartGlideBack(piece);
        scene.ShowStep(0.5);
        Look("gliding back");
        scene.PutDown(piece);
    }

    Chance chance_;
    RandomGameKind kind_ = RandomGameKind::Of(chance_);
    Short longest_;
    int looks_ = 0;
};

TEST(BoardPicture, IsRepaintedWhereverSomethingChanges) {
    int looks = 0;
    const std::tuple<std::uint64_t, QSize, Short> rows[] = {
        {0, {640, 480}, 40}, {1, {640, 480}, 40}, {0, {800, 600}, 20}, {0, {1280, 800}, 12}};
    for (const auto& [number, screen, moves] : rows) {
        SCOPED_TRACE(NameOf(screen) + " game " + std::to_string(number));
        PaintedGame game(number, screen, moves);
        game.Play();
        looks += game.Looks();
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(looks, 800);
}

TEST(BoardPicture, HasRoomForTheLongestNames) {
    for (const QSize screen : screens) {
        Board board(screen);
        board.settings.PlayerName.fill("");
        board.scene.ShowTurn(3);  // the name of who plays is set in bold
        const QImage without = board.Painted();
        for (const char* name : {"WWWWWWWWW", "gjpqyÅÑÜÇ", "@@@@@@@@@", "‰‰‰‰‰‰‰‰‰"}) {
            for (const Colour colour : {Colour{3}, Colour{1}}) {
                board.settings.PlayerName[colour] = name;
                const QRect ink = Difference(board.Painted(), without);
                board.settings.PlayerName[colour] = "";
                const QRect plate = board.fresh.DeviceArea(board.layout.NamePlate(colour));
                // Writing that touches an edge has been cut there.
                EXPECT_TRUE(plate.adjusted(1, 1, -1, -1).contains(ink))
                    << name << " on " << NameOf(screen) << ": " << Text(ink) << " on " << Text(plate);
                EXPECT_GT(ink.width(), plate.width() / 3) << name;
            }
        }
    }
}

TEST(BoardPicture, KeepsNothingOfAnotherScreen) {
    Board board({640, 480}), fresh({1024, 768});
    for (Board* each : {&board, &fresh}) {
        each->scene.ShowTurn(2);
        each->scene.ShowDie(2, 3, DieIs::AtRest);
        each->scene.ShowChoices({{21, 22, 27}});
    }
    board.mesa.resize(fresh.mesa.size());
    // The light round the new-game button comes to rest, too.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return board.layout.ScreenWidth == 1024 && board.View().tapping == 1 &&
               fresh.View().tapping == 1;
    }));
    EXPECT_EQ(board.Seen(), fresh.Seen());
    Artwork& artwork = board.mesa.Shared().artwork;
    EXPECT_EQ(artwork.Pixmap("die_1", {20, 30}).size(), QSize(20, 30));
    EXPECT_EQ(artwork.Pixmap("die_1", {20, 40}).size(), QSize(20, 40));
}

// In the pairs of the arms at the sides one piece lies half on the other.
TEST(BoardPicture, LetsTheLowerPieceCoverTheHigher) {
    for (const QSize screen : screens) {
        Board board(screen);
        for (const Square square : {9, 12, 16, 17, 18, 25, 43, 50, 52, 55, 59}) {
            const std::string pair =
                " " + std::to_string(square) + " " + std::to_string(square) + " 0 0";
            board.state = Position("1:" + pair);
            board.scene.Refresh();
            const PieceCode front = board.PlaceOf(11).y > board.PlaceOf(12).y ? 11 : 12;
            QRect body(0, 0, 3, qRound(0.9 * board.layout.PieceSize * board.layout.Unit));
            body.moveCenter(board.Device(board.PlaceOf(front)));
            const QImage both = board.Painted().copy(body);
            board.state.PiecePosition[1][front == 11 ? 2 : 1] = 0;
            board.scene.Refresh();
            EXPECT_EQ(Text(Difference(board.Painted().copy(body), both)), "")
                << "square " << square << " on " << NameOf(screen);
        }
    }
}

// No ring reaches the corners of the frame, 17 of the 28 units of a piece's size from its centre.
TEST(BoardPicture, FramesTheMarkedPieceBeyondAllRings) {
    std::vector<BoardView::ShownMove> choices;
    for (const PieceCode piece : AllPieces()) choices.push_back({.piece = piece});
    for (const QSize screen : screens) {
        Board board(screen);
        board.scene.ShowChoices(choices);
        board.state = Position("1:10 36 36 0  2:27 49 49 0  3:44 60 60 0  4:61 9 9 0");
        board.scene.Refresh();
        for (const PieceCode piece : AllPieces()) {
            board.scene.ShowMarked(0);
            const QImage plain = board.Painted();
            board.scene.ShowMarked(piece);
            const QImage marked = board.Painted();
            const double far = 17.0 / 28 * board.layout.PieceSize * board.layout.Unit;
            for (const QPointF side : {QPointF(1, 1), {1, -1}, {-1, 1}, {-1, -1}}) {
                QRect corner(0, 0, 3, 3);
                corner.moveCenter(board.Device(board.PlaceOf(piece)) + (side * far).toPoint());
                EXPECT_FALSE(Difference(plain.copy(corner), marked.copy(corner)).isEmpty())
                    << int{piece} << " on " << NameOf(screen);
            }
        }
    }
}

// The squares, the frame and the houses that wait stay as they are; the light fades towards the corner.
TEST(BoardPicture, LightsTheHouseOnTurnAlone) {
    for (const QSize screen : screens) {
        Board board(screen);
        const QImage waiting = board.Painted();
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            board.scene.ShowTurn(colour);
            const QImage lit = board.Painted();
            const QRect house = board.fresh.HouseArea(colour),
                        plate = board.fresh.DeviceArea(board.layout.NamePlate(colour));
            const QRect squares = board.fresh.HouseArea(3) | board.fresh.HouseArea(1);
            const QRect changed = Difference(lit.copy(squares), waiting.copy(squares));
            EXPECT_TRUE(house.contains(changed.translated(squares.topLeft())))
                << int{colour} << " on " << NameOf(screen);
            const auto gain = [&](QPoint at) { return qGray(lit.pixel(at)) - qGray(waiting.pixel(at)); };
            const QPoint edge = QPoint(1, 1) * (house.width() / 20);
            EXPECT_GT(gain(house.topLeft() + edge), gain(house.bottomRight() - edge)) << int{colour};
            EXPECT_GT(gain(plate.center() - QPoint(0, plate.height())), 20) << int{colour};
            EXPECT_LT(lit.pixelColor(plate.center() - QPoint(0, plate.height())).green(), 240)
                << "not pure";
            for (const QImage& picture : {lit, waiting}) {
                EXPECT_GT(qGray(picture.pixel(plate.center() - QPoint(plate.width() * 2 / 5, 0))), 220)
                    << "ivory";
            }
        }
    }
}

TEST(BoardPicture, CrownsTheWinnerAndThrowsConfettiOnce) {
    for (const QSize screen : {screens[1], screens[3]}) {
        Board board(screen);
        board.settings.Speed = 95;
        board.state = Position("1:10 0 0 0  3:92 92 92 92");
        board.state.CurrentColour = 3;
        board.state.GameInProgress = Yes;
        board.scene.ShowTurn(3);
        EXPECT_EQ(board.View().line.hint.startsWith("En casa: Amarillo 0"), !board.layout.HasCards());
        const QImage before = board.Painted();
        board.scene.ShowWinner(3);
        int frames = 0;
        for (; !board.View().confetti.flakes.empty(); ++frames)
            EXPECT_EQ(Text(Difference(board.Seen(), board.Painted())), "") << NameOf(screen);
        EXPECT_GT(frames, 1);
        EXPECT_EQ(Text(Difference(board.Seen(), board.Painted())), "") << "no flake is left";
        const QRect laurel = Difference(board.Painted(), before);
        EXPECT_GT(laurel.width(), 1.8 * board.layout.DieBox(3).width * board.layout.Unit);
        EXPECT_TRUE(board.fresh.HouseArea(3).contains(laurel)) << NameOf(screen);
        board.scene.ShowWinner(3);
        EXPECT_TRUE(board.View().confetti.flakes.empty());
    }
}

TEST(BoardPicture, ShowsRaisedPiecesLargerAndAbsentPlayersHousesClosed) {
    Board board({1024, 768});
    board.scene.Clear();
    const QImage empty = board.Painted();
    const auto widthOfChange = [&] { return Difference(board.Painted(), empty).width(); };
    board.scene.PutDown(11);  // it falls into its place
    const int raised = widthOfChange();
    board.scene.ShowStep(1);
    EXPECT_GT(raised, widthOfChange() + 5);
    board.scene.Clear();
    board.settings.PlayerActive[3] = 2;
    const QRect lid = board.fresh.HouseArea(3);
    EXPECT_GT(widthOfChange(), 0.9 * lid.width());
    const auto shade = [&](int x) {
        return qGray(board.Painted().pixel(lid.left() + x, lid.center().y()));
    };
    EXPECT_LT(shade(1) + 4, shade(12)) << "the frame's shadow";
}

TEST(BoardGuide, MarksTheLastMoveUntilTheNextBegins) {
    using LastMove = BoardView::LastMove;
    BoardWindow board("1:10 0 0 0  3:60 0 0 0");
    BoardScene& scene = board.mesa.Scene();
    const std::tuple<MoveRecord, LastMove> rows[] = {
        {{1, 0, 4, 4, 1, 6, 10, 0, 0, 0, Yes}, {11, 6, 10, 0, true}},
        {{2, 0, 4, 4, 0, 0, 0, 0, 0, 0, Yes}, {11, 6, 10, 0, true}},
        {{3, 0, 2, 2, 1, 58, 60, 0, 0, 0, Yes}, {31, 58, 60, 0, true}},
        {{4, 3, 0, 0, 2, 60, 0, 0, 0, 1, No}, {31, 58, 60, 42, true}},
        {{1, 0, 6, 6, 1, 10, 0, 0, 0, 0, Yes}, {11, 10, 0, 0, false}},
        {{2, 0, 0, 0, 3, 0, 40, 0, Yes, 0, Yes}, {23, 0, 40, 0, false}},
        {{1, 0, 5, 5, 2, 0, 5, 0, 0, 0, Yes}, {12, 0, 5, 0, true}},
        {{3, 1, 0, 0, 2, 5, 0, 0, 0, 1, No}, {12, 0, 5, 32, true}},
        {{1, 0, 5, 5, 3, 0, 5, 0, 0, 0, No}, {13, 0, 5, 0, true, 12}},
    };
    board.state.MoveRecordCount = 1;
    scene.ShowGuide();
    EXPECT_EQ(board.View().lastMove, LastMove{});
    for (const auto& [record, marked] : rows) {
        board.state.MoveRecords[board.state.MoveRecordCount++] = record;
        scene.ShowGuide();
        EXPECT_EQ(board.View().lastMove, marked) << "move " << board.state.MoveRecordCount - 1;
    }
    scene.Lift(31);
    EXPECT_EQ(board.View().lastMove, LastMove{});
    scene.ShowGuide();
    EXPECT_EQ(board.View().lastMove, LastMove{}) << "while a piece walks";
    scene.Clear();
    EXPECT_EQ(board.View().lastMove, LastMove{}) << "before the pieces are put down";
}

TEST(BoardGuide, PointsAtTheDieThatAClickThrowsAndComesToRest) {
    BoardWindow board("", {1366, 768});
    BoardScene& scene = board.mesa.Scene();
    EXPECT_EQ(board.View().sign, BoardView::NewGameSign);
    scene.PointAt(board.layout.Cup.Centre());
    EXPECT_FALSE(board.View().cupLit);
    board.state.CurrentColour = 3;
    board.state.GameInProgress = board.state.WaitingForThrow = board.state.ManualMode = Yes;
    scene.ShowGuide();
    EXPECT_EQ(board.View().sign, 0);
    board.state.ManualMode = No;
    board.settings.Speed = 97;
    scene.ShowGuide();
    EXPECT_EQ(board.View().sign, 3);
    EXPECT_TRUE(board.View().cupLit) << "a click on the cup throws";
    EXPECT_TRUE(QTest::qWaitFor([&] { return board.View().tapping < 1; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return board.View().tapping == 1; }));
    scene.ShowTape(3);
    EXPECT_EQ(board.View().sign, 0);
    scene.ShowTape(-1);
    EXPECT_EQ(board.View().sign, 3);
    board.state.WaitingForThrow = No;
    scene.ShowGuide();
    EXPECT_EQ(board.View().sign, 0);
    EXPECT_FALSE(board.View().cupLit);
}

}  // namespace
}  // namespace zorva::test
