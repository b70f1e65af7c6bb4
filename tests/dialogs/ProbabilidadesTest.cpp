#include "dialogs/Probabilidades.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include "dialogs/NowPage.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

using Page = Probabilidades::Page;

class ProbabilidadesTest : public WindowFixture {
protected:
    void Open(QSize size) {
        UseScreen(size);
        window = std::make_unique<Probabilidades>(&board, *services, Page::Now);
        window->Turned = [this](Page page) { turned.push_back(page); };
        window->Pointed = [this](Short piece) { pointed.push_back(piece); };
        window->Show(report);
        Show(*window);
    }
    static PositionReport Choice() {
        PositionReport choice;
        choice.settings.PlayerName[3] = "Ana";
        choice.settings.PlayerActive[2] = 2;
        choice.onTurn = 3;
        choice.count = 5;
        choice.chances = {{{0.3, 0.01}, {}, {0.412, 0.01}, {0.002, 0.001}}};
        choice.moves = {
            {2, 22, {0.48, 0.01}, true}, {1, 0, {0.474, 0.01}, true}, {4, 87, {0.999, 0.001}, false}};
        choice.playOuts = 20'000;
        choice.progress = 1;
        return choice;
    }

    const PositionReport report = Choice();
    std::unique_ptr<Probabilidades> window;
    std::vector<Page> turned;
    std::vector<Short> pointed;
};

TEST_F(ProbabilidadesTest, TellsChancesAndMovesInSentences) {
    Open({1366, 768});
    QTest::qWait(1);
    const QString text =
        "Turno de Ana: cuenta 5.\n"
        "Amarillo gana 30 de cada 100 partidas.\n"
        "Ana (Rojo) gana 41 de cada 100 partidas.\n"
        "Verde gana menos de 1 de cada 100 partidas.\n"
        "Si mueve la ficha de la 22: gana 48 de cada 100 partidas, la mejor.\n"
        "Si saca una ficha: gana 47 de cada 100 partidas, casi igual.\n"
        "Si mueve la ficha de la casilla 3 de su columna: gana más de 99 de cada 100 partidas.\n"
        "De 20.000 partidas terminadas desde aquí por el ordenador.";
    EXPECT_EQ(Control(*window, "Pic_Ahora")->accessibleDescription(), text);
    EXPECT_TRUE(narrated.contains("Ahora. " + text));
    const auto said = narrated.size();
    window->Show(report);
    EXPECT_EQ(narrated.size(), said) << "what gets more precise is not said again";
    QTest::keyClick(window->focusWidget(), Qt::Key_F8);
    EXPECT_EQ(narrated.size(), said + 1);
    PositionReport won = report;
    won.isWon = true;
    won.moves.clear();
    window->Show(won);
    EXPECT_TRUE(Control(*window, "Pic_Ahora")->accessibleDescription().startsWith("Ha ganado Ana."));
    window->Show(PositionReport{});
    EXPECT_EQ(Control(*window, "Pic_Ahora")->accessibleDescription(), "Todavía no hay partida.");
}

TEST_F(ProbabilidadesTest, PointsAtMovesByMouseAndKeyboard) {
    Open({1366, 768});
    QWidget* page = Control(*window, "Pic_Ahora");
    QTest::mouseMove(page, InLogical({100, 165}));  // the second move, below three bars
    QTest::keyClick(page, Qt::Key_Down);
    QTest::keyClick(page, Qt::Key_Down);
    QTest::keyClick(page, Qt::Key_Up);
    EXPECT_EQ(pointed, (std::vector<Short>{1, 4, 2, 4}));
    EXPECT_EQ(narrated.back(),
              "Si mueve la ficha de la casilla 3 de su columna: gana más de 99 de cada 100 partidas");
    PositionReport sharper = report;
    std::swap(sharper.moves[0], sharper.moves[2]);
    window->Show(sharper);
    EXPECT_EQ(pointed.size(), 4u) << "the same piece, in another place";
    QTest::mouseMove(page, InLogical({100, 320}));
    EXPECT_EQ(pointed.back(), 0) << "the mark goes with the mouse";
    QTest::keyClick(page, Qt::Key_Up);
    QTest::keyClick(page, Qt::Key_2);
    EXPECT_EQ(pointed.back(), 0) << "and with the page";
}

TEST_F(ProbabilidadesTest, TurnsItsPages) {
    Open({1366, 768});
    for (const auto& [key, modifier] : {std::pair{Qt::Key_Tab, Qt::ControlModifier},
                                        {Qt::Key_Tab, Qt::ControlModifier},
                                        {Qt::Key_Right, Qt::NoModifier},
                                        {Qt::Key_Left, Qt::NoModifier},
                                        {Qt::Key_2, Qt::NoModifier}})
        QTest::keyClick(window->focusWidget(), key, modifier);
    ClickAt(Control(*window, "Bot_Pagina_1"), {50, 12});
    EXPECT_EQ(turned,
              (std::vector{Page::Game, Page::Dice, Page::Now, Page::Dice, Page::Game, Page::Now}));
    EXPECT_TRUE(Control<QAbstractButton>(*window, "Bot_Pagina_1")->isChecked());
    EXPECT_TRUE(Control(*window, "Pic_Ahora")->isVisible());
}

// There it can be moved by its heading.
TEST_F(ProbabilidadesTest, IsModalWhereItWouldCoverTheBoard) {
    const std::tuple<QSize, bool> rows[] = {{{640, 480}, true},   {{1024, 768}, true},
                                            {{1280, 800}, true},  {{1366, 768}, false},
                                            {{1080, 1920}, true}, {{3840, 2160}, false}};
    for (const auto& [size, isModal] : rows) {
        SCOPED_TRACE(size.width());
        Open(size);
        EXPECT_EQ(window->isModal(), isModal);
        EXPECT_EQ(Control(*window, "Bot_Tarjetas")->isVisible(), services->layout.HasCards());
        const QRect place = window->geometry();
        QTest::mousePress(window.get(), Qt::LeftButton, {}, InLogical({60, 20}));
        QTest::mouseMove(window.get(), InLogical({20, 0}));
        QTest::mouseRelease(window.get(), Qt::LeftButton, {}, InLogical({20, 0}));
        const bool fits = window->width() < 800;  // on the test's screen
        EXPECT_EQ(window->geometry() != place, !isModal && fits);
    }
}

}  // namespace
}  // namespace zorva
