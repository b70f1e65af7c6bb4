#include "dialogs/Historic.h"

#include <QAbstractButton>
#include <QTest>

#include "dialogs/HistoricSheet.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

constexpr QPointF olderCorner{324, 287};
constexpr QPointF newerCorner{26, 287};

/// A history of games numbered by their points, from 0 on.
History GamesOf(long count, const std::string& name = "Ana") {
    std::string bytes;
    for (long i = 0; i < count; ++i) {
        const std::string padded = (name + std::string(9, ' ')).substr(0, 9);
        const std::string points = std::to_string(1000 + i % 1000).substr(1);
        bytes += "200103050907" + padded + padded + padded + padded + points + "\r\n";
    }
    return History(bytes);
}

class HistoricTest : public WindowFixture {
protected:
    void Open(History history) {
        window = std::make_unique<Historic>(&board, *services, std::move(history));
        Show(*window);
        sheet = dynamic_cast<HistoricSheet*>(Control(*window, "Pic_Carpeta"));
    }

    QImage Picture() const { return sheet->window()->grab(sheet->geometry()).toImage(); }

    /// How many of the eight places on the page are written on, by their points.
    int RecordsSeen() const {
        const QImage picture = Picture();
        int seen = 0;
        for (int slot = 0; slot < 8; ++slot) seen += HasInk(picture, QRect(290, 21 + 32 * slot, 40, 14));
        return seen;
    }

    std::unique_ptr<Historic> window;
    HistoricSheet* sheet = nullptr;
};

struct PagesRow {
    long games;
    std::vector<std::pair<long, long>> pages;  // newest and oldest record, page after page
};

const PagesRow rows[] = {
    {0, {{-1, 0}}},
    {1, {{0, 0}}},
    {9, {{8, 1}, {0, 0}}},
    {24, {{23, 16}, {15, 8}, {7, 0}}},
    {100000, {{99999, 99992}, {99991, 99984}, {99983, 99976}}},
};

TEST_F(HistoricTest, PagesByMouseAndByKey) {
    const std::function<void(bool)> ways[] = {
        [this](bool older) { ClickAt(sheet, older ? olderCorner : newerCorner); },
        [this](bool older) { QTest::keyClick(window.get(), older ? Qt::Key_PageDown : Qt::Key_PageUp); },
    };
    for (const auto& turn : ways) {
        for (const PagesRow& row : rows) {
            SCOPED_TRACE(row.games);
            Open(GamesOf(row.games));
            sounds.clear();
            pauses.clear();
            turn(false);
            EXPECT_TRUE(sounds.empty()) << "there is nothing newer";
            for (std::size_t page = 0; page < row.pages.size(); ++page) {
                if (page > 0) turn(true);
                EXPECT_EQ(sheet->Pages().Top(), row.pages[page].first);
                EXPECT_EQ(sheet->Pages().Bottom(), row.pages[page].second);
                EXPECT_EQ(RecordsSeen(), row.pages[page].first - row.pages[page].second + 1);
            }
            EXPECT_EQ(sounds, std::vector<Sound>(row.pages.size() - 1, Sound::HistoryPage));
            EXPECT_EQ(pauses.size(), row.pages.size() - 1);
            if (row.games < 100) turn(true);
            EXPECT_EQ(sheet->Pages().Top(), row.pages.back().first) << "there is nothing older";
            for (std::size_t page = 1; page < row.pages.size(); ++page) turn(false);
            EXPECT_EQ(sheet->Pages().Top(), row.games - 1);
        }
    }
}

TEST_F(HistoricTest, ACornerIsThereOnlyWhileItTurns) {
    Open(GamesOf(9));
    const auto hand = [this](QPointF point) {
        QTest::mouseMove(sheet, point.toPoint());
        return sheet->cursor().shape() == Qt::BitmapCursor;
    };
    for (const QPointF point : {QPointF(175, 287), QPointF(324, 260), newerCorner}) {
        EXPECT_FALSE(hand(point));
        ClickAt(sheet, point);
        EXPECT_EQ(sheet->Pages().Top(), 8);
    }
    EXPECT_TRUE(hand(olderCorner));
    EXPECT_TRUE(Control(*window, "Pic_Antiguas")->isVisible());
    EXPECT_FALSE(Control(*window, "Pic_Recientes")->isVisible());
    ClickAt(sheet, olderCorner);
    EXPECT_TRUE(hand(newerCorner));
    EXPECT_FALSE(hand(olderCorner));
    QTest::mouseClick(Control(*window, "Pic_Salir"), Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(sounds, (std::vector<Sound>{Sound::HistoryPage, Sound::Accept}));
}

// The names keep between the rules left and right of their column, however wide they are.
TEST_F(HistoricTest, TheWidestNamesStayInTheirColumn) {
    Open(GamesOf(8, "Wmwmwmwmw"));
    const QImage picture = Picture();
    for (const int x : {84, 122, 282}) {
        for (int y = 22; y < 270; ++y) {
            const QColor colour = picture.pixelColor(x, y);
            ASSERT_GT(colour.red(), 180) << x << ", " << y;
            const QColor beside = picture.pixelColor(x + 1, y);
            ASSERT_GT(qGray(beside.rgb()), 110) << "letters touch the rule at " << x << ", " << y;
        }
    }
}

TEST_F(HistoricTest, AnEmptyPageHasItsRulesAndAHeadingBetweenThem) {
    Open(History());
    const QImage picture = Picture();
    EXPECT_EQ(RecordsSeen(), 0);
    for (const int x : {84, 122, 282}) {
        EXPECT_EQ(picture.pixelColor(x, 100), QColor(255, 0, 0)) << x;
        EXPECT_NE(picture.pixelColor(x, 3), QColor(255, 0, 0)) << "the rules begin at 5";
        EXPECT_EQ(picture.pixelColor(x, HistoricSheet::Height - 1), QColor(255, 0, 0)) << "to the end";
        EXPECT_FALSE(HasInk(picture, QRect(x + 1, 6, 1, 13))) << "a word touches the rule at " << x;
    }
    int horizontal = 0;
    for (int y = 0; y < HistoricSheet::Height; ++y)
        horizontal += picture.pixelColor(15, y) == QColor(0, 255, 0);
    EXPECT_EQ(horizontal, 8);
    for (const QRect& column :
         {QRect(22, 6, 62, 13), QRect(86, 6, 35, 13), QRect(124, 6, 156, 13), QRect(284, 6, 60, 13)}) {
        EXPECT_TRUE(HasInk(picture, column)) << "no word over the column at " << column.left();
    }
}

}  // namespace
}  // namespace zorva
