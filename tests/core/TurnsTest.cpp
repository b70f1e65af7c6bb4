#include "core/Turns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "core/Displacement.h"
#include "core/GameStart.h"
#include "tests/support/NotingOutside.h"
#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

/// Computer colours of level 0, which move the piece furthest on; those in the box need a five.
Settings PlainSettings() {
    Settings settings;
    settings.PlayerLevel.fill(0);
    settings.PauseBetweenMoves = 2;
    settings.RuleLeaveAllInBox = 2;
    return settings;
}

std::vector<Short> Throws(const char* text) {
    std::vector<Short> throws;
    std::istringstream words(text);
    for (Short face = 0; words >> face;) throws.push_back(face);
    return throws;
}

/// The log lines, such as "Ama. cuenta 5, Azul pasa"; their numbers must follow one another.
std::string LogOf(const NotingOutside& outside) {
    std::string log;
    int number = 0;
    for (const std::string& note : outside.Only({"log"})) {
        EXPECT_EQ(std::stoi(note.substr(4)), ++number) << note;
        log += (log.empty() ? "" : ", ") + note.substr(8);
    }
    return log;
}

std::string Messages(const NotingOutside& outside) {
    std::string text;
    for (const std::string& note : outside.Only({"message"})) text += note.substr(8);
    return text;
}

constexpr const char* pieceIsHome =
    "Ha sacado 3 seises|Este jugador ha sacado un 6 por tercera vez. Como la ficha que ha movido en la  "
    "jugada  anterior ha llegado a casa no vuelve al cuadro de espera.|3";
constexpr const char* pieceReturns =
    "Ha sacado 3 seises|Este jugador ha sacado un 6 por tercera vez y la ficha que ha movido en la "
    "jugada "
    "anterior vuelve al cuadro de espera.|2";
constexpr const char* nothingReturns =
    "Ha sacado 3 seises|Este jugador ha sacado un 6 por tercera vez. Como en el turno anterior no pudo "
    "mover, no vuelve ninguna ficha al cuadro de espera.|3";

struct Row {
    const char* name;
    const char* position;
    const char* throws;
    const char* log;
    const char* squares;  ///< of yellow, who begins, at the end
    const char* message = "";
    Short sixRule = 2, leaveRule = 2, orderRule = 2;
};

