#include "dialogs/Historic.h"

#include <QTest>

#include "dialogs/HistoricSheet.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

constexpr QPointF olderCorner{324, 287};
constexpr QPointF newerCorner{26, 287};

History GamesOf(long count, const std::string& name = "Ana") {
    const std::string padded = (name + std::string(9, ' ')).substr(0, 9);
    std::string bytes;
    for (long i = 0; i < count; ++i) {
        bytes += "200103050907" + padded + padded + padded + padded + "250\r\n";
    }
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
        QTest::mouseMove(sheet, point.toPoint());
        return sheet->cursor().shape() == Qt::BitmapCursor;
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
    {8, {{7, 0}}},
    {9, {{8, 1}, {0, 0}}},
    {24, {{23, 16}, {15, 8}, {7, 0}}},
    {100000, {{99999, 99992}, {99991, 99984}}},
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
                const bool isLast = row.pages[page].second == 0;
                EXPECT_EQ(IsHandAt(newerCorner), page > 0);
                EXPECT_EQ(IsHandAt(olderCorner), !isLast);
                EXPECT_EQ(Control(*window, "Pic_Antiguas")->isVisible(), !isLast);
                EXPECT_EQ(Control(*window, "Pic_Recientes")->isVisible(), page > 0);
                if (isLast) turn(true);  // does nothing
            }
            for (std::size_t page = 1; page < row.pages.size(); ++page) turn(false);
            EXPECT_EQ(sheet->Pages().Top(), row.games - 1);
            const std::size_t turns = 2 * (row.pages.size() - 1);
            EXPECT_EQ(sounds, std::vector<Sound>(turns, Sound::HistoryPage));
            EXPECT_EQ(pauses, std::vector<Short>(turns, 10));
        }
    }
}

TEST_F(HistoricTest, OnlyACornerTurnsThePageByItsLeftButton) {
    Open(GamesOf(9));
    for (const QPointF point : {QPointF(175, 287), QPointF(324, 270), QPointF(296, 287), newerCorner}) {
        EXPECT_FALSE(IsHandAt(point));
        ClickAt(sheet, point);
    }
    QTest::mouseClick(sheet, Qt::RightButton, {}, InLogical(olderCorner));
    EXPECT_EQ(sheet->Pages().Top(), 8);
}

// The names keep between the rules left and right of their column, however wide they are; the rules
// reach from 5 to the foot of the sheet, and every column has its heading.
TEST_F(HistoricTest, TheSheetIsRuledInColumns) {
    Open(GamesOf(8, "Wmwmwmwmw"));
    const QImage picture = Picture();
    for (const int x : {84, 122, 282}) {
        EXPECT_NE(picture.pixelColor(x, 3), QColor(255, 0, 0));
        EXPECT_EQ(picture.pixelColor(x, HistoricSheet::Height - 1), QColor(255, 0, 0));
        EXPECT_FALSE(HasInk(picture, QRect(x + 1, 6, 1, 264))) << "a word touches the rule at " << x;
        for (int y = 22; y < 270; ++y) ASSERT_GT(picture.pixelColor(x, y).red(), 180) << x << ", " << y;
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
