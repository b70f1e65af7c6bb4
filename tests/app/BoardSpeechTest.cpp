// What those hear who do not see the board.
#include <gtest/gtest.h>

#include <tuple>

#include <QAccessible>

#include "app/BoardAccessibility.h"
#include "app/CardPainter.h"
#include "app/Guide.h"
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
    EXPECT_EQ(pressable, 4 + 16 + 1);
    EXPECT_NE(ChildNamed("Probabilidades"), nullptr);
    EXPECT_NE(ChildNamed("Registro de jugadas"), nullptr);
    EXPECT_NE(ChildNamed("Grabadora de jugadas"), nullptr);
    EXPECT_EQ(ChildNamed("Una jugada atrás"), nullptr) << "the strip has that key";
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

// The line and the cards on the table.
TEST(BoardGuide, SaysWhatTheGameWaitsForAndWhatWasDoneLast) {
    GameState none, state = test::Position("1:10 0 0 76  2:84 84 84 84  3:60 0 0 0");
    Settings settings, withAna;
    withAna.PlayerName[1] = "Ana";
    withAna.PlayerType[1] = 2;
    withAna.PlayerLevel[2] = 80;
    state.GameInProgress = state.WaitingForThrow = Yes;
    state.CurrentColour = 1;
    const auto with = [&](Short GameState::*field, Short value, Colour colour = 1) {
        GameState other = state;
        other.*field = value;
        other.CurrentColour = colour;
        return other;
    };
    GameState choosing = with(&GameState::WaitingForThrow, No),
              over = with(&GameState::GameInProgress, No, 2);
    const GameState draw = choosing;
    choosing.WaitingForMove = Yes;
    choosing.LegalMoveCount = 3;
    choosing.MoveCount = 12;
    choosing.DieValue = 6;
    GameState runs = draw;
    runs.MoveRecordCount = 1;
    runs.CurrentColour = 3;
    const QString alone = "Juega solo el ordenador: F3 lo cambia.";
    const QString start = "Pulse el botón de los dados para ";
    const std::tuple<GameState, Settings, Short, Prompt> rows[] = {
        {none, settings, -1, {start + "empezar", alone, true}},
        {none, withAna, -1, {start + "empezar", "", true}},
        {over, withAna, -1, {"Azul:\n¡ha ganado!", start + "jugar otra vez.", true, 2}},
        {with(&GameState::WaitingForThrow, No, 2), withAna, -1, {"Azul:\n¡ha ganado!", "", true, 2}},
        {state, withAna, -1, {"Ana:\npulse para tirar", "", true, 1}},
        {with(&GameState::RepeatTurn, Yes),
         withAna,
         -1,
         {"Ana:\nrepite, pulse para tirar", "", true, 1}},
        {state, settings, -1, {"Amarillo:\npulse para que tire", alone, true, 1}},
        {with(&GameState::RepeatTurn, Yes, 3),
         withAna,
         -1,
         {"Rojo:\nrepite, pulse para que tire", "", true, 3}},
        {with(&GameState::ManualMode, Yes),
         withAna,
         -1,
         {"Modo manual:\narrastre una ficha", "El botón derecho o F10 lo dejan.", true}},
        {state, withAna, 7, {"Grabadora:\njugada 7", "Apáguela para seguir jugando.", true}},
        {state,
         withAna,
         0,
         {"Grabadora:\nprincipio de la partida", "Apáguela para seguir jugando.", true}},
        {choosing, withAna, -1, {"Ana:\ncuente 12 con una de las 3 fichas marcadas", "", true, 1}},
        {draw, withAna, -1, {"Sorteo de quién empieza", "", false}},
        {runs, withAna, -1, {"Juega Rojo…", "", false, 3}},
    };
    for (const auto& [game, players, tape, prompt] : rows) {
        const Prompt is = PromptOf(game, players, tape);
        EXPECT_EQ(is, prompt) << qPrintable(is.what + " / " + is.hint);
        for (const QSize screen :
             {QSize(640, 480), QSize(1024, 600), QSize(1024, 768), QSize(1366, 768)}) {
            const Layout layout = LayoutFor(screen.width(), screen.height());
            const QSizeF room(layout.Line.width - 16, layout.Line.height - 10);
            const LineSizes sizes = LineSizesFor(is.what, is.hint, room, layout.Unit);
            EXPECT_GE(sizes.more, 11) << qPrintable(is.hint);
            EXPECT_LE(sizes.above + sizes.below, room.height())
                << qPrintable(is.what) << " at " << screen.width();
        }
    }

    EXPECT_EQ(CardText(choosing, withAna, 1), "Sacó 6.");
    EXPECT_EQ(CardDie(choosing, 1), 6);
    choosing.MoveCount = 20;
    EXPECT_EQ(CardText(choosing, withAna, 1), "Premio de 20.");

    // Each row is what one colour does, one after the other.
    const std::tuple<std::vector<MoveRecord>, QString> turns[] = {
        {{{1, 0, 4, 4, 1, 6, 10, 0, 0, 0, Yes}}, "Sacó 4: de 6 a 10."},
        {{{1, 0, 3, 3, 1, 68, 71, 0, 0, 0, Yes}}, "Sacó 3 y avanzó por su columna."},
        {{{1, 0, 2, 2, 0, 0, 0, 0, 0, 0, Yes}}, "Sacó 2 y no pudo mover."},
        {{{1, 0, 5, 5, 1, 0, 5, 0, 0, 0, Yes}, {1, 0, 5, 5, 2, 0, 5, 0, 0, 0, No}},
         "Sacó 5 y salió con dos fichas."},
        {{{1, 0, 6, 6, 1, 4, 10, 1, 0, 0, Yes}, {1, 0, 6, 12, 1, 10, 22, 2, 0, 0, No}},
         "Sacó 6 y contó 12."},
        {{{1, 0, 6, 6, 1, 60, 0, 0, 0, 0, Yes}}, "Sacó 6 por tercera vez y perdió una ficha."},
        {{{1, 0, 2, 2, 1, 58, 60, 0, 0, 0, Yes},
          {3, 1, 0, 0, 1, 60, 0, 0, 0, 1, No},
          {1, 0, 0, 20, 1, 56, 76, 0, 0, 0, No},
          {1, 0, 0, 10, 0, 0, 0, 0, 0, 0, No}},
         "Sacó 2, capturó a Rojo, contó 20 hasta la meta y no pudo contar 10."},
        {{{3, 1, 0, 0, 2, 0, 40, 0, Yes, 0, Yes}}, "Movió una ficha a mano."},
    };
    EXPECT_EQ(CardText(state, withAna, 1) + LatestThrowText(state, withAna), "");
    for (const auto& [records, text] : turns) {
        for (const MoveRecord& record : records) state.MoveRecords[++state.MoveRecordCount] = record;
        GameState now = state;
        now.MoveRecordCount = ToShort(now.MoveRecordCount + 1);
        EXPECT_EQ(CardText(now, withAna, 1), text);
        EXPECT_EQ(CardDie(now, 1), text.mid(5, 1).toInt());
        EXPECT_EQ(LatestThrowText(now, withAna), "Ana " + text.left(1).toLower() + text.mid(1));
    }

    withAna.PlayerActive[4] = 2;
    withAna.PlayOrder = 1;
    const auto cards = CardsOf(state, withAna, 3);
    ASSERT_EQ(cards.size(), 3U);
    EXPECT_EQ(cards[0], (BoardView::Card{1, "Ana", "Persona", cards[0].last, 1, 208, false, false, "",
                                         cards[0].die}));
    EXPECT_EQ(cards[1], (BoardView::Card{3, "Rojo", "Ordenador, nivel 50", "", 0, 263, true}));
    EXPECT_EQ(cards[2], (BoardView::Card{2, "Azul", "Ordenador, nivel 80", "", 4, 0, false}));

    state.CurrentColour = 2;
    state.GameInProgress = No;
    EXPECT_EQ(OthersText(state, withAna), "En casa: Ana 1, Rojo 0.");
    EXPECT_EQ(PositionText(state, withAna),
              "Azul: ¡Ganó la partida! Ana (Amarillo): 2.º puesto, con 1 ficha en casa. Rojo: 3.º "
              "puesto, sin fichas en casa. No hay ninguna partida en curso. Con F2 empieza una.");
    EXPECT_EQ(CardsOf(state, withAna, 2)[2], (BoardView::Card{2, "Azul", "Ordenador, nivel 80",
                                                              "¡Ganó la partida!", 4, 0, true, true}));
    GameState even = test::Position("1:5 76 0 0  2:84 84 84 84  3:39 92 0 0");
    even.CurrentColour = 2;
    EXPECT_EQ(OutcomeText(even, withAna, 3), "2.º puesto, con 1 ficha en casa.");
    EXPECT_EQ(OutcomeText(even, withAna, 1), OutcomeText(even, withAna, 3));

    const std::pair<Short, QString> levels[] = {{0, "Juega regular"}, {20, "Juega regular"},
                                                {21, "Juega flojo"},  {70, "Juega flojo"},
                                                {71, "Juega fuerte"}, {100, "Juega fuerte"}};
    for (const auto& [level, strength] : levels) EXPECT_EQ(StrengthText(level), strength) << level;
}

}  // namespace
}  // namespace zorva
