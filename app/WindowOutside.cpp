#include "app/WindowOutside.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QRandomGenerator>
#include <random>
#include <utility>

#include "app/BoardScene.h"
#include "app/Mesa.h"
#include "app/MoveLog.h"
#include "app/Pacer.h"
#include "core/Board.h"
#include "core/Records.h"
#include "core/Rules.h"

namespace zorva {
namespace {

QString FromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

double PauseMilliseconds(Short n, Short speed) {
    return n < 1 ? 0 : (100 - speed) / 100.0 * n * 10;
}

double StepMilliseconds(Short n, Short speed) {
    return n < 1 ? 0 : (100 - speed) / 50.0 * n;
}

WindowOutside::WindowOutside(Mesa& mesa, const GameState& state, const Settings& settings)
    : mesa_(mesa),
      scene_(mesa.Scene()),
      state_(state),
      settings_(settings),
      narrator_(mesa, state, settings) {}

// The system's generator cannot be foreseen by anyone. Its own bounded() would make some faces
// likelier by a few parts in a thousand million; the distribution draws those numbers again.
Short WindowOutside::RollFace() {
    return std::uniform_int_distribution<Short>(1, 6)(*QRandomGenerator::system());
}

void WindowOutside::YieldToEvents(UserInput input) {
    const bool held = input == UserInput::Held;
    QCoreApplication::processEvents(held ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
    // Without this the held clicks would wait for the next event of the window system.
    if (held) QAbstractEventDispatcher::instance()->wakeUp();
}

void WindowOutside::WaitForInput() {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

// Pieces and dice that move are drawn frame by frame while the game waits.
void WindowOutside::Wait(double milliseconds) {
    if (scene_.HasMotion()) {
        mesa_.Waits().Wait(milliseconds, [this](double progress) { scene_.ShowStep(progress); });
    } else {
        mesa_.Waits().Wait(milliseconds);
    }
}

void WindowOutside::Pause(Short n) {
    Wait(PauseMilliseconds(n, settings_.Speed));
}

void WindowOutside::StepDelay(Short n) {
    Wait(StepMilliseconds(n, settings_.Speed));
}

void WindowOutside::PlaySound(Sound sound) {
    mesa_.Shared().PlaySound(sound);
}

void WindowOutside::LiftPiece(PieceCode piece, Square) {
    if (PieceLifted) PieceLifted();
    scene_.Lift(piece);
}

void WindowOutside::StepPiece(PieceCode piece, Square from, Square to) {
    scene_.StartStep(piece, from, to);
    walksHome_ = to == GoalSquare[ColourOf(piece)];
}

// A piece that is dragged onto its goal has sounded already, and taken back is no arrival.
void WindowOutside::PutDownPiece(PieceCode piece, Square) {
    if (std::exchange(walksHome_, false)) PlaySound(Sound::Goal);
    scene_.PutDown(piece);
}

// A throw or a bonus that leads to no move would be covered at once.
void WindowOutside::LetTrayBeSeen(Colour colour) {
    Wait(scene_.UnseenMilliseconds(colour));
}

void WindowOutside::DrawDie(Colour colour, Short face, DieIs how) {
    if (how == DieIs::Ready) LetTrayBeSeen(colour);
    scene_.ShowDie(colour, face, how);
    if (how == DieIs::Thrown) narrator_.Thrown(colour, face);
}

void WindowOutside::ClearDice() {
    scene_.EmptyTrays();
}

void WindowOutside::ShowTurn(Colour colour, TurnIs why) {
    narrator_.TurnShown(why);
    if (why == TurnIs::Won) {
        scene_.ShowWinner(colour);
        return;
    }
    scene_.ShowTurn(why == TurnIs::Over ? Colour{0} : colour);
    if (why != TurnIs::BonusForCapture && why != TurnIs::BonusForArrival) return;
    LetTrayBeSeen(colour);
    scene_.ShowBonus(colour, why == TurnIs::BonusForCapture ? CaptureBonus : ArrivalBonus);
}

void WindowOutside::ShowChosenMove(PieceCode piece, Square from, Square to) {
    scene_.ShowMove({piece, from, to});
    narrator_.MoveShown();
}

void WindowOutside::RefreshBoard(PiecesShown pieces) {
    if (pieces == PiecesShown::None) {
        scene_.Clear();
    } else {
        scene_.Refresh();
    }
}

void WindowOutside::SetScreenCursor(ScreenCursor cursor) {
    mesa_.SetScreenCursor(cursor);
    scene_.ShowGuide();
    if (cursor == ScreenCursor::OfTheBoard) narrator_.PlayerAwaited();
}

void WindowOutside::BeginLog(std::string_view heading) {
    mesa_.Log().Begin(FromUtf8(heading));
}

void WindowOutside::AddLogLine(Short moveNumber, const MoveRecord& record) {
    mesa_.Log().Add(QString::fromStdString(LogLineText(moveNumber, record)), record.MoverColour);
}

void WindowOutside::MoveBegins(const MoveRecord& record) {
    narrator_.MoveBegins(record);
}

void WindowOutside::SelectLogLine(Short line) {
    mesa_.Log().Select(line);
    scene_.ShowTape(line);
    mesa_.RefreshCursor();  // the large keys come and go with the tape
    if (TapeMoved) TapeMoved();
}

void WindowOutside::CutLogFrom(Short line) {
    mesa_.Log().CutFrom(line);
}

MessageAnswer WindowOutside::ShowMessage(std::string_view title, std::string_view text, Short lineCount,
                                         MessageButtons buttons) {
    return mesa_.Ask(FromUtf8(title), FromUtf8(text), lineCount, buttons);
}

void WindowOutside::PositionReached(const GameState& position) {
    if (PositionKept) PositionKept(position);
}

void WindowOutside::KeepResult(const GameResult& result) {
    if (ResultKept) ResultKept(result);
}

}  // namespace zorva