// Yellow and red play, yellow first.
const Row rows[] = {
    {"who cannot move passes", "1:0 0 0 0  3:40 0 0 0", "4 2", "Ama. pasa, Rojo cuenta 2", "0 0 0 0"},
    // Sixes.
    {"a six with none in the box counts twelve", "1:10 11 13 30", "6", "Ama. cuenta 12", "10 11 13 42"},
    {"or seven", "1:10 11 13 30", "6", "Ama. cuenta 7", "10 11 13 37", "", 1},
    {"and six with one in the box", "1:10 11 30 0", "6", "Ama. cuenta 6", "10 11 36 0"},
    {"a six throws again", "1:10 0 0 0", "6 2 1", "Ama. cuenta 6, Ama. cuenta 2, Rojo pasa", "18 0 0 0"},
    {"sixes are counted anew in each turn", "1:10 0 0 0", "6 6 1 6 3 6 6",
     "Ama. cuenta 6, Ama. cuenta 6, Ama. cuenta 1, Rojo pasa, Rojo pasa, Ama. cuenta 6, Ama. cuenta 6",
     "35 0 0 0"},
    {"a third six sends the piece moved last home", "1:10 20 0 0", "6 6 6 1",
     "Ama. cuenta 6, Ama. cuenta 6, Ama. a espera, Rojo pasa", "10 0 0 0", pieceReturns},
    {"not one that has come home; the throw leaves no record", "1:10 11 13 52", "6 6 6 1",
     "Ama. cuenta 12, Ama. cuenta 12, Ama. cuenta 10, Rojo pasa", "10 11 23 76", pieceIsHome},
    {"a bonus is not what was moved last", "1:10 52 0 0  3:64 0 0 0", "6 6 6 1",
     "Ama. cuenta 6, Ama. cuenta 6, Rojo a espera, Ama. cuenta 20, Ama. a espera, Rojo pasa", "30 0 0 0",
     pieceReturns},
    {"without a move nothing returns", "", "6 6 6 1", "Ama. pasa, Ama. pasa, Ama. pasa, Rojo pasa",
     "0 0 0 0", nothingReturns},
    // Captures and their bonus.
    {"a capture earns twenty, then the turn passes", "1:30 0 0 0  3:33 0 0 0", "3 1",
     "Ama. cuenta 3, Rojo a espera, Ama. cuenta 20, Rojo pasa", "53 0 0 0"},
    {"with a six another throw follows", "1:27 0 0 0  3:33 0 0 0", "6 2 1",
     "Ama. cuenta 6, Rojo a espera, Ama. cuenta 20, Ama. cuenta 2, Rojo pasa", "55 0 0 0"},
    {"a bonus that captures earns another", "1:30 0 0 0  3:33 53 0 0", "3 1",
     "Ama. cuenta 3, Rojo a espera, Ama. cuenta 20, Rojo a espera, Ama. cuenta 20, Rojo pasa",
     "73 0 0 0"},
    {"a bonus that cannot be moved is passed", "1:60 0 0 0  3:64 0 0 0", "4 1",
     "Ama. cuenta 4, Rojo a espera, Ama. pasa, Rojo pasa", "64 0 0 0"},
    // Arrivals.
    {"an arrival earns ten for another piece", "1:73 30 0 0", "3 1",
     "Ama. cuenta 3, Ama. cuenta 10, Rojo pasa", "76 40 0 0"},
    {"passed when none can walk it", "1:73 70 0 0", "3 1", "Ama. cuenta 3, Ama. pasa, Rojo pasa",
     "76 70 0 0"},
    {"the fourth ends the game", "1:73 76 76 76", "3 1", "Ama. cuenta 3", "76 76 76 76",
     "Final de la Partida|Puntos : 9.99\nHa ganado la partida Amarillo|2"
     "Histórico de partidas jugadas|¿Se actualiza el Histórico de partidas?|1 yes/no"},
    // Two pieces with one five.
    {"two come out with one five", "", "5 1", "Ama. cuenta 5, Ama. cuenta 5, Rojo cuenta 1", "5 5 0 0",
     "", 2, 1},
    {"both may capture on the exit, without a bonus", "3:5 5 0 0", "5 1",
     "Ama. cuenta 5, Rojo a espera, Ama. cuenta 5, Rojo a espera, Rojo cuenta 1", "5 5 0 0", "", 2, 1},
    {"an exit capture earns no bonus", "1:30 0 0 0  3:5 5 0 0", "5 1",
     "Ama. cuenta 5, Rojo a espera, Rojo cuenta 1", "30 0 0 5"},
    // Order.
    {"the other way round the same two play", "1:10 0 0 0", "1 1", "Ama. cuenta 1, Rojo pasa",
     "11 0 0 0", "", 2, 2, 1},
};

TEST(Turns, GoAsTheRulesSay) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Settings settings = PlainSettings();
        settings.PlayerActive = {0, 1, 2, 1, 2};
        settings.RuleSixAllOut = row.sixRule;
        settings.RuleLeaveAllInBox = row.leaveRule;
        settings.PlayOrder = row.orderRule;
        GameState state = Position(row.position);
        ApplySettings(state, settings);
        NotingOutside outside(state, Throws(row.throws));
        outside.answer = MessageAnswer::Refused;
        PlayFrom({state, settings, outside}, 1);
        EXPECT_EQ(LogOf(outside), row.log);
        EXPECT_EQ(SquaresText(state, 1), row.squares);
        EXPECT_EQ(Messages(outside), row.message);
        EXPECT_EQ(state.GameInProgress, No);
    }
}

