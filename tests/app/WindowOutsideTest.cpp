#include "app/WindowOutside.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <functional>
#include <set>
#include <tuple>

#include "app/MoveLog.h"
#include "core/Execution.h"
#include "tests/app/BoardWindow.h"

namespace zorva::test {
namespace {

class InTheWindow : public testing::Test, public BoardWindow {
protected:
    InTheWindow() : BoardWindow("1:10 0 0 0") { settings.Speed = 100; }

    WindowOutside outside{mesa, state, settings};
};

TEST_F(InTheWindow, ADieWaitsOnACornerRollsByAndComesToRest) {
    const BoardView::Tray& tray = View().tray[2];
    const auto isAtRest = [&] { return tray.pose.tilt == 0 && tray.pose.size == 1; };
    const auto look = [&] { return mesa.grab().toImage(); };
    for (const Short face : {5, 6}) {
        outside.DrawDie(2, face, DieIs::AtRest);
        const QImage thrown = look();
        outside.DrawDie(2, face, DieIs::Ready);
        EXPECT_NE(look(), thrown) << "it is taken for a throw of " << face;
    }
    for (Short roll = 1; roll <= 9; ++roll) {
        outside.DrawDie(2, 3, DieIs::RollingBy);
        EXPECT_FALSE(isAtRest()) << "face " << roll;
        outside.Pause(1);
    }
    EXPECT_FALSE(tray.ready);
    outside.DrawDie(2, 4, DieIs::Thrown);
    EXPECT_TRUE(isAtRest());
    EXPECT_EQ(tray.face, 4);
    outside.DrawDie(2, 1, DieIs::RollingBy);
    EXPECT_FALSE(isAtRest()) << "each throw begins anew";
    outside.DrawDie(2, 6, DieIs::AtRest);
    EXPECT_TRUE(isAtRest());
    outside.ClearDice();
    EXPECT_EQ(tray.face, 0);
}

TEST_F(InTheWindow, AThrowAndABonusLieAtRestUntilTheyAreSeenAndFade) {
    const BoardView::Tray& tray = View().tray[2];
    const std::function<void()> news[] = {[&] { outside.DrawDie(2, 3, DieIs::Thrown); },
                                          [&] { outside.ShowTurn(2, TurnIs::BonusForCapture); }};
    for (const auto& show : news) {
        settings.Speed = 50;
        QElapsedTimer clock;
        clock.start();
        show();
        if (&show == &news[0]) outside.Pause(14);  // a shorter fade comes before a longer one
        outside.ClearDice();
        outside.ShowTurn(3, TurnIs::Throws);
        while (tray.opacity == 1 && clock.elapsed() < 5000) QCoreApplication::processEvents();
        EXPECT_TRUE(tray.isNews) << "it lies there until it fades";
        EXPECT_GE(clock.elapsed(), 300);
        while (tray.isNews && clock.elapsed() < 5000) QCoreApplication::processEvents();
        EXPECT_EQ(tray.face + tray.bonus, 0);

        clock.start();
        show();
        outside.DrawDie(2, 6, DieIs::Ready);
        EXPECT_GE(clock.elapsed(), 300) << "the next throw waits";

        settings.Speed = 100;
        show();
        outside.ClearDice();
        EXPECT_EQ(tray.face + tray.bonus, 0) << "at once";
    }
}

TEST_F(InTheWindow, TheLightFollowsTheTurn) {
    const std::tuple<TurnIs, Colour, Short> rows[] = {{TurnIs::InDraw, 3, 0},
                                                      {TurnIs::BonusForCapture, 3, 20},
                                                      {TurnIs::BonusForArrival, 3, 10},
                                                      {TurnIs::Won, 3, 0},
                                                      {TurnIs::Over, 0, 0},
                                                      {TurnIs::OnTape, 3, 0}};
    for (const auto& [why, lit, bonus] : rows) {
        outside.DrawDie(3, 4, DieIs::Thrown);
        outside.ShowTurn(3, why);
        const BoardView::Tray& tray = View().tray[3];
        EXPECT_EQ(tray.face, bonus != 0 || why == TurnIs::Won ? 0 : 4) << static_cast<int>(why);
        EXPECT_EQ(tray.bonus, bonus) << static_cast<int>(why);
        EXPECT_EQ(tray.winner, why == TurnIs::Won);
        EXPECT_EQ(View().onTurn, lit) << static_cast<int>(why);
    }
}

TEST_F(InTheWindow, APieceWalksAndTheBoardIsClearedAndDrawnAgain) {
    int lifted = 0;
    outside.PieceLifted = [&] { ++lifted; };
    outside.LiftPiece(11, 10);
    EXPECT_EQ(View().inAir, 11);
    outside.StepPiece(11, 10, 11);
    outside.StepDelay(80);
    EXPECT_EQ(View().at[11], AsPointF(PlaceOfSquare(11)));
    EXPECT_EQ(View().counted, 1);
    state = Position("1:11 0 0 0");
    outside.PutDownPiece(11, 11);
    EXPECT_EQ(View().inAir, 0);
    EXPECT_EQ(lifted, 1);
    outside.RefreshBoard(PiecesShown::None);
    EXPECT_FALSE(View().present[11]);
    outside.PutDownPiece(11, 11);
    EXPECT_GT(View().height[11], 0) << "it falls into its place";
    state = Position("1:20 0 0 0");
    outside.RefreshBoard(PiecesShown::OnTheirSquares);
    EXPECT_EQ(View().at[11], AsPointF(PlaceOfSquare(20)));
}

TEST_F(InTheWindow, WhatMovesGoesOnWhenTheWindowGetsAnotherSize) {
    const auto isAt = [&](QPointF at) { return QLineF(View().at[11], at).length() < 1.5; };
    outside.LiftPiece(11, 10);
    outside.StepPiece(11, 10, 11);
    outside.StepDelay(80);
    outside.StepPiece(11, 11, 12);
    outside.DrawDie(2, 3, DieIs::RollingBy);
    mesa.Scene().ShowStep(0.5);
    const double tilt = View().tray[2].pose.tilt, height = View().height[11] / layout.PieceSize;
    outside.ShowChosenMove(12, 0, 5);
    mesa.resize(640, 480);
    EXPECT_TRUE(QTest::qWaitFor([&] { return layout.ScreenWidth == 640; }));
    EXPECT_EQ(std::tuple(View().inAir, View().counted, View().tray[2].pose.tilt),
              std::tuple(11, 2, tilt));
    EXPECT_NEAR(View().height[11] / layout.PieceSize, height, 0.1);
    EXPECT_TRUE(isAt(AsPointF(PlaceOfSquare(11)) / 2 + AsPointF(PlaceOfSquare(12)) / 2));
    EXPECT_EQ(View().shown.place, AsPointF(PlaceOfSquare(5)));
    EXPECT_EQ(View().at[12], AsPointF(PlaceOf(12)));
    mesa.Scene().ShowStep(1);
    EXPECT_TRUE(isAt(AsPointF(PlaceOfSquare(12))));
    EXPECT_NEAR(View().height[11], 0, 1e-9);
}

TEST_F(InTheWindow, APieceSoundsOnItsGoalWhenItWalksThere) {
    const std::tuple<Square, Short, ExecutionMode, std::vector<Sound>> rows[] = {
        {76, No, ExecutionMode::Forward, {Sound::Step, Sound::Step, Sound::Goal}},
        {76, No, ExecutionMode::Backward, {}},
        {76, Yes, ExecutionMode::Forward, {}},
        {75, No, ExecutionMode::Forward, {Sound::Step}},
        {0, No, ExecutionMode::Forward, {Sound::SentHome}},
    };
    for (const auto& [to, manual, mode, heard] : rows) {
        const bool forward = mode == ExecutionMode::Forward;
        state = Position(forward ? "1:74 0 0 0" : "1:76 0 0 0");
        state.MoveRecords[1] = {1, 0, 2, 2, 1, 74, to, 0, manual, 0, Yes};
        sounds.clear();
        ExecuteMove({state, settings, outside}, mode, 1);
        EXPECT_EQ(sounds, heard) << to << manual << forward;
    }
}

TEST_F(InTheWindow, HandsOnMessagesAndLines) {
    QString asked;
    mesa.Ask = [&](const QString& title, const QString& text, Short lines, MessageButtons buttons) {
        asked = QStringLiteral("%1|%2|%3|%4").arg(title, text).arg(lines).arg(static_cast<int>(buttons));
        return MessageAnswer::Accepted;
    };
    EXPECT_EQ(outside.ShowMessage("Título", "¿Sí?", 2, MessageButtons::YesNo), MessageAnswer::Accepted);
    EXPECT_EQ(asked, "Título|¿Sí?|2|2");
    outside.BeginLog("Inicio");
    outside.AddLogLine(1, {1, 0, 3, 3, 1, 10, 13, 0, No, 0, Yes});
    outside.CutLogFrom(1);
    EXPECT_EQ(mesa.Log().model()->rowCount(), 1);
}

TEST_F(InTheWindow, RollsAllSixFacesAndNoOther) {
    std::set<Short> faces;
    for (int roll = 0; roll < 400; ++roll) faces.insert(outside.RollFace());
    EXPECT_EQ(faces, (std::set<Short>{1, 2, 3, 4, 5, 6}));
}

}  // namespace
}  // namespace zorva::test
