#include "app/BoardInput.h"

#include <gtest/gtest.h>

#include <tuple>

#include <QApplication>
#include <QDialog>
#include <QMouseEvent>

#include "tests/app/BoardWindow.h"

namespace zorva::test {
namespace {

/// Yellow is on turn: its pieces stand on 10 and 30, one on its goal and one in its box.
class OnTheBoard : public testing::Test, public BoardWindow {
protected:
    OnTheBoard() : BoardWindow("1:10 30 76 0  2:40 0 0 0  3:60 60 0 0") {
        state.GameInProgress = Yes;
        state.CurrentColour = 1;
        state.MoveCount = 3;
        settings.PlayerType[1] = 2;
        mesa.BoardPressed = [this](Point at, Qt::MouseButton button) { input.Press(at, button); };
        mesa.BoardMoved = [this](Point at) { input.Move(at); };
        mesa.BoardReleased = [this](Point at, bool onBoard) { input.Release(at, onBoard); };
        mesa.BoardPressLost = [this] { input.LosePress(); };
    }

    void AwaitThrow() { state.WaitingForThrow = Yes; }
    // Pieces 1 and 2 may be picked; the advice is to move piece 2.
    void AwaitMove() {
        state.WaitingForMove = Yes;
        state.MovablePieces = {0, Yes, Yes, No, No};
        state.LegalMoveCount = 2;
        state.BestPiece = 2;
        state.BestFrom = 30;
        state.BestTo = 33;
        input.ShowWhatCanBePicked();
    }

    // From the first press to the last release, Qt sends everything to the widget that was pressed.
    void Mouse(QEvent::Type type, Point at, Qt::MouseButton button, Qt::MouseButtons held, QWidget& to) {
        const QPointF place = AsPointF(at);
        QMouseEvent event(type, to.mapFrom(&mesa, place), mesa.mapToGlobal(place), button, held, {});
        QApplication::sendEvent(&to, &event);
    }
    void Press(Point at, Qt::MouseButton button = Qt::LeftButton, Qt::MouseButtons others = {}) {
        Mouse(QEvent::MouseButtonPress, at, button, button | others, mesa);
    }
    void Move(Point to, Qt::MouseButtons held = Qt::LeftButton) {
        Mouse(QEvent::MouseMove, to, Qt::NoButton, held, mesa);
    }
    void Release(Point at, Qt::MouseButton button = Qt::LeftButton) {
        Mouse(QEvent::MouseButtonRelease, at, button, {}, mesa);
    }
    void Click(Point at, Qt::MouseButton button = Qt::LeftButton) {
        Press(at, button);
        Release(at, button);
    }
    void Drag(PieceCode piece, Point to) {
        Press(PlaceOf(piece));
        Move(to);
        Release(to);
    }