TEST(Turns, ShowAndSoundAThrow) {
    GameState state = Position("4:60 0 0 0");
    NotingOutside outside(state, {3});
    PlayFrom({state, PlainSettings(), outside}, 4);
    Notes wanted{"clear", "pause 15", "turn 4 throws", "die 4 5 ready", "sound 5"};
    constexpr int sounds[] = {17, 0, 17, 0, 18, 0, 19, 0, 0};
    for (int roll = 1; roll <= 9; ++roll) {
        if (sounds[roll - 1] != 0) wanted.push_back("sound " + std::to_string(sounds[roll - 1]));
        wanted.push_back(roll % 2 == 1 ? "die 4 5 rolls" : "die 4 4 rolls");
        wanted.push_back("pause " + std::to_string(10 - roll));
    }
    wanted.insert(wanted.end(), {"die 4 3 thrown", "pause 0", "pause 15", "show 41 60 63"});
    const Notes seen = outside.Only({"die", "clear", "turn", "pause", "sound", "show"});
    ASSERT_GE(seen.size(), wanted.size());
    EXPECT_EQ(Notes(seen.begin(), seen.begin() + static_cast<long>(wanted.size())), wanted);
}

TEST(Turns, KeepAMoveThatHasEndedBeforeTheGameCanBeLeft) {
    const struct {
        const char* throws;
        Colour next;
    } leavings[] = {{"1 1", 2}, {"6 1", 1}};
    for (const auto& row : leavings) {
        GameState state = Position("1:10 0 0 0  4:60 0 0 0");
        NotingOutside outside(state, Throws(row.throws));
        // The game is yielded before each turn and before each throw.
        outside.atYield = [&, yields = 0]() mutable {
            if (++yields == 3) state.GameInProgress = No;
        };
        PlayFrom({state, PlainSettings(), outside}, 1);
        EXPECT_EQ(outside.kept.GameInProgress, Yes);
        EXPECT_EQ(outside.kept.MoveRecordCount, 2);
        EXPECT_EQ(outside.kept.MoveRecords[1].From, 10);
        EXPECT_EQ(outside.kept.CurrentColour, row.next);
    }
}

TEST(Turns, EndBeforeTheNumbersOfTheMovesDo) {
    GameState state = Position("1:10 0 0 0  2:30 0 0 0");
    state.GameInProgress = Yes;
    state.CurrentColour = 1;
    state.MoveRecordCount = LongestGame - 1;
    state.MoveRecords.resize(LongestGame + 1);
    NotingOutside outside(state, {1, 2});
    RunTurns({state, PlainSettings(), outside});
    EXPECT_EQ(outside.Only({"log", "message"}),
              (Notes{"log 32700 Azul cuenta 1",
                     "message Partida demasiado larga|La partida ha llegado a las 32.700 jugadas y no "
                     "caben más en la cinta. Termina aquí, sin ganador.|2"}));
    EXPECT_EQ(outside.kept.MoveRecordCount, LongestGame + 1) << "its last move is kept, too";
    EXPECT_EQ(state.MoveRecordCount, 0);
    EXPECT_EQ(state.GameInProgress, No);
}

TEST(Turns, EndWithoutAWordWhenTheGameIsAbandonedInTheMessageOfAThirdSix) {
    for (const char* position : {"1:10 20 0 0", "1:10 11 13 52", ""}) {
        GameState state = Position(position);
        NotingOutside outside(state, {6, 6, 6, 1, 1, 1, 1});
        outside.abandonsInMessage = true;
        PlayFrom({state, PlainSettings(), outside}, 1);
        const Notes seen = outside.Only({"log", "message", "lift", "die"});
        EXPECT_EQ(seen.back().substr(0, 7), "message") << position;
    }
}

/// What a click for the throw does.
void AskForThrow(GameState& state) {
    EXPECT_EQ(state.WaitingForThrow, Yes);
    state.WaitingForThrow = No;
}

/// What a click on a piece does.
std::function<void(GameState&)> Pick(Short piece, Square to) {
    return [=](GameState& state) {
        EXPECT_EQ(state.WaitingForMove, Yes);
        EXPECT_EQ(state.MovablePieces[piece], Yes);
        state.MovePiece = piece;
        state.MoveFrom = state.PiecePosition[state.CurrentColour][piece];
        state.MoveTo = to;
        state.WaitingForMove = No;
    };
}

class PersonAtPlay : public testing::Test {
protected:
    PersonAtPlay() {
        settings_.PlayerType[1] = 2;
        settings_.PlayerActive = {0, 1, 2, 1, 2};
    }

