#include <QApplication>
#include <QTest>

#include "app/Palette.h"
#include "dialogs/DicePage.h"
#include "dialogs/GamePage.h"
#include "dialogs/GameWords.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

/// A game of a person, Ana, and the computer of ten records, of which the first eight are analysed.
GameReport SomeGame() {
    GameReport report;
    report.settings.PlayerName[1] = "Ana";
    report.settings.PlayerType[1] = 2;
    report.settings.PlayerActive = {0, 1, 2, 1, 2};
    report.game.MoveRecordCount = 11;
    report.game.CurrentColour = 1;
    for (Short move = 1; move <= 10; ++move) {
        const Colour colour = move % 2 == 1 ? 1 : 3;
        report.game.MoveRecords[move] = {colour, 0, 1, 1, 1, 22, 23, 0, No, 0, Yes};
    }
    report.game.MoveRecords[5].From = 0;
    report.game.MoveRecords[7].From = 70;
    for (int record = 1; record <= 8; ++record) {
        const double chance = 0.05 * record;
        report.worths.push_back({{{{chance, 0.01}, {}, {1 - chance, 0.01}, {}}}, {}, {}, {}});
    }
    report.worths[2].luck = {0.21, 0.01};
    report.worths[3].luck = {0.3, 0.2};  // within its error
    report.worths[1].luck = {0.05, 0.01};
    report.worths[7].luck = {0.04, 0.01};
    report.worths[5].luck = {0.31, 0.01};
    report.worths[0].cost = {0.09, 0.01};
    report.worths[0].better = 30;
    report.worths[4].cost = {0.021, 0.01};
    report.worths[4].better = 71;
    report.worths[6].cost = {0.3, 0.01};
    report.worths[6].better = 72;
    report.sums[0].start = report.sums[2].start = {0.5, 0.01};
    report.sums[0].own = {{-0.31, 0.021}, {}, {0.41, 0.02}};
    report.shown = 2;
    return report;
}

QStringList SentencesOf(const std::vector<ToldMoment>& moments) {
    QStringList sentences;
    for (const ToldMoment& moment : moments) sentences << moment.sentence;
    return sentences;
}

TEST(GameWords, TellTheMomentsThatCountedMost) {
    GameReport report = SomeGame();
    EXPECT_EQ(SentencesOf(LuckiestThrows(report)),
              QStringList({"Jugada 6: Rojo sacó 1 y subió de 75 a 100 de cada 100.",
                           "Jugada 3: Ana sacó 1 y subió de 10 a 31 de cada 100.",
                           "Jugada 2: Rojo sacó 1 y subió de 95 a 100 de cada 100."}));
    EXPECT_EQ(
        SentencesOf(CostliestChoices(report)),
        QStringList({"Jugada 7: Ana movió la de su columna; con la otra ganaba 30 más de cada 100.",
                     "Jugada 1: Ana movió la de la 22; con la de la 30 ganaba 9 más de cada 100.",
                     "Jugada 5: Ana sacó una ficha; con la de su columna ganaba 2 más de cada 100."}));
    EXPECT_EQ(CostliestChoices(report)[1].line, "1: Ana movió la de la 22; con la de la 30, 9 más");
    EXPECT_EQ(NoCostsText(report), "De momento, ninguna.");
    report.progress = 1;
    EXPECT_EQ(NoCostsText(report), "Ninguna: muy bien elegido.");
    report.settings.PlayerType[1] = 1;
    EXPECT_EQ(NoCostsText(report), "Juegan solo ordenadores.");
}

class GamePageTest : public WindowFixture {
protected:
    void Open(const GameReport& report) {
        page = std::make_unique<GamePage>(nullptr, *services);
        page->resize(InLogical({566, 348}).x(), InLogical({566, 348}).y());
        page->GoTo = [this](int record) { gone.push_back(record); };
        page->Show(report);
        Show(*page);
        plot = Control(*page, "Pic_Grafico");
    }

    /// The middle of the plot's field at a move of ten.
    static QPointF At(double record) { return {30 + 50 * record, 80}; }
    QColor ColourAt(double record) const {
        return plot->grab().toImage().pixelColor(InLogical(At(record)));
    }

    std::unique_ptr<GamePage> page;
    QWidget* plot = nullptr;
    std::vector<int> gone;
};

