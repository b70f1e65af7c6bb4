#include "app/BoardInput.h"

#include <gtest/gtest.h>

#include <tuple>

#include <QApplication>
#include <QDialog>
#include <QMouseEvent>

#include "tests/app/BoardWindow.h"

namespace zorva::test {
namespace {

/// Yellow is on turn: its pieces stand on 10 and 30, one on its goal and one in its box. A piece of blue
/// is in its column.
class OnTheBoard : public testing::Test, public BoardWindow {
protected:
    OnTheBoard() : BoardWindow("1:10 30 76 0  2:40 80 0 0  3:60 60 0 0") {
        state.GameInProgress = Yes;
        state.CurrentColour = 1;
        state.MoveCount = 3;
        settings.PlayerType[1] = 2;
        mesa.BoardPressed = [this](Point at, Qt::MouseButton button) { input.Press(at, button); };
        mesa.BoardMoved = [this](Point at) { input.Move(at); };
        mesa.BoardReleased = [this](Point at, bool onBoard) { input.Release(at, onBoard); };
        mesa.BoardPressLost = [this] { input.LosePress(); };
        mesa.BoardLeft = [this] { input.BreakOff(); };
        mesa.Shared().Say = [this](const QString& sentence) { said << sentence; };
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

    void Keys(const std::vector<int>& keys) {
        for (const int key : keys) {
            if (!input.ManualKey(key)) Key(key, key < 128 ? "a" : "");
        }
    }

    QCursor Named(const char* name) { return mesa.Shared().cursors.Named(name); }

    QStringList said;
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
    input.PointAt(1);
    EXPECT_EQ(View().preview.piece, 11) << "another window points at it";
    input.PointAt(0);
    EXPECT_EQ(View().marked, 12);
    EXPECT_EQ(View().preview.piece, 12);
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
    EXPECT_TRUE(View().IsMovable(11) && View().IsMovable(12));
    EXPECT_FALSE(View().IsMovable(13) || View().IsMovable(21));
    EXPECT_EQ(View().choices.at(0).to, 13);
    input.Move(PlaceOf(11));
    EXPECT_EQ(View().preview.piece, 11);
    EXPECT_EQ(View().preview.to, 13);
    EXPECT_EQ(input.CursorAt(PlaceOf(11)), Named("ManoCeAm"));
    EXPECT_EQ(input.CursorAt(PlaceOfSquare(50)).shape(), Qt::ArrowCursor);
    input.Move(PlaceOfSquare(50));
    EXPECT_EQ(View().preview.piece, 0);
    state.WaitingForMove = No;
    input.ShowWhatCanBePicked();
    EXPECT_FALSE(View().IsMovable(11));
    AwaitThrow();
    EXPECT_EQ(input.CursorAt(PlaceOfSquare(50)), Named("DadoAmar"));
    recorder.RecorderOn = Yes;
    EXPECT_EQ(input.CursorAt(PlaceOfSquare(50)).shape(), Qt::ArrowCursor);
}

TEST_F(OnTheBoard, TheRightButtonTurnsManualModeOnAndOff) {
    AwaitThrow();
    Click(PlaceOfSquare(50), Qt::RightButton);
    EXPECT_EQ(state.ManualMode, Yes);
    EXPECT_TRUE(View().line.what.startsWith("Modo manual"));
    Click(PlaceOfSquare(50));
    EXPECT_EQ(state.WaitingForThrow, Yes) << "in manual mode a click does not throw";
    Click(PlaceOfSquare(50), Qt::RightButton);
    EXPECT_EQ(state.ManualMode, No);
    EXPECT_EQ(View().line.what, "Amarillo:\npulse para tirar");
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

TEST_F(OnTheBoard, KeysShiftAPieceByHandAndSayWhatTheyDo) {
    AwaitThrow();
    for (const auto& [keys, last, square] : std::vector<std::tuple<std::vector<int>, QString, Square>>{
             {{Qt::Key_F10}, "Modo manual. Elija una ficha con el tabulador.", 10},
             {{Qt::Key_Tab, Qt::Key_Right, Qt::Key_Down},
              "Ficha 4 de Amarillo, en el cuadro de espera.",
              10},
             {{Qt::Key_Left, Qt::Key_Backtab}, "Ficha 1 de Amarillo, casilla 10.", 10},
             {{Qt::Key_Up}, "Ficha 4 de Verde, en el cuadro de espera.", 10},
             {{Qt::Key_Tab}, "Ficha 1 de Amarillo, casilla 10.", 10},
             {{Qt::Key_Return}, "Ficha 1 de Amarillo levantada. Elija la casilla con las flechas.", 10},
             {{Qt::Key_Down, Qt::Key_Right}, "Casilla 12, segura: libre.", 12},
             {{Qt::Key_Home, Qt::Key_Left}, "Cuadro de espera.", 0},
             {{Qt::Key_Tab}, "Casilla 5, segura: libre.", 5},
             {{Qt::Key_End, Qt::Key_Tab}, "Meta del amarillo: ficha 3 de Amarillo.", 76},
             {{Qt::Key_Up, Qt::Key_Backtab}, "Columna del amarillo, casilla 6: libre.", 74},
             {{Qt::Key_PageUp, Qt::Key_PageUp}, "Casilla 53: libre.", 53},  // past the barrier on 60
             {{Qt::Key_PageUp, Qt::Key_PageUp}, "Casilla 32: libre.", 32},  // and past the rival on 40
             {{Qt::Key_Left, Qt::Key_Left}, "Casilla 30: ficha 2 de Amarillo.", 30},
         }) {
        Keys(keys);
        EXPECT_EQ(said.last(), last);
        const Point beside = square == 30 ? layout.SlotPosition(30, 2) : PlaceOfSquare(square + !square);
        const Point place = square == 0    ? layout.BoxPosition(1, 1)
                            : square == 76 ? layout.SlotPosition(76, 2)
                                           : beside;
        EXPECT_EQ(View().at[11], AsPointF(place)) << last.toStdString();
    }
    EXPECT_EQ(View().marked, 11);
    EXPECT_GT(View().height[11], 0);
    Keys({Qt::Key_Space});
    EXPECT_EQ(sounds, (std::vector<Sound>(2, Sound::MoveByHand)));
    EXPECT_EQ(std::tuple(state.ManualShiftMade, state.CurrentColour, state.MovePiece, state.MoveTo),
              std::tuple(Yes, 1, 1, 30));
    EXPECT_EQ(state.WaitingForThrow, No);
    input.ShowWhatCanBePicked();
    EXPECT_EQ(View().marked, 0);
}

TEST_F(OnTheBoard, APieceLiftedByKeyIsPutBackByWhateverComesBetween) {
    const char* const back = "La ficha vuelve a la casilla 10.";
    const char* const over = "Modo manual terminado.";
    const std::tuple<const char*, std::function<void()>, const char*> ways[] = {
        {"a mouse press", [&] { Press(PlaceOfSquare(50)); }, back},
        {"a dialog", [&] { QDialog(&mesa).open(); }, back},
        {"another window",
         [&] { QCoreApplication::postEvent(&mesa, new QEvent(QEvent::WindowDeactivate)); }, back},
        {"the board is hidden", [&] { mesa.hide(); }, back},
        {"another screen", [&] { mesa.resize(800, 600); }, back},
        {"it is put down there",
         [&] {
             Keys({Qt::Key_Left, Qt::Key_Return});
         },
         back},
        {"Escape", [&] { Keys({Qt::Key_Escape}); }, back},
        {"the menu key", [&] { Keys({Qt::Key_Menu}); }, over},
        {"a letter", [&] { Keys({Qt::Key_A}); }, over},
    };
    for (const auto& [name, act, last] : ways) {
        SCOPED_TRACE(name);
        AwaitThrow();
        mesa.show();
        if (!state.ManualMode) Keys({Qt::Key_F10});
        EXPECT_FALSE(input.ManualKey(Qt::Key_Home)) << "nothing is lifted yet";
        for (int times = 0; times < 16 && View().marked != 11; ++times) Keys({Qt::Key_Tab});
        Keys({Qt::Key_Space, Qt::Key_Right});
        Move(PlaceOfSquare(50), Qt::NoButton);
        input.LosePress();  // as each key does
        EXPECT_EQ(View().inAir, 11);
        act();
        QCoreApplication::sendPostedEvents(&mesa);
        EXPECT_EQ(said.last(), last);
        EXPECT_EQ(said.count(back), 1);
        EXPECT_EQ(View().inAir, 0);
        EXPECT_EQ(View().at[11], AsPointF(PlaceOf(11)));
        EXPECT_EQ(View().marked, last == over ? 0 : 11);
        EXPECT_EQ(state.ManualMode, last == over ? No : Yes);
        EXPECT_EQ(std::pair(state.WaitingForThrow, state.ManualShiftMade), std::pair(Yes, No));
        EXPECT_FALSE(mesa.isMinimized());
        said.clear();
    }
    Keys({Qt::Key_F10, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape});
    EXPECT_EQ(said.last(), "La ficha vuelve al cuadro de espera.");
    for (int times = 0; times < 5; ++times) Keys({Qt::Key_Tab});
    Keys({Qt::Key_Return, Qt::Key_F10});
    EXPECT_EQ(said.mid(said.size() - 2),
              QStringList({"La ficha vuelve a la casilla 4 de su columna.", over}));
    for (const bool recorded : {true, false}) {
        state.WaitingForThrow = recorder.RecorderOn = recorded ? Yes : No;
        Keys({Qt::Key_F10, Qt::Key_Tab, Qt::Key_Space});
        EXPECT_EQ(state.ManualMode, No);
        EXPECT_TRUE(said.last().startsWith("El modo manual se activa solo cuando"))
            << said.last().toStdString();
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