    /// Plays from the position; `inputs` are what the person does in the waits.
    void Play(const char* position, const char* throws,
              std::deque<std::function<void(GameState&)>> inputs) {
        state_ = Position(position);
        ApplySettings(state_, settings_);
        outside_ = std::make_unique<NotingOutside>(state_, Throws(throws));
        outside_->inputs = std::move(inputs);
        PlayFrom({state_, settings_, *outside_}, 1);
        EXPECT_TRUE(outside_->inputs.empty()) << "nobody waited for the person";
    }

    Settings settings_ = PlainSettings();
    GameState state_;
    std::unique_ptr<NotingOutside> outside_;
};

TEST_F(PersonAtPlay, PicksAnyPieceThatMayMoveUnlessThereIsOneOnly) {
    Play("1:10 20 30 0", "3", {Pick(1, 13)});
    EXPECT_EQ(SquaresText(state_, 1), "13 20 30 0");
    EXPECT_EQ(outside_->Only({"show"}), Notes{"show 13 30 33"});  // the advice
    settings_.Tutor = 2;
    Play("1:10 20 30 0", "3", {Pick(2, 23)});
    EXPECT_EQ(outside_->Only({"show"}), Notes{});
    Play("1:10 20 0 0", "3", {Pick(1, 13)});  // two to choose from are a choice
    Play("1:10 0 0 0", "3", {});
    EXPECT_EQ(LogOf(*outside_), "Ama. cuenta 3");
    EXPECT_EQ(outside_->Only({"show"}), Notes{"show 11 10 13"});
}

TEST_F(PersonAtPlay, AsksForEachThrowButNotForABonus) {
    settings_.PauseBetweenMoves = 1;
    Play("1:30 0 0 0  3:33 0 0 0", "3 1", {AskForThrow, AskForThrow});
    EXPECT_EQ(LogOf(*outside_), "Ama. cuenta 3, Rojo a espera, Ama. cuenta 20, Rojo pasa");
}

/// What dragging a piece by hand does.
std::function<void(GameState&)> Shift(PieceCode piece, Square to) {
    return [=](GameState& state) {
        EnterManualMode(state);
        DisplaceByHand(state, piece, to);
    };
}

TEST_F(PersonAtPlay, MayShiftAPieceByHandBeforeTheThrow) {
    settings_.PauseBetweenMoves = 1;
    Play("1:10 0 0 0", "6 3 1", {Shift(32, 50), AskForThrow, Shift(32, 54), AskForThrow, AskForThrow});
    EXPECT_EQ(LogOf(*outside_),
              "Despl. manual, Ama. cuenta 6, Despl. manual, Ama. cuenta 3, Rojo cuenta 1");
    EXPECT_EQ(SquaresText(state_, 3), "0 55 0 0");
    // The piece that a third six would send home may be there already.
    Play("1:10 0 0 0", "6 6 6", {AskForThrow, AskForThrow, Shift(11, 0), AskForThrow});
    EXPECT_EQ(Messages(*outside_), nothingReturns);
    EXPECT_EQ(LogOf(*outside_), "Ama. cuenta 6, Ama. cuenta 6, Despl. manual, Ama. a espera");
    EXPECT_EQ(outside_->Only({"lift"}).size(), 3U) << "shown as moved, though nothing returns";
    EXPECT_EQ(SquaresText(state_, 1), "0 0 0 0");
    EXPECT_EQ(state_.PiecesInBox[1], 4);
}

TEST_F(PersonAtPlay, MayAbandonTheGameInEitherWait) {
    const auto abandon = [](GameState& state) {
        state.WaitingForThrow = state.WaitingForMove = state.GameInProgress = No;
    };
    Play("1:10 20 30 0", "3", {abandon});
    EXPECT_EQ(SquaresText(state_, 1), "10 20 30 0");
    EXPECT_EQ(LogOf(*outside_), "");
    settings_.PauseBetweenMoves = 1;
    Play("1:10 20 30 0", "3", {abandon});
    EXPECT_EQ(state_.DieValue, 0);
    EXPECT_EQ(outside_->All().back(), "refresh");
}

}  // namespace
}  // namespace zorva::test
