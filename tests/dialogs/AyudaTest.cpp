#include "dialogs/Ayuda.h"

#include <sys/stat.h>

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

#include "app/MenuButtons.h"
#include "app/RecorderStrip.h"
#include "core/Records.h"
#include "dialogs/ManualText.h"
#include "dialogs/ManualView.h"
#include "dialogs/Options.h"
#include "tests/dialogs/WindowFixture.h"
#include "tests/support/Files.h"

namespace zorva {
namespace {

namespace fs = std::filesystem;

const fs::path shippedManual = fs::path(ZORVA_TEST_DATA) / "../../assets/manual/ZORVA32.HLP";

QString Shipped() {
    const std::optional<QString> text = ReadManual(shippedManual);
    if (!text) throw std::runtime_error("the manual is refused");
    return *text;
}

QByteArray Page(const QByteArray& body) {
    return "<!DOCTYPE html>\n<html><body>" + body + "</body></html>";
}

struct Text {
    const char* name;
    QByteArray bytes;
    bool accepted;
};

const Text texts[] = {
    {"paragraphs, links and tables",
     Page("<h2><a name=\"x\"></a>Él</h2><p><a href=\"#x\">x</a></p><table><tr><td>1</td></tr></table>"),
     true},
    {"nothing", "", false},
    {"another encoding", Page("<p>\xc9l</p>"), false},
    {"cut off in the middle", "<html><body><p>Hola", false},
    {"a link out of the manual", Page("<p><a href=\"http://example.org/\">x</a></p>"), false},
    {"a picture of the program's", Page("<p><img src=\"tablero.png\" alt=\"x\"/></p>"), true},
    {"a picture from elsewhere", Page("<p><img src=\"http://example.org/x.png\"/></p>"), false},
    {"a picture in another folder", Page("<p><img src=\"../tablero.png\"/></p>"), false},
    {"pictures without end", Page(QByteArray("<img src=\"tablero.png\"/>").repeated(1000)), false},
    {"a style that loads something", Page("<p style=\"background-image: url(x)\">x</p>"), false},
    {"a table in a table", Page("<table><tr><td><table><tr><td>1</td></tr></table></td></tr></table>"),
     false},
    {"a row without end",
     Page("<table><tr>" + QByteArray("<td>1</td>").repeated(1000) + "</tr></table>"), false},
    {"a cell over a billion columns", Page("<table><tr><td colspan=\"1000000000\">1</td></tr></table>"),
     false},
    {"a list in a list in a list",
     Page(QByteArray("<ul><li>").repeated(50) + QByteArray("</li></ul>").repeated(50)), false},
    {"a table that only an XML reader would skip", Page("<![CDATA[<table>]]>"), false},
    {"a definition of its own", "<!DOCTYPE html [<!ENTITY a \"b\">]><html><body></body></html>", false},
};

TEST(ManualTextTest, TakesWhatIsAManualAndNothingElse) {
    for (const Text& row : texts) {
        EXPECT_EQ(ManualText(row.bytes).has_value(), row.accepted) << row.name;
    }
}

TEST(HelpFileTest, WhatCannotBeReadOrIsTooLongIsNoManual) {
    const test::TemporaryFolder folder;
    const fs::path file = folder / "ZORVA32.HLP";
    EXPECT_FALSE(ReadManual(file)) << "missing";
    EXPECT_FALSE(ReadManual(folder / "")) << "a folder";
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(ReadManual(file)) << "a pipe that nobody writes to";
    fs::remove(file);
    test::WriteBytes(file, Page("<p>Hola</p>").toStdString());
    EXPECT_TRUE(ReadManual(file));
    fs::resize_file(file, 4'000'000'000);
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(ReadManual(file));
    EXPECT_LT(time.elapsed(), 500) << "is read before it is refused";
}

QString ReadableText(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText().simplified();
}

TEST(ManualTest, HasEveryTextThatThePlayerMeetsElsewhere) {
    QStringList wanted{NewGameHeading, ContinuedGameHeading};
    for (int button = 0; button < MenuButtonCount; ++button) wanted << MenuButton::HoverText(button);
    for (int key = 0; key < RecorderKeyCount; ++key) {
        wanted << RecorderStrip::HoverText(static_cast<RecorderKey>(key));
    }
    for (Short option = 1; option <= static_cast<Short>(LastOption); ++option) {
        const auto asked = static_cast<Option>(option);
        wanted << QuestionText(asked) << AnswerText(asked, 1) << AnswerText(asked, 2);
    }
    const std::pair<Short, MoveRecord> moves[] = {
        {7, {.MoverColour = 1, .Count = 5, .Piece = 1, .To = 10}},
        {10, {.MoverColour = 4, .Piece = 1, .From = 10}},
        {9, {.MoverColour = 3}},
        {11, {.Manual = Yes}}};
    for (const auto& [number, move] : moves) {
        wanted << QString::fromStdString(LogLineText(number, move));
    }
    const QString manual = ReadableText(Shipped());
    for (const QString& text : wanted) {
        // A setting that is on or off says so once for both of its genders.
        if (text == "Activada" || text == "Desactivada") continue;
        EXPECT_TRUE(manual.contains(text.simplified())) << text;
    }
}

QStringList Captured(const QString& text, const char* pattern) {
    QStringList found;
    auto matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext()) found << matches.next().captured(1);
    return found;
}

TEST(ManualTest, EveryLinkLeadsToAPlaceAndTheContentsToEverySection) {
    const QString html = Shipped();
    QStringList places = Captured(html, "<a name=\"([^\"]*)\">");
    const QStringList links = Captured(html, "<a href=\"#([^\"]*)\">");
    EXPECT_EQ(places.removeDuplicates(), 0);
    for (const QString& link : links) EXPECT_TRUE(places.contains(link)) << link;
    for (const QString& place : places) EXPECT_TRUE(links.contains(place)) << place;
    EXPECT_EQ(html.count("<h2>"), html.count("<h2><a name="));
}

TEST(ManualTest, EveryPictureIsBuiltInAndDescribed) {
    const QString html = Shipped();
    const QStringList names = Captured(html, "<img src=\"([^\"]*)\" alt=\"[^\"]+\"/>");
    EXPECT_EQ(names.size(), html.count("<img"));
    EXPECT_GE(names.size(), 8);
    for (const QString& name : names) {
        const QImage picture(":/manual/" + name);
        EXPECT_FALSE(picture.isNull()) << name;
        EXPECT_LE(picture.width(), 2 * 440) << name << ": wider than the narrowest page";
    }
}

class AyudaTest : public WindowFixture {
protected:
    static ManualView& PageOf(QWidget& window) {
        return dynamic_cast<ManualView&>(*Control(window, "Txt_Manual"));
    }

