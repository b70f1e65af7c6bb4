// What those hear who do not see the board.
#include <gtest/gtest.h>

#include <tuple>

#include <QAccessible>

#include "app/BoardAccessibility.h"
#include "app/Sentences.h"
#include "tests/app/BoardWindow.h"

namespace zorva {
namespace {

// What is said during a game is heard in tests/window/test_reader.py.
TEST(BoardSpeech, SaysWhereEverythingIs) {
    GameState state = test::Position("1:5 76 70 0  2:5 0 0 0  3:64 0 0 0  4:100 56 56 0");
    state.CurrentColour = 1;
    state.GameInProgress = Yes;
    Settings settings;
    settings.PlayerName[2] = "Ana";
    const MoveRecord thirdSix{4, 0, 6, 12, 1, 60, 0, 0, 0, 0, Yes};
    GameState choosing = state;
    choosing.WaitingForMove = choosing.MovablePieces[1] = choosing.MovablePieces[4] = Yes;
    choosing.MoveCount = choosing.DieValue = 5;
    const std::tuple<QString, const char*> rows[] = {
        {PieceText(state, settings, 11), "Ficha 1 de Amarillo, casilla 5"},
        {PieceText(state, settings, 13), "Ficha 3 de Amarillo, casilla 2 de su columna"},
        {PieceText(state, settings, 22), "Ficha 2 de Ana (Azul), en el cuadro de espera"},
        {SquareText(state, settings, 5),
         "Casilla 5, segura: ficha 1 de Amarillo, ficha 1 de Ana (Azul)"},
        {SquareText(state, settings, 99), "Columna del verde, casilla 7: libre"},
        {SquareText(state, settings, 76), "Meta del amarillo: ficha 2 de Amarillo"},
        {MoveText(settings, {thirdSix}),
         "Verde saca 6 por tercera vez: la ficha 1 vuelve de la casilla 60 al cuadro de espera."},
        {TurnText(GameState{}, settings), "No hay ninguna partida en curso. Con F2 empieza una."},
        {ChoiceText(choosing, settings, 4),
         "Ficha 4, en el cuadro de espera: sale a la casilla 5 y come la ficha 1 de Ana (Azul)."},
        {ChoiceText(choosing, settings, 2), "Ficha 2, en la meta: no puede mover."},
        {PositionText(state, settings),
         "Turno de Amarillo. Amarillo: ficha 1 en la casilla 5; ficha 2 en la meta; ficha 3 en la "
         "casilla "
         "2 de su columna; ficha 4 en el cuadro de espera. Ana (Azul): ficha 1 en la casilla 5; fichas "
         "2, "
         "3 y 4 en el cuadro de espera. Rojo: ficha 1 en la casilla 64; fichas 2, 3 y 4 en el cuadro de "
         "espera. Verde: ficha 1 en la meta; fichas 2 y 3 en la casilla 56; ficha 4 en el cuadro "
         "de "
         "espera."},
    };
    for (const auto& [said, expected] : rows) EXPECT_EQ(said.toStdString(), expected);
}

class SpokenBoard : public testing::Test, public test::BoardWindow {
protected:
    static void SetUpTestSuite() { InstallBoardAccessibility(); }

    SpokenBoard() : BoardWindow("1:5 0 0 0") { board_ = QAccessible::queryAccessibleInterface(&mesa); }

    QAccessibleInterface* ChildNamed(const QString& start) const {
        for (int index = 0; index < board_->childCount(); ++index) {
            QAccessibleInterface* child = board_->child(index);
            if (child->text(QAccessible::Name).startsWith(start)) return child;
        }
        return nullptr;
    }

    QAccessibleInterface* board_ = nullptr;
};

TEST_F(SpokenBoard, HoldsControlsDicePiecesAndSquares) {
    ASSERT_NE(board_, nullptr);
    int squares = 0;
    int pressable = 0;
    for (int index = 0; index < board_->childCount(); ++index) {
        QAccessibleInterface* child = board_->child(index);
        ASSERT_NE(child, nullptr) << index;
        EXPECT_EQ(board_->indexOfChild(child), index);
        if (child->role() == QAccessible::Cell) ++squares;
        if (child->role() == QAccessible::PushButton && child->actionInterface() != nullptr) ++pressable;
        if (child->object() == nullptr) {
            EXPECT_FALSE(child->text(QAccessible::Name).isEmpty()) << index;
            EXPECT_TRUE(board_->rect().contains(child->rect())) << index;
        }
    }
    EXPECT_EQ(squares, 100);
    EXPECT_EQ(pressable, 4 + 16);
    EXPECT_NE(ChildNamed("Registro de jugadas"), nullptr);
    EXPECT_NE(ChildNamed("Grabadora de jugadas"), nullptr);
}

TEST_F(SpokenBoard, PressesAPieceWhereItStands) {
    Point pressed, released;
    mesa.BoardPressed = [&pressed](Point at, Qt::MouseButton) { pressed = at; };
    mesa.BoardReleased = [&released](Point at, bool) { released = at; };
    QAccessibleInterface* piece = ChildNamed("Ficha 1 de Amarillo");
    ASSERT_NE(piece, nullptr);
    piece->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(pressed, PlaceOfSquare(5));
    EXPECT_EQ(released, pressed);
    EXPECT_TRUE(piece->rect().contains(mesa.mapToGlobal(QPoint(pressed.x, pressed.y))));
    EXPECT_TRUE(piece->state().disabled) << "no move is awaited";
}

}  // namespace
}  // namespace zorva
