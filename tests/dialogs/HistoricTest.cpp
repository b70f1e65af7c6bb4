#include "dialogs/Historic.h"

#include <QApplication>
#include <QTest>

#include "dialogs/HistoricSheet.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

constexpr QPointF olderCorner{324, 287};
constexpr QPointF newerCorner{26, 287};

History GamesOf(long count, const std::string& name = "Ana") {
    std::string padded = name, bytes;
    padded.resize(9, ' ');
    for (long i = 0; i < count; ++i)
        bytes += "200103050907" + padded + padded + padded + padded + "250\r\n";
    return History(bytes);
}

class HistoricTest : public WindowFixture {
protected:
    void Open(History history) {
        window = std::make_unique<Historic>(&board, *services, std::move(history));
        Show(*window);
        sheet = Control<HistoricSheet>(*window, "Pic_Carpeta");
    }

    QImage Picture() const { return sheet->window()->grab(sheet->geometry()).toImage(); }

    /// How many of the eight places on the page are written on, by their points.
    int RecordsSeen() const {
        const QImage picture = Picture();
        int seen = 0;
        for (int slot = 0; slot < 8; ++slot) seen += HasInk(picture, QRect(290, 21 + 32 * slot, 40, 14));
        return seen;
    }

    bool IsHandAt(QPointF point) const {
        QTest::mouseMove(sheet, {1, 1});
        const QImage unlit = sheet->grab().toImage();
        QTest::mouseMove(sheet, point.toPoint());
        const bool isHand = sheet->cursor().shape() == Qt::BitmapCursor;
        EXPECT_EQ(sheet->grab().toImage() != unlit, isHand) << "a live corner is lit";
        return isHand;
    }

    std::unique_ptr<Historic> window;
    HistoricSheet* sheet = nullptr;
};

TEST_F(HistoricTest, PagesByMouseAndByKey) {
    const std::pair<long, std::vector<long>> rows[] = {
        {0, {-1}}, {8, {7}}, {9, {8, 0}}, {24, {23, 15, 7}}, {100000, {99999, 99991}}};
    const std::function<void(bool)> ways[] = {
        [this](bool older) { ClickAt(sheet, older ? olderCorner : newerCorner); },
        [this](bool older) { QTest::keyClick(window.get(), older ? Qt::Key_PageDown : Qt::Key_PageUp); },
    };
    for (const auto& turn : ways) {
        for (const auto& [games, pages] : rows) {
            SCOPED_TRACE(games);
            Open(GamesOf(games));
            sounds.clear();
            pauses.clear();
            turn(false);
            ClickAt(sheet, {296, 287});  // beside the corner
            QTest::mouseClick(sheet, Qt::RightButton, {}, InLogical(olderCorner));
            EXPECT_TRUE(sounds.empty()) << "nothing that could turn";
            for (const long newest : pages) {
                const bool isFirst = newest == pages.front(), isLast = newest < 8;
                if (!isFirst) turn(true);
                EXPECT_EQ(sheet->Pages().Top(), newest);
                EXPECT_EQ(RecordsSeen(), std::min(8L, newest + 1));
                EXPECT_EQ(IsHandAt(newerCorner), !isFirst);
                EXPECT_EQ(IsHandAt(olderCorner), !isLast);
                EXPECT_EQ(Control(*window, "Pic_Antiguas")->isVisible(), !isLast);
                EXPECT_EQ(Control(*window, "Pic_Recientes")->isVisible(), !isFirst);
                if (isLast) turn(true);  // does nothing
            }
            for (std::size_t page = 1; page < pages.size(); ++page) turn(false);
            EXPECT_EQ(sheet->Pages().Top(), games - 1);
            const std::size_t turns = 2 * (pages.size() - 1);
            EXPECT_EQ(sounds, std::vector<Sound>(turns, Sound::HistoryPage));
            EXPECT_EQ(pauses, std::vector<Short>(turns, 10));
        }
    }
}

TEST_F(HistoricTest, SaysThePageWhenItOpensAndWhenItIsTurned) {
    const QString game("\n05-03-2001, 09:07. Ganador: Ana. Perdedores: Ana, Ana y Ana. Puntos: 2.50.");
    for (const long games : {0, 9}) {
        Open(GamesOf(games));
        QApplication::processEvents();
    }
    for (const auto key : {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageUp})
        QTest::keyClick(window.get(), key);  // the first and the third turn nothing
    const QString first = "Página 1: partidas 1 a 8 de 9." + game.repeated(8);
    EXPECT_EQ(narrated, QStringList({"No hay partidas en el histórico.", first,
                                     "Página 2: partida 9 de 9." + game, first}));
    EXPECT_EQ(sheet->accessibleDescription(), first);
}

/// The rules that cross a line of the picture, one string each: '#' for a pixel of the pure colour, '+'
/// for one with a tinge of a colour.
QStringList RulesAcross(const QImage& picture, QPoint at, QPoint step, QColor colour) {
    QString seen;
    for (; picture.valid(at); at += step) {
        const QColor pixel = picture.pixelColor(at);
        seen += pixel == colour ? '#' : std::abs(pixel.red() - pixel.green()) > 60 ? '+' : ' ';
    }
    return seen.split(' ', Qt::SkipEmptyParts);
}

TEST_F(HistoricTest, ItsRulesAreEquallyThickAndPureOnEveryScreen) {
    for (const QSize size :
         {QSize(801, 600), QSize(1024, 600), QSize(1366, 768), QSize(1920, 1080), QSize(3840, 2160)}) {
        SCOPED_TRACE(size.width());
        UseScreen(size);
        Open(GamesOf(0));
        const QString rule(std::max(1, qRound(services->layout.Unit)), '#');
        EXPECT_EQ(RulesAcross(Picture(), InLogical({0, 30}), {1, 0}, {255, 0, 0}), QStringList(3, rule));
        EXPECT_EQ(RulesAcross(Picture(), InLogical({60, 0}), {0, 1}, {0, 255, 0}), QStringList(8, rule));
    }
}

TEST_F(HistoricTest, WideNamesKeepBetweenTheRulesOfTheirColumn) {
    Open(GamesOf(8, "Wmwmwmwmw"));
    const QImage picture = Picture();
    for (const int x : {84, 122, 282}) {
        EXPECT_EQ(picture.pixelColor(x, 5), QColor(255, 0, 0)) << x;
        EXPECT_FALSE(HasInk(picture, QRect(x + 1, 6, 1, 264))) << "a word touches the rule at " << x;
    }
    EXPECT_FALSE(HasInk(picture, QRect(278, 22, 4, 248))) << "names reach the rule of the points";
    int inked = 0;
    for (int y = 35; y < 49; ++y) inked += HasInk(picture, QRect(124, y, 157, 1));
    EXPECT_GE(inked, 6) << "letters large enough to be read";
    EXPECT_EQ(picture.pixelColor(15, 18 + 32 * 8), QColor(0, 255, 0));
    for (const int x : {22, 86, 124, 284}) EXPECT_TRUE(HasInk(picture, QRect(x, 6, 35, 13))) << x;
}

}  // namespace
}  // namespace zorva
