// What those hear who do not see the board.
#include <gtest/gtest.h>

#include <tuple>

#include <QAccessible>

#include "app/BoardAccessibility.h"
#include "app/BoardReading.h"
#include "tests/app/BoardWindow.h"

namespace zorva {
namespace {

TEST(BoardSpeech, SaysWhereEverythingIs) {
    GameState state = test::Position("1:5 76 70 0  2:5 0 0 0");
    Settings settings;
    settings.PlayerName[2] = "Ana";
    MoveRecord walk{1, 0, 6, 12, 2, 63, 75, 1, 0, 0, Yes};
    MoveRecord home{2, 1, 0, 0, 1, 5, 0, 0, 0, 1, No};
    MoveRecord pass{3, 0, 2, 2, 0, 0, 0, 0, 0, 0, Yes};
    MoveRecord inBox{4, 0, 6, 6, 1, 0, 0, 0, 0, 0, Yes};
    MoveRecord byHand{4, 0, 0, 0, 3, 0, 56, 0, Yes, 0, Yes};
    const std::tuple<const char*, QString, const char*> rows[] = {
        {"a piece on the ring", PieceText(state, settings, 11), "Ficha 1 de Amarillo, casilla 5"},
        {"a piece in its column", PieceText(state, settings, 13),
         "Ficha 3 de Amarillo, columna, casilla 2"},
        {"a player's own name", PieceText(state, settings, 22),
         "Ficha 2 de Ana (Azul), en el cuadro de espera"},
        {"a safe square shared", SquareText(state, settings, 5),
         "Casilla 5, segura: ficha 1 de Amarillo, ficha 1 de Ana (Azul)"},
        {"the last column square", SquareText(state, settings, 99),
         "Columna del verde, casilla 7: libre"},
        {"a goal", SquareText(state, settings, 76), "Meta del amarillo: ficha 2 de Amarillo"},
        {"a walk", MoveText(settings, walk), "Amarillo cuenta 12 con la ficha 2: columna, casilla 7"},
        {"a captured piece", MoveText(settings, home), "La ficha 1 de Ana (Azul) vuelve a espera"},
        {"no game", TurnText(state, settings), "No hay ninguna partida en curso"},
        {"a pass", MoveText(settings, pass), "Rojo pasa"},
        {"a penalty in the box", MoveText(settings, inBox), "Verde pasa"},
        {"a displacement", MoveText(settings, byHand),
         "La ficha 3 de Verde se coloca a mano: casilla 56"},
    };
    for (const auto& [what, said, expected] : rows) EXPECT_EQ(said, QString(expected)) << what;
}

class SpokenBoard : public testing::Test, public test::BoardWindow {
protected:
    static void SetUpTestSuite() {
        InstallBoardAccessibility();
        QAccessible::setActive(true);
    }

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

TEST_F(SpokenBoard, PressesAPieceWhereItStandsAndTellsTheLatestNews) {
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
    Announce(mesa, "Rojo pasa");
    EXPECT_NE(ChildNamed("Rojo pasa"), nullptr);
}

}  // namespace
}  // namespace zorva
