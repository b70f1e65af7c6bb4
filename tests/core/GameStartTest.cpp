#include "core/GameStart.h"

#include <gtest/gtest.h>

#include "tests/support/NotingOutside.h"
#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

constexpr const char* question =
    "message Comienza la Partida|Se va a tirar el dado para elegir el jugador que comienza la partida. "
    "Pulse Aceptar para comenzar el sorteo o  Cancelar\nsi desea cambiar algún parámetro  antes  de  "
    "comenzar  la partida.|4 yes/no";
constexpr const char* tie = "message Sorteo del jugador que comienza|Hay empate y se va a desempatar|1";

struct Row {
    const char* name;
    PerColour<Short> active;
    std::vector<Short> throws;
    // Who is shown on turn: 0 nobody, then each that throws, last the winner. A blank is the wait before
    // the throws, = the message about a tie.
    const char* turns;
};

TEST(Draw, IsWonByTheHighestThrowAfterAllTies) {
    const Row rows[] = {
        {"the highest begins", {0, 1, 1, 1, 1}, {2, 5, 3, 4}, "0 12342"},
        {"who takes no part does not throw", {0, 1, 2, 1, 2}, {2, 3}, "0 133"},
        {"one alone begins", {0, 2, 2, 2, 1}, {1}, "0 44"},
        {"none switched on: all play", {0, 2, 2, 2, 2}, {2, 5, 3, 4}, "0 12342"},
        {"the tied alone throw again", {0, 1, 1, 1, 1}, {6, 3, 6, 5, 1, 2}, "0 12340= 133"},
        {"three tied, then two", {0, 1, 1, 1, 1}, {6, 3, 6, 6, 2, 5, 5, 4, 1}, "0 12340= 1340= 343"},
    };
    for (const Row& row : rows) {
        Settings settings;
        settings.PlayerActive = row.active;
        GameState state;
        state.GameInProgress = Yes;
        NotingOutside outside(state, row.throws);
        DrawFirstPlayer({state, settings, outside});
        std::string turns;
        for (const std::string& note : outside.Only({"turn", "pause", "message"})) {
            if (note == "pause 90") turns += ' ';
            if (note == tie) turns += '=';
            if (note.starts_with("turn")) turns += note[5];
        }
        EXPECT_EQ(turns, row.turns) << row.name;
    }
}

TEST(Draw, EndsWhenTheGameIsAbandonedInTheMessageAboutATie) {
    GameState state;
    state.GameInProgress = Yes;
    NotingOutside outside(state, {4, 4, 4, 4});
    outside.abandonsInMessage = true;
    DrawFirstPlayer({state, Settings{}, outside});
    EXPECT_EQ(outside.All().back(), tie);
}

TEST(NewGame, SeatsThePiecesAsksAndAnnouncesWhoBegins) {
    Settings settings;
    settings.PlayerActive = {0, 2, 1, 2, 2};
    settings.PlayerName[2] = "  Ana ";
    GameState state = Position("2:84 84 84 0  3:40 0 0 0");
    state.GameInProgress = Yes;
    state.SixesInRow = 2;
    state.MoveRecordCount = 7;
    NotingOutside outside(state, {4});
    // The throw of the draw is the only one: the game stops where its first throw would be awaited.
    EXPECT_EQ(StartGame({state, settings, outside}), StartOutcome::Played);
    Notes wanted{"log Inicio de la partida", "clear", "empty"};
    for (const char* piece : {"put 21 0", "put 22 0", "put 23 0", "put 24 0"}) {
        wanted.insert(wanted.end(), {piece, "sound 7", "pause 15"});
    }
    wanted.insert(wanted.end(), {"pause 30", question, "turn 0 draw", "pause 90", "turn 2 draw"});
    const Notes& seen = outside.All();
    ASSERT_GT(seen.size(), wanted.size());
    EXPECT_EQ(Notes(seen.begin(), seen.begin() + static_cast<long>(wanted.size())), wanted);
    EXPECT_EQ(outside.Only({"message"}),
              (Notes{question, "message Sorteo del jugador que comienza|Sale Ana.|1"}));
    EXPECT_EQ(state.CurrentColour, 2);
    EXPECT_EQ(state.MoveRecordCount, 1);
    EXPECT_EQ(state.SixesInRow, 0);
}

TEST(ContinuedGame, PutsThePiecesDownAndGoesOnWithTheUnfinishedMove) {
    const struct {
        const char* name;
        MoveRecord last;
        const char* next;
    } rows[] = {
        {"a throw", {1, 0, 3, 3, 1, 7, 10, 0, No, 0, Yes}, "turn 1 throws"},
        {"a bonus for a capture", {3, 1, 0, 0, 1, 10, 0, 0, No, 1, No}, "turn 1 capture"},
        {"none off an exit square", {3, 1, 0, 0, 1, 5, 0, 0, No, 1, No}, "turn 1 throws"},
        {"a bonus for an arrival", {1, 0, 1, 1, 2, 75, 76, 0, No, 0, Yes}, "turn 1 arrival"},
        {"none by hand", {1, 0, 0, 0, 2, 60, 76, 0, Yes, 0, Yes}, "turn 1 throws"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Settings settings;
        settings.PlayerActive = {0, 1, 2, 1, 2};
        settings.PauseBetweenMoves = 2;
        GameState state = Position("1:10 76 0 0");
        state.GameInProgress = state.RepeatTurn = Yes;
        state.CurrentColour = 1;
        state.MoveRecords[1] = row.last;
        state.MoveRecordCount = 2;
        NotingOutside outside(state, {1});
        ContinueGame({state, settings, outside});
        EXPECT_EQ(outside.Only({"turn"}).at(0), row.next);
        EXPECT_EQ(state.MoveRecordCount, 3 + (row.next[7] == 't' ? 0 : 1)) << "bonus moves are made";
        const Notes pieces = outside.Only({"put"});
        EXPECT_EQ(Notes(pieces.begin(), pieces.begin() + 8),
                  (Notes{"put 11 10", "put 12 76", "put 13 0", "put 14 0", "put 31 0", "put 32 0",
                         "put 33 0", "put 34 0"}));
    }
}

TEST(ContinuedGame, PassesOverAColourThatTakesNoPartButShowsItsPiecesOnTheBoard) {
    const MoveRecord arrival{2, 0, 6, 6, 2, 78, 84, 1, No, 0, No};
    for (const MoveRecord& last : {MoveRecord{1, 0, 3, 3, 1, 7, 10, 0, No, 0, Yes}, arrival}) {
        Settings settings;
        settings.PlayerActive = {0, 1, 2, 1, 1};
        GameState state = Position("1:10 0 0 0  2:22 84 0 0");
        state.GameInProgress = state.RepeatTurn = Yes;
        state.CurrentColour = 2;
        state.SixesInRow = last.RepeatState;
        state.MoveRecords[1] = last;
        state.MoveRecordCount = 2;
        NotingOutside outside(state);
        ContinueGame({state, settings, outside});
        EXPECT_EQ(state.CurrentColour, 3);
        EXPECT_EQ(outside.kept.ThrowNext, Yes);
        EXPECT_EQ(state.SixesInRow, 0);
        EXPECT_EQ(state.RepeatTurn, No);
        const Notes pieces = outside.Only({"put"});
        EXPECT_EQ(Notes(pieces.begin() + 4, pieces.begin() + 7),
                  (Notes{"put 21 22", "put 22 84", "put 31 0"}));
    }
}

}  // namespace
}  // namespace zorva::test
