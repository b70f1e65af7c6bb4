#include "app/Guide.h"

#include "app/Sentences.h"
#include "core/Board.h"
#include "core/Ending.h"
#include "core/Records.h"

namespace zorva {

std::vector<BoardView::Card> CardsOf(const GameState& state, const Settings& settings, Colour onTurn) {
    std::vector<BoardView::Card> cards;
    for (int place = 0; place < ColourCount; ++place) {
        const int turns = PlayDirectionOf(settings) > 0 ? place : ColourCount - place;
        const auto colour = static_cast<Colour>(turns % ColourCount + 1);
        if (!IsTakingPart(settings, colour)) continue;
        cards.push_back({.colour = colour,
                         .name = NameText(settings, colour),
                         .kind = KindText(settings, colour),
                         .last = CardText(state, settings, colour),
                         .home = state.PiecesHome[colour],
                         .toGo = ToShort(StepsOfColour - StepsWalked(state, colour)),
                         .lit = colour == onTurn,
                         .won = HasWon(state) && colour == state.CurrentColour,
                         .die = CardDie(state, colour)});
    }
    return cards;
}

BoardView::LastMove LastMoveOf(const GameState& state) {
    Short move = ToShort(state.MoveRecordCount - 1);
    const auto isMove = [&](const MoveRecord& record) {
        return record.OnBehalf == 0 && MovesAPiece(record);
    };
    while (move >= 1 && !isMove(state.MoveRecords[move])) --move;
    if (move < 1) return {};
    const MoveRecord& record = state.MoveRecords[move];
    const Short before = FirstExitOf(state, move);
    const PieceCode captured =
        move + 1 < state.MoveRecordCount ? ToldMove::Made(state, move).captured : PieceCode{0};
    return {.piece = CodeOf(record.MoverColour, record.Piece),
            .from = record.From,
            .to = record.To,
            .captured = captured,
            .walked = !record.Manual && record.To != 0,
            .before = before != 0 ? CodeOf(record.MoverColour, state.MoveRecords[before].Piece)
                                  : PieceCode{0}};
}

}  // namespace zorva