TEST_F(GamePageTest, GoesToAMoveByClickAndByKey) {
    for (const QSize size : ScreenSizes) {
        SCOPED_TRACE(size.width());
        UseScreen(size);
        Open(SomeGame());
        for (const double place : {-0.58, 0.4, 6.6, 10.1}) ClickAt(plot, At(place));
        for (const char* moment : {"Bot_Tirada_1", "Bot_Decision_2"}) {
            QTest::mouseClick(Control(*page, moment), Qt::LeftButton);
            QTest::keyClick(Control(*page, moment), Qt::Key_Return);
        }
        EXPECT_EQ(gone, std::vector({0, 0, 7, 10, 6, 6, 1, 1}));
        gone.clear();
    }
    page->setFocus();
    narrated.clear();
    for (const auto key : {Qt::Key_Left, Qt::Key_Return, Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Right,
                           Qt::Key_PageUp, Qt::Key_Right, Qt::Key_Right, Qt::Key_Return})
        QTest::keyClick(plot, key);
    EXPECT_EQ(gone, std::vector({1, 10, 2}));
    const QString last = "Jugada 10: sin calcular todavía.";
    EXPECT_EQ(narrated,
              QStringList({"Jugada 1: Ana (Amarillo) gana 5 de cada 100 partidas; Rojo, 95.", last, last,
                           "Al empezar: Ana (Amarillo) gana 50 de cada 100 partidas; Rojo, 50.",
                           "Jugada 1: Ana (Amarillo) gana 5 de cada 100 partidas; Rojo, 95.",
                           "Jugada 2: Ana (Amarillo) gana 10 de cada 100 partidas; Rojo, 90."}));
}

TEST_F(GamePageTest, TellsTheGameAndLeavesOpenWhatIsNotAnalysed) {
    Open({});
    EXPECT_EQ(page->accessibleDescription(), "Todavía no hay jugadas.");
    Open(SomeGame());
    EXPECT_TRUE(page->accessibleDescription().startsWith(
        "Jugada 2: Ana (Amarillo) gana 10 de cada 100 partidas; Rojo, 90.\n"
        "Ana (Amarillo): suerte −31, más o menos 5; perdido al elegir: 41, más o menos 4.\n"
        "Rojo: suerte 0.\nLas tiradas con más suerte:\nJugada 6: "))
        << page->accessibleDescription();
    EXPECT_NE(ColourAt(7.5), palette::RuledPaper);
    EXPECT_EQ(ColourAt(8.5), palette::RuledPaper);
    const QImage before = plot->grab().toImage();
    QTest::mouseMove(plot, InLogical(At(4)));
    EXPECT_EQ(plot->accessibleDescription(),
              "Jugada 4: Ana (Amarillo) gana 20 de cada 100 partidas; Rojo, 80.");
    EXPECT_NE(plot->grab().toImage(), before);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(plot, &leave);
    EXPECT_EQ(plot->grab().toImage(), before);
}

TEST_F(WindowFixture, ThePageAboutTheDiceJudgesByTheLimitsOfChance) {
    DicePage page(nullptr, *services);
    const auto judgement = [&] { return page.accessibleDescription().section('\n', 0, 0); };
    page.Show({});
    EXPECT_EQ(judgement(), "Todavía no se ha tirado el dado.");
    GameReport report = SomeGame();  // nothing but ones
    report.game.MoveRecordCount = 5;
    page.Show(report);
    EXPECT_EQ(judgement(), "Todo está dentro de lo normal.");
    report.game.MoveRecordCount = 10;
    page.Show(report);
    EXPECT_EQ(judgement(), "2 puntos se salen de lo normal. Por azar se sale uno de cada 100.");
    report.game.MoveRecords[2].Die = report.game.MoveRecords[4].Die = 6;
    report.game.MoveRecords[2].RepeatState = report.game.MoveRecords[4].RepeatState = 1;
    page.Show(report);
    EXPECT_EQ(judgement(), "Un punto se sale de lo normal. Por azar se sale uno de cada 100.");
    EXPECT_EQ(
        page.accessibleDescription().section('\n', 2, 2),
        "Rojo. Tiradas: 4. De cada cara, lo normal es de 0 a 3; ha sacado: uno, 2; dos, 0; tres, 0; "
        "cuatro, 0; cinco, 0; seis, 2. Dos seises seguidos: 0; lo normal es de 0 a 0. "
        "Tres seises seguidos: 0; lo normal es de 0 a 0.");
}

}  // namespace
}  // namespace zorva
