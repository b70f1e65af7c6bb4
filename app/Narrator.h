#pragma once

#include <QString>
#include <vector>

#include "app/Sentences.h"
#include "app/Voice.h"
#include "core/Outside.h"

namespace zorva {

/// Tells players who do not see the board what happens, as it happens. It hears what the game tells the
/// world outside, makes sentences of it and passes them to the voice in their order.
///
/// The game does not wait for the voice. Sentences for which there was no time yet wait here. Among
/// them, ordinary moves of a computer player become one sentence for each colour. As soon as the game
/// asks a person for something, the narrator says all of it.
class Narrator {
public:
    Narrator(Mesa& mesa, const GameState& state, const Settings& settings);

    // What happens in the game, in the words of Outside. No call does anything without a reader.
    void TurnShown(TurnIs why);
    void Thrown(Colour colour, Short face);
    void MoveBegins(const MoveRecord& record);
    /// A move is shown on the board: the one about to be made, or advice for the person who chooses.
    void MoveShown();
    /// The game waits for the player at the board, or would if it were not to go on at once.
    void PlayerAwaited();
    /// A message is about to open, which the reader reads out by itself.
    void MessageComes();

    /// Whether the voice has not finished yet.
    bool IsSpeaking() const { return !voice_.IsFree(); }
    /// Says what waits and then that sentence, without delay: it answers the player.
    void SayNow(const QString& sentence);
    /// The player has pressed a key.
    void KeyPressed();

private:
    // A sentence that waits, or moves of a colour that are summed up if they wait too long.
    struct Waiting {
        QString sentence;
        Colour summedUp = 0;  // 0 for a sentence that stays as it is
        MoveSum sum{};
    };

    bool IsOrdinary(const ToldMove& move) const;
    QString TakeThrow();
    void Tell(Waiting news);
    void TellOrdinary(const QString& sentence, const MoveRecord& record);
    void TellLatest(const QString& sentence);
    QString TakeWaiting();

    const GameState& state_;
    const Settings& settings_;
    Voice voice_;
    std::vector<Waiting> waiting_;
    Colour thrower_ = 0;  // whose throw has not been told yet, 0 when there is none
    Short thrown_ = 0;    // its face
    bool isDraw_ = false;
    bool choosing_ = false;   // a person has been asked for a move
    bool isAdvised_ = false;  // by the tutor, before that
    Short tapePosition_ = 0;  // of the recorder when it was last told
};

}  // namespace zorva
