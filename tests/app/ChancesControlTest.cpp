#include "app/ChancesControl.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>

#include "app/BoardInput.h"
#include "app/RecorderControl.h"
#include "tests/app/BoardWindow.h"
#include "tests/support/NotingOutside.h"

namespace zorva::test {
namespace {

/// Yellow, a person, has walked from 10 to 13 and to 18, and blue throws next.
class ChancesControlTest : public testing::Test, public BoardWindow {
protected:
    ChancesControlTest() : BoardWindow("1:18 40 76 76  2:33 84 84 84  3:60 0 0 0", {1366, 768}) {
        settings.PlayerType[1] = 2;
        state.GameInProgress = state.WaitingForThrow = Yes;
        state.CurrentColour = 2;
        state.MoveRecords[1] = {1, 0, 3, 3, 1, 10, 13, 0, No, 0, Yes};
        state.MoveRecords[2] = {1, 0, 5, 5, 1, 13, 18, 0, No, 0, Yes};
        state.MoveRecordCount = 3;
        control.PositionReached(state);
    }

    Probabilidades* Window() { return mesa.findChild<Probabilidades*>(); }
    QString Told(const char* page = "Pic_Ahora") {
        return Window()->findChild<QWidget*>(page)->accessibleDescription();
    }
    bool Tells(const QString& start) {
        return QTest::qWaitFor([&] { return Told().startsWith(start) && !control.IsAtWork(); }, 20'000);
    }
    GameState Won() const {
        GameState won = state;
        won.PiecePosition[2] = {0, 84, 84, 84, 84};
        won.PiecesHome[2] = PiecesPerColour;
        return won;
    }
    void AwaitChoice() {
        state.WaitingForThrow = No;
        state.WaitingForMove = Yes;
        state.CurrentColour = 1;
        state.DieValue = state.MoveCount = 2;
        state.MovablePieces = {No, Yes, Yes, No, No};
        input.ShowWhatCanBePicked();
        control.Refresh();
    }

    RecorderState recorder;
    NotingOutside outside{state};
    RecorderControl recorderControl{{state, settings, outside}, recorder, mesa};
    BoardInput input{state, settings, recorder, mesa};
    ChancesControl control{state, settings, recorder, recorderControl, input, mesa};
};

TEST_F(ChancesControlTest, FollowsTheGameWhileTheWindowIsOpen) {
    EXPECT_FALSE(control.IsAtWork());
    control.Toggle();
    EXPECT_TRUE(control.IsAtWork());
    EXPECT_TRUE(Tells("Turno de Azul.\n"));
    control.Refresh();
    EXPECT_FALSE(control.IsAtWork()) << "the same again is no new task";
    state.CurrentColour = 3;
    mesa.Scene().Lift(11);
    control.PositionReached(state);
    mesa.Waits().Wait(400, [&](double) { EXPECT_TRUE(Told().startsWith("Turno de Azul.")); });
    mesa.Scene().PutDown(11);
    EXPECT_TRUE(Tells("Turno de Rojo.")) << "it waits only for the end of a walk";
    AwaitChoice();
    ASSERT_TRUE(Tells("Turno de Amarillo: cuenta 2.\n"));
    EXPECT_TRUE(Told().contains("Si mueve la ficha de la 18: gana "));
    QTest::keyClick(Window()->findChild<QWidget*>("Pic_Ahora"), Qt::Key_Down);
    EXPECT_NE(View().preview.piece, 0);
    QTest::keyClick(Window(), Qt::Key_2);
    EXPECT_EQ(View().preview.piece, 0) << "the mark is taken away";
    EXPECT_TRUE(control.IsAtWork());
    control.Toggle();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Window() && !control.IsAtWork(); }, 1'000));
    control.PositionReached(state);
    EXPECT_FALSE(control.IsAtWork()) << "nothing is computed behind a closed window";
}

TEST_F(ChancesControlTest, SpeaksOfTheRecorderAndOfAGameThatIsOver) {
    control.Toggle();
    recorderControl.Press(RecorderKey::OnOff);
    Window()->GoTo(1);
    control.Refresh();
    EXPECT_TRUE(Tells("Tras la jugada 1, turno de Azul.")) << qPrintable(Told());
    recorderControl.TakeTapeOut();
    control.PositionReached(Won());
    state.GameInProgress = state.WaitingForThrow = No;
    state.MoveRecordCount = 0;  // the board gives its records up
    settings.PlayerName[2] = "Eva";
    control.Refresh();
    EXPECT_TRUE(Tells("Ha ganado Azul."));
    EXPECT_EQ(control.LatestGame()->MoveRecordCount, 3);
}

TEST_F(ChancesControlTest, WritesOnTheCardsOnlyWhileThatIsWanted) {
    control.Toggle();
    const auto chance = [this] { return View().cards.empty() ? QString() : View().cards[0].chance; };
    ASSERT_TRUE(Tells("Turno de Azul."));
    mesa.Scene().ShowGuide();
    EXPECT_EQ(chance(), "");
    auto* cards = Window()->findChild<QAbstractButton*>("Bot_Tarjetas");
    cards->click();
    control.Toggle();
    control.PositionReached(state);
    EXPECT_TRUE(QTest::qWaitFor([&] { return chance().startsWith("gana "); }));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !control.IsAtWork(); }));
    control.PositionReached(Won());
    EXPECT_TRUE(QTest::qWaitFor([&] { return chance().isEmpty(); })) << "the card tells who has won";
    control.PositionReached(state);
    EXPECT_TRUE(QTest::qWaitFor([&] { return chance().startsWith("gana "); }));
    control.Toggle();
    EXPECT_TRUE(Window()->findChild<QAbstractButton*>("Bot_Tarjetas")->isChecked());
    Window()->findChild<QAbstractButton*>("Bot_Tarjetas")->click();
    EXPECT_EQ(chance(), "");
}

TEST_F(ChancesControlTest, OpensAnewOnAnotherLayout) {
    control.Toggle();
    QTest::keyClick(Window(), Qt::Key_3);
    EXPECT_EQ(Told("Pic_Dados").isEmpty(), false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !control.IsAtWork(); }, 1'000)) << "dice are counted";
    mesa.LaidOut = [this] { control.LayoutChanged(); };
    mesa.resize(2732, 1536);
    const int before = Window()->width();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Window() && Window()->width() > before; }));
    EXPECT_EQ(Window()->CurrentPage(), Probabilidades::Page::Dice);
}

}  // namespace
}  // namespace zorva::test
