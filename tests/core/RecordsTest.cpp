#include "core/Records.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/NotingOutside.h"

namespace zorva::test {
namespace {

TEST(LogLine, TellsTheMoveInAFewLetters) {
    const std::tuple<Short, MoveRecord, const char*> rows[] = {
        {1000, {4, 0, 6, 6, 2, 60, 0}, "1000 Ver. a espera"},
        {8, {2, 0, 0, 0, 3, 22, 29, 0, Yes}, "  8 Despl. manual"},
        {9, {0, 0, 3, 3, 1, 5, 8}, "  9  cuenta 3"},
        {1, {5, 0, 3, 3}, "  1  pasa"},
    };
    for (const auto& [number, record, line] : rows) EXPECT_EQ(LogLineText(number, record), line);
}

TEST(Log, IsBuiltAgainFromTheRecords) {
    GameState state;
    for (const Colour colour : {Colour{2}, Colour{3}, Colour{4}}) {
        NewMoveRecord(state);
        state.MoveRecords[state.MoveRecordCount] = {colour, 0, 3, 3};
    }
    NotingOutside outside(state);
    RebuildLog({state, Settings{}, outside}, 2);
    EXPECT_EQ(outside.All(), (Notes{"log Inicio de partida", "log   1 Azul pasa", "log   2 Rojo pasa"}));
}

}  // namespace
}  // namespace zorva::test
