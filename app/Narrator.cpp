#include "app/Narrator.h"

#include <QStringList>
#include <algorithm>
#include <utility>

#include "core/Board.h"

namespace zorva {

Narrator::Narrator(Mesa& mesa, const GameState& state, const Settings& settings)
    : state_(state), settings_(settings), voice_(mesa) {
    voice_.Freed = [this] { voice_.Say(TakeWaiting()); };
}

// ----------------------------------------------------------------------------- what happens

void Narrator::TurnShown(TurnIs why) {
    if (!voice_.IsHeard()) return;
    isDraw_ = why == TurnIs::InDraw;
    if (why != TurnIs::OnTape) return;
    const bool forward = state_.MoveRecordCount > tapePosition_;
    tapePosition_ = state_.MoveRecordCount;
    TellLatest(TapeText(state_, settings_, forward));
}

// In a turn one sentence tells the throw and what follows from it; Thrown only remembers it.
void Narrator::Thrown(Colour colour, Short face) {
    if (!voice_.IsHeard()) return;
    thrower_ = colour;
    thrown_ = face;
    if (isDraw_) Tell({TakeThrow()});
}

// The sentence of a capture tells the captured piece's return, too.
void Narrator::MoveBegins(const MoveRecord& record) {
    if (!voice_.IsHeard() || record.OnBehalf != 0) return;
    ToldMove move = ToldMove::AboutToBeMade(state_, record);
    move.throwIsKnown = record.Die != 0 && thrower_ == 0;
    thrower_ = 0;
    choosing_ = false;
    const QString sentence = MoveText(settings_, move);
    if (IsOrdinary(move)) {
        TellOrdinary(sentence, record);
    } else {
        Tell({sentence});
    }
}

void Narrator::MoveShown() {
    if (!voice_.IsHeard() || !state_.WaitingForMove) return;
    if (choosing_) {
        SayNow(AdviceText(state_, settings_));
    } else {
        isAdvised_ = true;
    }
}

void Narrator::PlayerAwaited() {
    tapePosition_ = state_.MoveRecordCount;  // the recorder can only be switched on here
    if (!voice_.IsHeard()) return;
    if (!state_.WaitingForThrow && !state_.WaitingForMove) return;
    choosing_ = state_.WaitingForMove != No;
    const bool isAdvised = std::exchange(isAdvised_, false);
    SayNow(TurnText(state_, settings_) + (isAdvised ? " " + AdviceText(state_, settings_) : QString()));
}

void Narrator::MessageComes() {
    if (voice_.IsHeard()) SayNow({});
}

// ----------------------------------------------------------------------------- what waits

// Captures, arrivals, third sixes and what a person does are always told one by one.
bool Narrator::IsOrdinary(const ToldMove& move) const {
    const MoveRecord& record = move.record;
    const bool isWalk = record.To != 0 || record.Piece == 0;
    return settings_.PlayerType[record.MoverColour] == 1 && isWalk && !record.Manual &&
           move.captured == 0 && record.To != GoalSquare[record.MoverColour];
}

QString Narrator::TakeThrow() {
    const Colour colour = std::exchange(thrower_, Colour{0});
    return colour == 0 ? QString() : ThrowText(settings_, colour, thrown_) + ".";
}

void Narrator::Tell(Waiting news) {
    waiting_.push_back(std::move(news));
    if (voice_.IsFree()) voice_.Say(TakeWaiting());
}

void Narrator::TellOrdinary(const QString& sentence, const MoveRecord& record) {
    const Colour colour = record.MoverColour;
    // Not beyond a sentence that stays as it is: the order would be wrong.
    auto place = waiting_.rbegin();
    while (place != waiting_.rend() && place->summedUp != 0 && place->summedUp != colour) ++place;
    if (place != waiting_.rend() && place->summedUp == colour) {
        place->sum.Add(record);
        return;
    }
    Waiting move{sentence, colour};
    move.sum.Add(record);
    Tell(std::move(move));
}

// In place of what waits: during an automatic replay only the latest position matters.
void Narrator::TellLatest(const QString& sentence) {
    waiting_.clear();
    Tell({sentence});
}

void Narrator::SayNow(const QString& sentence) {
    const QString thrown = TakeThrow();
    const QString before = TakeWaiting();
    voice_.Say(QStringList{before, thrown, sentence}.join(' ').simplified());
}

void Narrator::KeyPressed() {
    if (voice_.IsHeard()) voice_.BreakOff();
}

QString Narrator::TakeWaiting() {
    QStringList sentences;
    for (const Waiting& news : std::exchange(waiting_, {})) {
        sentences << (news.sum.moves > 1 ? SumText(settings_, news.summedUp, news.sum) : news.sentence);
    }
    return sentences.join(' ');
}

}  // namespace zorva
