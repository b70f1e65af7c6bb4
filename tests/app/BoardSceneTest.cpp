#include "app/BoardScene.h"

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>

#include "app/Artwork.h"
#include "app/PiecePlaces.h"
#include "core/Board.h"
#include "core/DecidedThrows.h"
#include "core/GameStart.h"
#include "tests/support/Positions.h"
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

/// The board of a state on a screen. `window` is what a window shows that copies what has changed.
struct Board {
    Board(GameState game, QSize screen)
        : state(std::move(game)),
          layout(LayoutFor(screen.width(), screen.height())),
          window(screen, QImage::Format_RGB32),
          scene(state, settings, artwork, [this](const QRect& part) { ShowAnew(part); }),
          fresh(artwork) {
        window.fill(Qt::magenta);
        scene.SetScreen(layout, screen);
        fresh.SetScreen(layout, screen);
    }

    void ShowAnew(const QRect& part) {
        QPainter painter(&window);
        painter.drawPixmap(part.topLeft(), scene.Picture(), part);
    }

    void PutDownAll() {
        for (const PieceCode code : AllPieces()) scene.PutDown(code);
        scene.ShowStep(1);
    }

    /// What is to be seen, painted as a whole.
    QImage Painted() {
        fresh.Paint(scene.View(), settings, window.rect());
        return fresh.Picture().toImage().convertToFormat(QImage::Format_RGB32);
    }

    QPoint Device(Point at) const {
        return {static_cast<int>(layout.DeviceLeft + at.x * layout.Unit),
                static_cast<int>(layout.DeviceTop + at.y * layout.Unit)};
    }

    GameState state;
    Settings settings;
    Layout layout;
    Artwork artwork;
    QImage window;
    BoardScene scene;
    BoardPainter fresh;
};

/// The smallest rectangle around all pixels that differ; a step or two in shade is rounding.
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
        const Board board({}, screen);
        for (Square square = 1; square <= LastSquare; ++square) {
            const bool isExit = square <= LastRingSquare && square % 17 == 5;
            const int colour = isExit                    ? square / 17 + 1
                               : square > LastRingSquare ? (square - 69) / 8 + 1
                                                         : 0;
            const QRgb pixel = board.window.pixel(board.Device(board.layout.SquarePosition(square)));
            if (colour != 0) {
                EXPECT_EQ(pixel, colours[colour]) << "square " << square;
            } else {
                EXPECT_GT(std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)}), 170)
                    << "square " << square;
            }
        }
    }
}

/// The colour most of the lively pixels of a disc have; 0 when it is mostly as in `empty`.
Colour ColourOfDisc(const QImage& picture, const QImage& empty, QPoint centre, double radius) {
    PerColour<int> votes{};
    int all = 0, different = 0;
    const int reach = static_cast<int>(radius);
    for (int dy = -reach; dy <= reach; ++dy) {
        for (int dx = -reach; dx <= reach; ++dx) {
            if (std::hypot(dx, dy) > radius) continue;
            const QPoint at = centre + QPoint(dx, dy);
            const QColor pixel = picture.pixelColor(at);
            ++all;
            different += pixel != empty.pixelColor(at);
            if (pixel.hsvSaturation() < 110 || pixel.value() < 50) continue;
            const int hue = pixel.hsvHue();
            if (hue >= 35 && hue <= 70) ++votes[1];
            if (hue >= 210 && hue <= 265) ++votes[2];
            if (hue <= 20 || hue >= 340) ++votes[3];
            if (hue >= 90 && hue <= 170) ++votes[4];
        }
    }
    if (different < all * 0.8) return 0;
    return static_cast<Colour>(std::max_element(votes.begin() + 1, votes.end()) - votes.begin());
}