    void Open() {
        window = std::make_unique<Ayuda>(&board, *services, Shipped());
        Show(*window);
        page = &PageOf(*window);
    }
    int Position() const { return page->verticalScrollBar()->value(); }

    /// The heading that is first on the page.
    QString TopHeading() const {
        QTextBlock block = page->cursorForPosition({0, 0}).block();
        while (block.isValid() && block.blockFormat().headingLevel() == 0) block = block.next();
        return block.text();
    }

    std::unique_ptr<Ayuda> window;
    ManualView* page = nullptr;
};

TEST_F(AyudaTest, TheKeyboardFollowsLinks) {
    Open();
    for (int i = 0; i < 3; ++i) QTest::keyClick(page, Qt::Key_Tab);
    QTest::keyClick(page, Qt::Key_Backtab);
    QTest::keyClick(page, Qt::Key_Return);
    EXPECT_EQ(TopHeading(), "2. El tablero");
    const int section = Position();
    QTest::keyClick(page, Qt::Key_Down);
    const int line = Position();
    EXPECT_GT(line, section);
    QTest::keyClick(page, Qt::Key_Return);
    EXPECT_EQ(Position(), line) << "a link that was followed is not followed again unseen";
    QTest::keyClick(page, Qt::Key_Tab);
    EXPECT_GE(Position(), section) << "Tab goes on from where the reader is";
    EXPECT_EQ(page->textCursor().selectedText(), "captura a la salida");
}

TEST_F(AyudaTest, TabLeavesThePageAtItsLastLinkAndComesBack) {
    Open();
    QTest::keyClick(page, Qt::Key_End);
    QTest::keyClick(page, Qt::Key_Backtab);
    EXPECT_EQ(page->textCursor().selectedText(), "Volver al índice");
    QTest::keyClick(page, Qt::Key_Tab);
    QWidget* leave = Control(*window, "Pic_Salir");
    EXPECT_TRUE(leave->hasFocus());
    EXPECT_FALSE(page->textCursor().hasSelection());
    QTest::keyClick(leave, Qt::Key_Tab);
    EXPECT_TRUE(page->hasFocus());
}

TEST_F(AyudaTest, AClickFollowsALink) {
    Open();
    const QTextCursor link = page->document()->find("El ratón");
    const QRect at = page->cursorRect(link);
    QTest::mouseMove(page->viewport(), at.center() - QPoint(10, 0));
    QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, at.center() - QPoint(10, 0));
    EXPECT_EQ(TopHeading(), "7. El ratón");
}

TEST_F(AyudaTest, EveryWayOutClosesIt) {
    const std::pair<const char*, std::function<void(QWidget&)>> ways[] = {
        {"Escape", [](QWidget& help) { QTest::keyClick(&PageOf(help), Qt::Key_Escape); }},
        {"Alt+F4", [](QWidget& help) { QTest::keyClick(&PageOf(help), Qt::Key_F4, Qt::AltModifier); }},
        {"the button", [](QWidget& help) { Control<QAbstractButton>(help, "Pic_Salir")->click(); }},
        {"the window manager", [](QWidget& help) { help.close(); }},
    };
    for (const auto& [name, leave] : ways) {
        sounds.clear();
        Person person(leave);
        ShowHelp(&board, *services, shippedManual);
        EXPECT_EQ(person.Windows(), 1) << name;
        EXPECT_FALSE(person.LeftOpen()) << name;
        EXPECT_EQ(sounds, std::vector<Sound>{Sound::Accept}) << name;
    }
}

TEST_F(AyudaTest, IsReadableOnEveryScreen) {
    for (const QSize screen : ScreenSizes) {
        SCOPED_TRACE(screen.width());
        UseScreen(screen);
        Open();
        EXPECT_LE(window->width(), screen.width());
        EXPECT_LE(window->height(), screen.height() * 0.9);
        EXPECT_GE(window->height(), screen.height() * 0.7);
        const QFont font = page->document()->defaultFont();
        EXPECT_NEAR(font.pixelSize(), 16 * services->ToLogical(1), 0.6);
        EXPECT_LE(page->viewport()->width() / QFontMetricsF(font).averageCharWidth(), 95)
            << "lines too long to read";
        // A table's lines are whole pixels: it may take one of the margin's.
        EXPECT_LE(page->document()->size().width(), page->viewport()->width() + 1) << "cut at the right";
        EXPECT_LT(page->geometry().bottom(), Control(*window, "Pic_Salir")->geometry().top());
    }
}

TEST_F(AyudaTest, AMissingManualIsTold) {
    QString told;
    Person person([&](QWidget& message) {
        told = message.accessibleName() + ": " + message.accessibleDescription();
        QTest::keyClick(&message, Qt::Key_Space);
    });
    ShowHelp(&board, *services, "no/such/folder/ZORVA32.HLP");
    EXPECT_EQ(person.Windows(), 1);
    EXPECT_TRUE(told.startsWith("Ayuda de la aplicación: ")) << told;
    EXPECT_TRUE(told.contains("ZORVA32.HLP")) << told;
}

}  // namespace
}  // namespace zorva
