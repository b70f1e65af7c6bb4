#include "core/Records.h"

#include <gtest/gtest.h>

#include "tests/support/NotingOutside.h"
#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

MoveRecord Record(Colour colour, Short count, Short piece, Square from, Square to, Short manual = No) {
    MoveRecord record;
    record.MoverColour = colour;
    record.Count = count;
    record.Piece = piece;
    record.From = from;
    record.To = to;
    record.Manual = manual;
    return record;
}

TEST(LogLine, TellsTheMoveInAFewLetters) {
    struct Row {
        Short number;
        MoveRecord record;
        const char* line;
    };
    for (const Row& row :
         {Row{7, Record(1, 5, 1, 0, 5), "  7 Ama. cuenta 5"},
          Row{12, Record(3, 4, 0, 0, 0), " 12 Rojo pasa"},
          Row{100, Record(2, 20, 4, 22, 42), "100 Azul cuenta 20"},
          Row{1000, Record(4, 6, 2, 60, 0), "1000 Ver. a espera"},
          Row{8, Record(2, 0, 3, 22, 29, Yes), "  8 Despl. manual"},
          Row{9, Record(0, 3, 1, 5, 8), "  9  cuenta 3"}, Row{1, Record(5, 3, 0, 0, 0), "  1  pasa"}}) {
        EXPECT_EQ(LogLineText(row.number, row.record), row.line);
    }
}

struct Fields {
    Short die, count, sixes, secondPending, captureReport, captured, manualColour;
};

struct KindRow {
    const char* name;
    Fields fields;
    MoveRecord record;
};

// Red is on turn and moves its piece 2 from 40 to 44.
constexpr KindRow kindRows[] = {
    {"an ordinary move", {4, 4, 0, 0, 0, 0, 0}, {3, 0, 4, 4, 2, 40, 44, 0, No, 0, Yes}},
    {"a first six", {6, 12, 1, 0, 0, 0, 0}, {3, 0, 6, 12, 2, 40, 44, 1, No, 0, Yes}},
    {"a second six goes on with the turn", {6, 6, 2, 0, 0, 0, 0}, {3, 0, 6, 6, 2, 40, 44, 2, No, 0, No}},
    {"a third six is kept as none", {6, 6, 3, 0, 0, 0, 0}, {3, 0, 6, 6, 2, 40, 44, 0, No, 0, Yes}},
    {"a capture's bonus", {0, 20, 1, 0, 0, 0, 0}, {3, 0, 0, 20, 2, 40, 44, 1, No, 0, No}},
    {"the first of two pieces out", {5, 5, 0, 1, 0, 0, 0}, {3, 0, 5, 5, 2, 40, 44, 0, No, 0, Yes}},
    {"the second, without a die", {0, 0, 0, 2, 0, 0, 0}, {3, 0, 5, 5, 2, 40, 44, 0, No, 0, No}},
    {"a captured piece's return", {0, 0, 1, 0, 1, 4, 0}, {4, 3, 0, 0, 2, 40, 0, 1, No, 1, No}},
    {"a displacement", {0, 0, 0, 0, 0, 0, 3}, {3, 0, 0, 0, 2, 40, 44, 0, Yes, 0, Yes}},
    {"of another colour's piece", {0, 0, 1, 0, 0, 0, 1}, {3, 1, 0, 0, 2, 40, 44, 1, Yes, 0, Yes}},
    {"never a second piece", {0, 0, 0, 2, 0, 0, 3}, {3, 0, 0, 0, 2, 40, 44, 0, Yes, 0, Yes}},
};

TEST(Records, KeepWhatKindOfMoveItWas) {
    for (const KindRow& row : kindRows) {
        GameState state;
        state.CurrentColour = 3;
        state.MovePiece = 2;
        state.MoveFrom = 40;
        state.MoveTo = 44;
        state.DieValue = row.fields.die;
        state.MoveCount = row.fields.count;
        state.SixesInRow = row.fields.sixes;
        state.SecondMovePending = row.fields.secondPending;
        state.CaptureReport = row.fields.captureReport;
        state.CapturedColour = row.fields.captured;
        state.ManualShiftMade = row.fields.manualColour ? Yes : No;
        state.ManualShiftColour = row.fields.manualColour;
        NotingOutside outside(state);
        NewMoveRecord(state);
        LogMove({state, Settings{}, outside});
        EXPECT_EQ(state.MoveRecords[1], row.record) << row.name;
        EXPECT_EQ(outside.All(), Notes{"log " + LogLineText(1, state.MoveRecords[1])}) << row.name;
    }
}

TEST(Log, IsBuiltAgainFromTheRecords) {
    GameState state;
    for (const Colour colour : {Colour{2}, Colour{3}, Colour{4}}) {
        NewMoveRecord(state);
        state.MoveRecords[state.MoveRecordCount] = Record(colour, 3, 0, 0, 0);
    }
    NotingOutside outside(state);
    RebuildLog({state, Settings{}, outside}, 2);
    EXPECT_EQ(outside.All(), (Notes{"log Inicio de partida", "log   1 Azul pasa", "log   2 Rojo pasa"}));
}

}  // namespace
}  // namespace zorva::test
