#include "app/WindowOutside.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QRandomGenerator>
#include <random>

#include "app/BoardAccessibility.h"
#include "app/BoardReading.h"
#include "app/BoardScene.h"
#include "app/Mesa.h"
#include "app/MoveLog.h"
#include "app/Pacer.h"
#include "core/Records.h"

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
    : mesa_(mesa), scene_(mesa.Scene()), state_(state), settings_(settings) {}

// The system's generator cannot be foreseen by anyone. Its own bounded() would make some faces
// likelier by a few parts in a thousand million; the distribution draws those numbers again.
Short WindowOutside::RollFace() {
    return std::uniform_int_distribution<Short>(1, 6)(*QRandomGenerator::system());
}

// Between two moves nothing is awaited yet that a click could answer. When the players throw
// themselves, what they did meanwhile stays queued until the throw is awaited, and then throws.
void WindowOutside::YieldToEvents() {
    const bool throwComes =
        state_.GameInProgress && !state_.WaitingForThrow && settings_.PauseBetweenMoves == 1;
    QCoreApplication::processEvents(throwComes ? QEventLoop::ExcludeUserInputEvents
                                               : QEventLoop::AllEvents);
    if (throwComes) QAbstractEventDispatcher::instance()->wakeUp();
}

void WindowOutside::WaitForInput() {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

// Pieces that are on their way glide while the game waits.
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
}

void WindowOutside::PutDownPiece(PieceCode piece, Square) {
    scene_.PutDown(piece);
}

// The face shown while nothing has been thrown yet is that of the die lying ready.
void WindowOutside::DrawDie(Colour colour, Short face) {
    const bool ready = face != 0 && state_.DieValue == 0;
    if (face != 0) scene_.ShowTurn(state_.CurrentColour, 0);
    scene_.ShowDie(colour, face, ready);
    if (ready) Announce(mesa_, TurnText(state_, settings_));
    if (face != 0 && !ready && scene_.View().diePose[colour].tilt == 0) {
        Announce(mesa_, DieText(settings_, colour, face, false));
    }
}

void WindowOutside::ShowChosenMove(PieceCode piece, Square from, Square to) {
    scene_.ShowMove({piece, from, to});
}

void WindowOutside::DrawWinner(Colour colour, bool visible) {
    scene_.ShowWinner(visible ? colour : Colour{0});
}

void WindowOutside::EmptyBoard() {
    scene_.TakeAllPieces();
}

void WindowOutside::RefreshBoard() {
    if (IsWon()) scene_.ShowTurn(0, 0);
    scene_.Refresh();
}

bool WindowOutside::IsWon() const {
    return state_.PiecesHome[state_.CurrentColour] == PiecesPerColour;
}

void WindowOutside::SetScreenCursor(ScreenCursor cursor) {
    mesa_.SetScreenCursor(cursor);
}

void WindowOutside::BeginLog(std::string_view heading) {
    mesa_.Log().Begin(FromUtf8(heading));
}

void WindowOutside::AddLogLine(Short moveNumber, const MoveRecord& record) {
    mesa_.Log().Add(QString::fromStdString(LogLineText(moveNumber, record)));
    Announce(mesa_, MoveText(settings_, record));
}

void WindowOutside::SelectLogLine(Short line) {
    mesa_.Log().Select(line);
}

void WindowOutside::CutLogFrom(Short line) {
    mesa_.Log().CutFrom(line);
}

MessageAnswer WindowOutside::ShowMessage(std::string_view title, std::string_view text, Short lineCount,
                                         MessageButtons buttons) {
    // At the end of the draw the light goes from who threw last to who begins, and it stays with who
    // won.
    const bool isDraw = state_.GameInProgress && state_.MoveRecordCount == 0;
    if (isDraw || IsWon()) scene_.ShowTurn(state_.CurrentColour, 0);
    return mesa_.Ask(FromUtf8(title), FromUtf8(text), lineCount, buttons);
}

void WindowOutside::PositionReached() {
    const Short bonus = state_.ThrowNext ? Short{0} : state_.MoveCount;
    scene_.ShowTurn(state_.CurrentColour, bonus);
    if (PositionKept) PositionKept();
}

void WindowOutside::KeepResult(const GameResult& result) {
    if (ResultKept) ResultKept(result);
}

}  // namespace zorva
