#include "app/MoveLog.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "app/Palette.h"
#include "tests/app/BoardWindow.h"

namespace zorva::test {
namespace {

class MoveLogTest : public testing::Test, public BoardWindow {
protected:
    MoveLogTest() {
        log.setGeometry(20, 20, 150, 150);  // eight lines and a half
        log.Begin("Inicio");
        AddTo(30);
    }

    void AddTo(int last) {
        for (int row = log.model()->rowCount(); row <= last; ++row) log.Add(QString::number(row), 3);
        QApplication::processEvents();
    }

    /// The rows that are seen whole, and the one that is selected (-1: none), as "3..10 s7".
    std::string Seen() {
        QApplication::processEvents();
        const QRect page = log.viewport()->rect();
        const int first = log.indexAt({5, 0}).row();
        const int last = log.indexAt({5, page.bottom()}).row();
        const bool isWhole = log.visualRect(log.model()->index(first, 0)).top() == 0 &&
                             log.visualRect(log.model()->index(last, 0)).bottom() == page.bottom();
        const QModelIndexList selected = log.selectionModel()->selectedIndexes();
        return QStringLiteral("%1..%2 s%3%4")
            .arg(first)
            .arg(last)
            .arg(selected.isEmpty() ? -1 : selected.first().row())
            .arg(isWhole ? "" : " cut")
            .toStdString();
    }

    void Wheel(int angle, int sideways = 0) {
        QWheelEvent event({50, 50}, log.mapToGlobal(QPointF(50, 50)), {}, {sideways, angle},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(log.viewport(), &event);
    }

    MoveLog& log = mesa.Log();
};

TEST_F(MoveLogTest, ShowsTheLineThatMattersAndNeverHalfALine) {
    EXPECT_EQ(Seen(), "23..30 s-1");
    log.Select(30);
    EXPECT_EQ(Seen(), "23..30 s30");
    log.Select(5);
    EXPECT_EQ(Seen(), "5..12 s5");
    log.Select(13);
    EXPECT_EQ(Seen(), "6..13 s13");
    log.resize(150, 100);
    EXPECT_EQ(Seen(), "9..13 s13") << "after a change of the size";
    log.resize(150, 150);
    log.Select(-1);
    EXPECT_EQ(Seen(), "23..30 s-1") << "the newest, once none is selected";
    log.Select(8);
    AddTo(31);
    EXPECT_EQ(Seen(), "24..31 s-1") << "a new line deselects and is seen";
    log.Select(31);
    log.CutFrom(20);
    EXPECT_EQ(Seen(), "12..19 s-1");
    log.Begin("Otra");
    AddTo(7);
    EXPECT_EQ(Seen(), "0..7 s-1");
}

TEST_F(MoveLogTest, TheMouseScrollsItAndDoesNothingElse) {
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseMove,
                                    QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
        QMouseEvent event(type, {50, 50}, log.mapToGlobal(QPointF(50, 50)), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(log.viewport(), &event);
    }
    EXPECT_EQ(Seen(), "23..30 s-1");
    EXPECT_FALSE(log.hasFocus());
    EXPECT_FALSE(log.currentIndex().isValid());
    const int bottom = log.verticalScrollBar()->value();
    Wheel(120);
    EXPECT_EQ(bottom - log.verticalScrollBar()->value(), 3 * 16) << "three lines for a notch";
    Wheel(10);
    EXPECT_EQ(bottom - log.verticalScrollBar()->value(), 3 * 16 + 4) << "touchpads scroll by less";
    for (const int sideways : {120, -120, 10}) Wheel(0, sideways);
    EXPECT_EQ(bottom - log.verticalScrollBar()->value(), 3 * 16 + 4) << "there is nothing beside it";
    AddTo(31);
    EXPECT_EQ(Seen(), "24..31 s-1") << "the next move is seen all the same";
}

TEST_F(MoveLogTest, ScreenReadersFindAnItemForEachRowAndAskForItsSentence) {
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&log);
    EXPECT_EQ(list->role(), QAccessible::List);
    log.CutFrom(20);
    EXPECT_EQ(list->childCount(), 20);
    const auto read = [&](int row) { return list->child(row)->text(QAccessible::Name).toStdString(); };
    EXPECT_EQ(list->child(3)->role(), QAccessible::ListItem);
    EXPECT_EQ(read(3), "3");
    std::vector<int> asked;
    log.RowText = [&](int row) { return asked.push_back(row), row == 3 ? "Rojo pasa." : QString(); };
    AddTo(21);
    log.grab();
    EXPECT_TRUE(asked.empty()) << "no reader has asked";
    EXPECT_EQ(read(3), "Rojo pasa.");
    EXPECT_EQ(read(21), "21") << "as it is written";
    EXPECT_EQ(asked, (std::vector{3, 21}));
    log.Begin("Otra");
    EXPECT_EQ(list->childCount(), 1);
    EXPECT_EQ(read(0), "Otra");
}

TEST_F(MoveLogTest, LaysItsLinesOutAnewOnAnotherScale) {
    const auto heightOfLine = [this] { return log.visualRect(log.model()->index(30, 0)).height(); };
    const int before = heightOfLine();
    mesa.resize(2732, 1536);
    QApplication::processEvents();
    EXPECT_EQ(heightOfLine(), 2 * before);
}

TEST_F(MoveLogTest, LooksLikePaperWithABarOnTheSelectedLine) {
    log.Select(0);
    log.Select(7);
    const auto colourAt = [this](int x, int y) { return log.grab().toImage().pixelColor(x, y); };
    const int atRow = 6 + 16 * 7 + 1;  // the seventh move's row, above its text
    EXPECT_EQ(colourAt(1, atRow), palette::Mark);
    EXPECT_EQ(colourAt(4, atRow + 3), palette::PlayerMark[3]) << "whose piece moved";
    EXPECT_EQ(colourAt(100, atRow), palette::Brass);
    const auto light = [&](int y) { return colourAt(100, y).lightness(); };
    log.Select(0);
    EXPECT_GT(light(atRow - 96), light(atRow - 80) + 4) << "every other line is ruled";
    EXPECT_GT(light(atRow), light(atRow - 96) + 20) << "the older lines lie in the shade";
    Wheel(-120);
    EXPECT_GT(light(atRow - 80), light(atRow - 96)) << "the rules scroll with the lines";
    EXPECT_LT(light(0), 100) << "the slit's shadow stays";
    log.Select(99);
    const auto ink = [this](int row) {
        const QImage image =
            log.grab(log.visualRect(log.model()->index(row, 0)).translated(0, 6)).toImage();
        int darkest = 255;
        for (int x = 9; x < 60; ++x) {
            for (int y = 0; y < image.height(); ++y)
                darkest = std::min(darkest, image.pixelColor(x, y).lightness());
        }
        return darkest;
    };
    EXPECT_LT(ink(30), ink(28)) << "the newest line is the strongest";
    EXPECT_LT(light(149), light(140) - 40) << "it bends away where it is longer than the log";
    log.CutFrom(3);
    QApplication::processEvents();
    EXPECT_EQ(colourAt(100, 6 + 16 * 3 + 18), palette::Paper) << "unprinted";
    EXPECT_NE(colourAt(100, 6 + 16 * 3 + 40), palette::Paper) << "torn off";
}

}  // namespace
}  // namespace zorva::test