TEST(BoardPicture, ShowsEachPieceAtItsPlace) {
    constexpr const char* positions[] = {
        "",
        "1:5 5 10 69  2:22 22 60 77  3:39 39 29 85  4:56 56 12 93",
        "1:68 68 75 76  2:17 17 83 84  3:34 34 91 92  4:51 51 99 100",
        "1:76 76 76 76  2:84 84 84 84  3:92 92 92 92  4:100 100 100 100",
        "1:8 26 42 60  2:9 25 43 59  3:8 26 42 60  4:9 25 43 59",
        "2:5 5 0 0  1:5 0 0 0  3:86 86 0 0",
    };
    for (const QSize screen : screens) {
        SCOPED_TRACE(NameOf(screen));
        Board board({}, screen);
        const QImage empty = board.window;
        const double radius = board.layout.PieceSize * 0.42 * board.layout.Unit;
        for (const char* position : positions) {
            SCOPED_TRACE(position);
            board.state = Position(position);
            board.scene.Clear();
            board.PutDownAll();
            for (const PieceCode code : AllPieces()) {
                const QPoint at = board.Device(PlaceOfPiece(board.layout, board.state, code));
                EXPECT_EQ(ColourOfDisc(board.window, empty, at, radius), ColourOf(code)) << code;
            }
        }
    }
}

/// Plays a game on a board and holds what the window shows against a whole painting, again and again.
class PaintedGame : public DecidedThrows {
public:
    PaintedGame(std::uint64_t number, QSize screen, Short longest)
        : chance_(6, number), kind_(RandomGameKind::Of(chance_)), board_({}, screen), longest_(longest) {
        kind_.settings.PlayerType.fill(1);
        kind_.settings.PauseBetweenMoves = 2;
    }

    void Play() {
        StartGame({board_.state, kind_.settings, *this});
        Look("the last move");
        board_.scene.ShowWinner(2);
        Look("the winner's display");
        board_.scene.ShowTurn(0, 0);
        Look("the end");
    }
    int Looks() const { return looks_; }

    void LiftPiece(PieceCode piece, Square) override { board_.scene.Lift(piece); }
    void StepPiece(PieceCode piece, Square from, Square to) override {
        board_.scene.StartStep(piece, from, to);
        if (chance_.Below(30) == 0) Look("the beginning of a step");
    }
    void StepDelay(Short) override { Glide(); }
    void Pause(Short) override { Glide(); }
    void PutDownPiece(PieceCode piece, Square) override {
        board_.scene.PutDown(piece);
        if (chance_.Below(4) == 0) Look("putting down");
    }
    void ClearDice() override { board_.scene.ClearDice(); }
    void DrawDie(Colour colour, Short face, DieIs how) override {
        board_.scene.ShowDie(colour, face, how);
        if (chance_.Below(30) == 0) Look("a die");
    }
    void ShowChosenMove(PieceCode piece, Square from, Square to) override {
        board_.scene.ShowMove({piece, from, to});
        if (chance_.Below(4) == 0) Look("the chosen move");
    }
    void RefreshBoard(PiecesShown pieces) override {
        if (pieces == PiecesShown::OnTheirSquares) return board_.scene.Refresh();
        board_.scene.Clear();
        Look("clearing the board");
    }
    MessageAnswer ShowMessage(std::string_view, std::string_view, Short, MessageButtons) override {
        return MessageAnswer::Accepted;
    }

    void PositionReached() override {
        const GameState& state = board_.state;
        if (state.MoveRecordCount > longest_) board_.state.GameInProgress = No;
        board_.scene.ShowTurn(state.CurrentColour, state.ThrowNext ? Short{0} : state.MoveCount);
        Look("the turn");
        const QImage before = board_.window;
        board_.scene.Refresh();
        EXPECT_EQ(Text(Difference(board_.window, before)), "") << "a piece is not at its place";
        Decorate();
    }

protected:
    Short NextThrow() override { return kind_.faces[chance_.Below(kind_.faces.size())]; }

private:
    void Look(const char* after) {
        if (testing::Test::HasFailure()) board_.state.GameInProgress = No;
        if (testing::Test::HasFailure()) return;
        ++looks_;
        const QRect wrong = Difference(board_.window, board_.Painted());
        EXPECT_EQ(Text(wrong), "") << "after " << after << ", move " << board_.state.MoveRecordCount;
    }

