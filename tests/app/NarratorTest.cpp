// What players hear while the game goes on.
#include "app/Narrator.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QStringList>
#include <vector>

#include "app/BoardAccessibility.h"
#include "tests/app/BoardWindow.h"
#include "tests/support/RandomGame.h"

namespace zorva {
namespace {

class Narrating : public testing::Test, public test::BoardWindow {
protected:
    static void SetUpTestSuite() { InstallBoardAccessibility(); }

    Narrating() : BoardWindow("1:10 0 0 0  2:40 50 0 0  3:64 0 0 0") {
        QAccessible::setActive(true);
        settings.PlayerType[1] = 2;
        state.GameInProgress = Yes;
        state.CurrentColour = 1;
    }
    void Await(Short GameState::*what) {
        state.*what = Yes;
        narrator.PlayerAwaited();
        state.*what = No;
    }
    void Move(Colour colour, Short die, Short piece, Square from, Square to) {
        narrator.Thrown(colour, die);
        narrator.MoveBegins({colour, 0, die, die, piece, from, to, 0, 0, 0, Yes});
    }

    // The sentences that have appeared in the status bar, the first child of the board that is no
    // control.
    QStringList Heard() {
        QAccessibleInterface* board = QAccessible::queryAccessibleInterface(&mesa);
        int bar = 0;
        while (board->child(bar)->role() != QAccessible::StatusBar) ++bar;
        QStringList heard;
        for (int sentence = 1; sentence < board->child(bar)->childCount(); ++sentence)
            heard << board->child(bar)->child(sentence)->text(QAccessible::Name);
        heard.removeAll(QString());
        return heard;
    }

    Narrator narrator{mesa, state, settings};
};

// The first sentence is spoken at once; the others wait for its end.
TEST_F(Narrating, SumsUpWhatComesFasterThanSpeechUntilAPersonIsAsked) {
    Move(4, 1, 0, 0, 0);
    Move(2, 3, 1, 40, 43);
    Move(3, 2, 0, 0, 0);
    Move(2, 4, 2, 50, 54);
    Move(3, 6, 0, 0, 0);
    Move(2, 4, 1, 60, 64);  // captures
    narrator.MoveBegins({3, 2, 0, 0, 1, 64, 0, 0, 0, 1, No});
    Move(2, 2, 2, 54, 56);
    EXPECT_EQ(Heard(), QStringList("Verde saca 1 y pasa."));
    narrator.Thrown(1, 5);
    state.LegalMoveCount = 2;
    state.DieValue = state.MoveCount = 5;
    Await(&GameState::WaitingForMove);
    narrator.MoveBegins({1, 0, 5, 5, 1, 10, 15, 0, 0, 0, Yes});
    Await(&GameState::WaitingForThrow);
    EXPECT_EQ(Heard(),
              (QStringList{"Verde saca 1 y pasa.",
                           "Azul hace 2 jugadas: ficha 1 a la casilla 43; ficha 2 a la casilla 54. "
                           "Rojo pasa 2 veces. "
                           "Azul saca 4: la ficha 1 va de la casilla 60 a la casilla 64 y come la "
                           "ficha 1 de Rojo. Gana un premio de 20. "
                           "Azul saca 2: la ficha 2 va de la casilla 54 a la casilla 56. "
                           "Amarillo saca 5. Elija una ficha: puede mover 2.",
                           "La ficha 1 de Amarillo va de la casilla 10 a la casilla 15. "
                           "Turno de Amarillo: puede tirar el dado."}));
}

TEST_F(Narrating, TellsTheDrawTheThirdSixTheAdviceAndTheTape) {
    narrator.TurnShown(TurnIs::InDraw);
    narrator.Thrown(3, 6);
    narrator.TurnShown(TurnIs::Throws);
    narrator.Thrown(3, 6);
    narrator.MessageComes();  // about the third six, for example
    narrator.MoveShown();     // the move about to be made, which is told when it is made
    state.BestPiece = 1;
    state.BestFrom = 10;
    state.BestTo = 64;
    state.WaitingForMove = Yes;
    narrator.MoveShown();  // by the tutor
    state.LegalMoveCount = 2;
    narrator.PlayerAwaited();
    narrator.MoveShown();  // on request
    state.WaitingForMove = No;
    state.MoveRecordCount = 3;
    state.MoveRecords[2] = {3, 0, 5, 5, 1, 59, 64, 0, 0, 0, Yes};
    narrator.PlayerAwaited();  // the position from which the recorder starts
    for (const Short position : {2, 1, 2, 3}) {
        state.MoveRecordCount = position;
        narrator.TurnShown(TurnIs::OnTape);
    }
    narrator.KeyPressed();
    const QString advice =
        "Consejo: la ficha 1 va de la casilla 10 a la casilla 64 y come la ficha 1 de Rojo.";
    EXPECT_EQ(
        Heard(),
        (QStringList{"Rojo saca 6.", "Rojo saca 6.", "Elija una ficha: puede mover 2. " + advice, advice,
                     "Jugada 2. Rojo saca 5: la ficha 1 va de la casilla 59 a la casilla 64. "
                     "Turno de Amarillo."}));
}

TEST_F(Narrating, CostsNothingWithoutAReader) {
    QAccessible::setActive(false);
    Move(2, 3, 1, 40, 43);
    narrator.SayNow("Modo manual.");
    QAccessible::setActive(true);
    Await(&GameState::WaitingForThrow);
    EXPECT_EQ(Heard(), QStringList("Turno de Amarillo: puede tirar el dado."));
}

// What is foretold from the board is what the records tell afterwards.
TEST(ToldMoves, AreTheSameBeforeAndAfter) {
    int captures = 0;
    int bonuses = 0;
    for (std::uint64_t number = 0; number < 60; ++number) {
        test::RandomGame game(3, number, 400);
        std::vector<ToldMove> foretold(1);
        game.beforeRecord = [&](const MoveRecord& record) {
            foretold.push_back(ToldMove::AboutToBeMade(game.state, record));
        };
        game.Play();
        const bool isWon = game.state.PiecesHome[game.state.CurrentColour] == PiecesPerColour;
        for (Short move = 1; move <= ToShort(game.logged - isWon); ++move) {
            const ToldMove made = ToldMove::Made(game.state, move);
            ASSERT_EQ(foretold[move].captured, made.captured) << "game " << number << ", move " << move;
            ASSERT_EQ(foretold[move].bonus, made.bonus) << "game " << number << ", move " << move;
            captures += made.captured != 0;
            bonuses += made.bonus != 0;
        }
    }
    EXPECT_GT(captures, 300);
    EXPECT_GT(bonuses, captures);
}

}  // namespace
}  // namespace zorva