    void Key(int key, const char* text = "") {
        input.PlainKey(QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
    }

    QCursor Named(const char* name) { return mesa.Shared().cursors.Named(name); }

    RecorderState recorder;
    BoardInput input{state, settings, recorder, mesa};
};

TEST_F(OnTheBoard, AClickThrowsOnlyWhileAThrowIsAwaited) {
    Click(PlaceOf(11));
    EXPECT_EQ(state.MovePiece, 0) << "nothing is awaited";
    AwaitThrow();
    recorder.RecorderOn = Yes;
    Click(PlaceOfSquare(50));
    EXPECT_EQ(state.WaitingForThrow, Yes) << "the recorder is on";
    recorder.RecorderOn = No;
    Release(PlaceOfSquare(50));
    EXPECT_EQ(state.WaitingForThrow, Yes) << "nothing was pressed";
    Press(PlaceOfSquare(50));
    Release({-5, 300});
    EXPECT_EQ(state.WaitingForThrow, Yes) << "released outside the window";
    Click(PlaceOfSquare(50));
    EXPECT_EQ(state.WaitingForThrow, No);
}

TEST_F(OnTheBoard, APressThatIsLostPutsThePieceBackAndDoesNothingMore) {
    const Point there = PlaceOfSquare(20);
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"a second button", [&] { Press(there, Qt::RightButton, Qt::LeftButton); }},
        {"the release went elsewhere", [&] { Move(there, Qt::NoButton); }},
        {"a dialog opens", [&] { QDialog(&mesa).open(); }},
        {"another window gets the keyboard",
         [&] { QCoreApplication::postEvent(&mesa, new QEvent(QEvent::WindowDeactivate)); }},
        {"the board is hidden", [&] { mesa.setVisible(false); }},
    };
    for (const bool manual : {false, true}) {
        for (const auto& [name, lose] : ways) {
            SCOPED_TRACE(name);
            AwaitThrow();
            state.ManualMode = manual ? Yes : No;
            mesa.show();
            sounds.clear();
            Press(PlaceOf(11));
            Move(there);
            EXPECT_EQ(View().inAir, manual ? 11 : 0);
            lose();
            QCoreApplication::sendPostedEvents(&mesa);
            EXPECT_EQ(View().inAir, 0);
            EXPECT_EQ(View().at[11], AsPointF(PlaceOf(11)));
            Release(there, Qt::RightButton);
            Release(there);
            EXPECT_EQ(state.ManualMode, manual ? Yes : No);
            EXPECT_EQ(state.ManualShiftMade, No);
            EXPECT_EQ(sounds.size(), manual ? 1u : 0u);
            EXPECT_EQ(state.WaitingForThrow, Yes);
        }
    }
    Press(PlaceOf(11));
    Move(there);
    Press(PlaceOf(12));  // the release was lost, and the mouse has not moved since
    EXPECT_EQ(View().inAir, 12);
    EXPECT_EQ(View().at[11], AsPointF(PlaceOf(11)));
}

TEST_F(OnTheBoard, AClickPicksAPieceThatMayMove) {
    const std::tuple<const char*, PieceCode, Qt::MouseButton, bool, Short> rows[] = {
        {"a piece that may move", 11, Qt::LeftButton, true, 1},
        {"one on its goal", 13, Qt::LeftButton, true, 0},
        {"another colour's", 21, Qt::LeftButton, true, 0},
        {"with the right button", 11, Qt::RightButton, true, 0},
        {"where the computer plays", 11, Qt::LeftButton, false, 0},
    };
    for (const auto& [name, piece, button, person, picked] : rows) {
        SCOPED_TRACE(name);
        settings.PlayerType[1] = person ? 2 : 1;
        AwaitMove();
        state.MovePiece = state.MoveTo = 0;
        mesa.Scene().ShowMove({});
        Click(PlaceOf(piece), button);
        EXPECT_EQ(state.MovePiece, picked);
        EXPECT_EQ(state.WaitingForMove, picked != 0 ? No : Yes);
        EXPECT_EQ(state.MoveTo, picked != 0 ? 13 : 0);
        EXPECT_EQ(View().shown.piece, picked != 0 ? 11 : 0);
    }
}

TEST_F(OnTheBoard, KeysThrowAcceptAndMark) {
    AwaitThrow();
    Key(Qt::Key_I, "i");
    EXPECT_EQ(state.WaitingForThrow, Yes) << "i is no key of the game";
    Key(Qt::Key_Space, " ");
    EXPECT_EQ(state.WaitingForThrow, No);
    AwaitMove();
    Key(Qt::Key_A, "a");
    EXPECT_EQ(state.MovePiece, 2) << "any key takes the advised move";
    AwaitMove();
    input.MarkNext(-1);
    EXPECT_EQ(View().marked, 12);
    EXPECT_EQ(View().preview.to, 33);
    input.MarkNext(-1);
    input.MarkNext(-1);
    EXPECT_EQ(View().marked, 12) << "round and round";
    input.MarkNext(1);
    EXPECT_EQ(View().marked, 11);
    Key(Qt::Key_Return);
    EXPECT_EQ(state.MovePiece, 1) << "Enter takes the marked one";
    AwaitMove();
    EXPECT_EQ(View().marked, 0);
    Key(Qt::Key_Return);
    EXPECT_EQ(state.MovePiece, 2) << "and the advised one when none is marked";
    for (const auto& [key, text] : {std::pair{Qt::Key_Escape, "\x1b"}, {Qt::Key_Q, "q"}}) {
        mesa.showNormal();
        Key(key, text);
        EXPECT_TRUE(mesa.isMinimized()) << text;
    }
}

TEST_F(OnTheBoard, ShowsWhatCanBePickedAndWhereItWouldGo) {
    AwaitMove();
    EXPECT_TRUE(View().movable[11] && View().movable[12]);
    EXPECT_FALSE(View().movable[13] || View().movable[21]);
    input.Move(PlaceOf(11));
    EXPECT_EQ(View().preview.piece, 11);
    EXPECT_EQ(View().preview.to, 13);
    EXPECT_EQ(input.CursorAt(PlaceOf(11)), Named("ManoCeAm"));
    EXPECT_EQ(input.CursorAt(PlaceOfSquare(50)).shape(), Qt::ArrowCursor);
    input.Move(PlaceOfSquare(50));
    EXPECT_EQ(View().preview.piece, 0);
    state.WaitingForMove = No;
    input.ShowWhatCanBePicked();
    EXPECT_FALSE(View().movable[11]);
    AwaitThrow();
    EXPECT_EQ(input.CursorAt(PlaceOfSquare(50)), Named("DadoAmar"));
    recorder.RecorderOn = Yes;
    EXPECT_EQ(input.CursorAt(PlaceOfSquare(50)).shape(), Qt::ArrowCursor);
}

TEST_F(OnTheBoard, TheRightButtonTurnsManualModeOnAndOff) {
    AwaitThrow();
    Click(PlaceOfSquare(50), Qt::RightButton);
    EXPECT_EQ(state.ManualMode, Yes);
    EXPECT_TRUE(View().manualMode);
    Click(PlaceOfSquare(50));
    EXPECT_EQ(state.WaitingForThrow, Yes) << "in manual mode a click does not throw";
    Click(PlaceOfSquare(50), Qt::RightButton);
    EXPECT_EQ(state.ManualMode, No);
    EXPECT_FALSE(View().manualMode);
    Click(PlaceOfSquare(50), Qt::RightButton);
    Key(Qt::Key_Space, " ");
    EXPECT_EQ(state.ManualMode, No) << "a key leaves manual mode";
    EXPECT_EQ(state.WaitingForThrow, Yes) << "and does not throw";
}

TEST_F(OnTheBoard, APieceIsDroppedWhereItMayStandAndGlidesBackElsewhere) {
    constexpr Sound byHand = Sound::MoveByHand, refusal = Sound::Refusal;
    const Point ownBox = layout.House(1).Centre(), otherBox = layout.House(2).Centre();
    const std::tuple<const char*, PieceCode, Point, bool, Square, std::vector<Sound>> rows[] = {
        {"a free square", 11, PlaceOfSquare(20), true, 20, {byHand, byHand}},
        {"its own box", 11, ownBox, true, 0, {byHand, byHand}},
        {"another box", 11, otherBox, false, 0, {byHand, refusal}},
        {"a full square", 11, PlaceOfSquare(60), false, 0, {byHand, refusal}},
        {"off the board", 11, {5, 5}, false, 0, {byHand, refusal}},
        {"where it stood", 11, PlaceOfSquare(10), false, 0, {byHand, byHand}},
        {"a piece on its goal stays there", 13, PlaceOfSquare(20), false, 0, {}},
        {"another colour's piece", 21, PlaceOfSquare(45), true, 45, {byHand, byHand}},
    };
    for (const auto& [name, piece, to, accepted, square, heard] : rows) {
        SCOPED_TRACE(name);
        AwaitThrow();
        state.CurrentColour = 1;
        state.ManualShiftMade = state.ManualMode = No;
        Click(PlaceOfSquare(50), Qt::RightButton);
        sounds.clear();
        Drag(piece, to);
        EXPECT_EQ(sounds, heard);
        EXPECT_EQ(state.ManualShiftMade, accepted ? Yes : No);
        EXPECT_EQ(state.WaitingForThrow, accepted ? No : Yes);
        EXPECT_EQ(View().manualMode, !accepted);
        if (accepted) {
            EXPECT_EQ(CodeOf(state.CurrentColour, state.MovePiece), piece);
            EXPECT_EQ(state.MoveTo, square);
        } else {
            EXPECT_EQ(View().inAir, 0);
            EXPECT_EQ(View().at[piece], AsPointF(PlaceOf(piece)));
        }
        mesa.Scene().Refresh();
    }
}

TEST_F(OnTheBoard, TheHandShowsWhetherAPieceMayBeDropped) {
    AwaitThrow();
    Click(PlaceOfSquare(50), Qt::RightButton);
    EXPECT_EQ(input.CursorAt(PlaceOf(11)), Named("ManoAbie"));
    EXPECT_EQ(input.CursorAt(PlaceOf(13)), Named("ManoBlan"));
    Press(PlaceOf(11));
    EXPECT_EQ(input.CursorAt(PlaceOfSquare(20)), Named("ManoVerde"));
    EXPECT_EQ(input.CursorAt(PlaceOfSquare(60)), Named("ManoRoja"));
    EXPECT_EQ(input.CursorAt(PlaceOf(11)), Named("ManoVerde")) << "put back where it stood";
}

}  // namespace
}  // namespace zorva::test