    void Glide() {
        if (!board_.scene.HasMotion()) return;
        for (const double progress : {0.35, 0.8}) {
            board_.scene.ShowStep(progress);
            if (chance_.Below(6) == 0) Look("a frame of a walk");
        }
        board_.scene.ShowStep(1);
    }

    PieceCode AnyPiece() { return AllPieces()[chance_.Below(16)]; }

    BoardView::ShownMove AnyMove() {
        const PieceCode piece = AnyPiece();
        const Colour colour = ColourOf(piece);
        const Square from = board_.state.PositionOf(piece);
        if (from == GoalSquare[colour]) return {};
        Square to = from == 0 ? ExitSquare[colour] : AdvanceSquare(from, 1, colour);
        for (std::uint32_t steps = chance_.Below(12); steps > 0 && to < GoalSquare[colour]; --steps) {
            to = AdvanceSquare(to, 1, colour);
        }
        return {piece, from, to};
    }

    /// Puts marks on the board and takes them away, in any order.
    void Decorate() {
        std::array<bool, BoardView::CodeCount> movable{};
        const PieceCode picks[] = {AnyPiece(), AnyPiece(), AnyPiece()};
        for (const PieceCode piece : picks) movable[piece] = true;
        BoardScene& scene = board_.scene;
        const std::function<void(bool)> marks[] = {
            [&](bool on) { on ? scene.ShowMovable(movable) : scene.ShowMovable({}); },
            [&](bool on) { scene.ShowMarked(on ? picks[chance_.Below(3)] : PieceCode{0}); },
            [&](bool on) { scene.ShowMove(on ? AnyMove() : BoardView::ShownMove{}); },
            [&](bool on) { scene.ShowPreview(on ? AnyMove() : BoardView::ShownMove{}); },
            [&](bool on) { scene.ShowManualMode(on); },
            [&](bool on) { on ? DragAndLetGo() : scene.ShowDie(3, 0, DieIs::AtRest); },
            [&](bool on) { on ? scene.ShowDie(3, 6, DieIs::RollingBy) : scene.ShowTurn(2, 10); },
            [&](bool on) { scene.ShowTurn(on ? Colour{1} : board_.state.CurrentColour, on ? 20 : 0); },
        };
        if (chance_.Below(2) == 0) scene.ShowMovable(movable);
        for (int count = 0; count < 5; ++count) {
            const std::size_t mark = chance_.Below(std::size(marks));
            marks[mark](chance_.Below(2) == 0);
            Look(("mark " + std::to_string(mark)).c_str());
        }
        for (const auto& mark : marks) mark(false);
        Look("taking the marks away");
    }

    void DragAndLetGo() {
        const PieceCode piece = AnyPiece();
        for (int count = 0; count < 3; ++count) {
            board_.scene.Drag(piece, QPointF(chance_.Below(700), chance_.Below(700)));
            Look("dragging");
        }
        board_.scene.StartGlideBack(piece);
        board_.scene.ShowStep(0.5);
        Look("gliding back");
        board_.scene.PutDown(piece);
    }

    Chance chance_;
    RandomGameKind kind_;
    Board board_;
    Short longest_;
    int looks_ = 0;
};

TEST(BoardPicture, IsRepaintedWhereverSomethingChanges) {
    int looks = 0;
    const struct {
        std::uint64_t game;
        QSize screen;
        Short moves;
    } rows[] = {{0, {640, 480}, 40}, {1, {640, 480}, 40}, {0, {800, 600}, 20}, {0, {1280, 1024}, 10}};
    for (const auto& row : rows) {
        SCOPED_TRACE(NameOf(row.screen) + " game " + std::to_string(row.game));
        PaintedGame game(row.game, row.screen, row.moves);
        game.Play();
        looks += game.Looks();
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(looks, 800);
}

TEST(BoardPicture, HasRoomForTheLongestNames) {
    for (const QSize screen : screens) {
        Board board({}, screen);
        board.settings.PlayerName.fill("");
        board.scene.ShowTurn(3, 0);  // the name of who plays is set in bold
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

}  // namespace
}  // namespace zorva::test
