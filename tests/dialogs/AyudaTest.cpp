#include "dialogs/Ayuda.h"

#include <sys/stat.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <fstream>
#include <random>

#include "app/MenuButtons.h"
#include "app/RecorderStrip.h"
#include "core/Records.h"
#include "dialogs/ManualText.h"
#include "dialogs/ManualView.h"
#include "dialogs/Options.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

namespace fs = std::filesystem;

const fs::path shippedManual = fs::path(ZORVA_TEST_DATA) / "../../assets/manual/ZORVA32.HLP";

QString Shipped() {
    const std::optional<QString> text = ReadManual(shippedManual);
    if (!text) throw std::runtime_error("the manual is refused");
    return *text;
}

// ---------------------------------------------------------------------------- what is no manual

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
    {"plain text", "Manual", false},
    {"wild bytes", QByteArray("\x00\xff\xfe<html>\x80\x81\x00", 12), false},
    {"another encoding", Page("<p>\xc9l</p>"), false},
    {"cut off in the middle", "<html><body><p>Hola", false},
    {"a link out of the manual", Page("<p><a href=\"http://example.org/\">x</a></p>"), false},
    {"a link to a file", Page("<p><a href=\"ZORVA32.INI\">x</a></p>"), false},
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

class HelpFileTest : public testing::Test {
protected:
    HelpFileTest() { fs::create_directories(folder); }
    ~HelpFileTest() override { fs::remove_all(folder); }

    const fs::path folder = fs::temp_directory_path() / ("zorva-help-" + std::to_string(getpid()));
    const fs::path file = folder / "ZORVA32.HLP";
};

TEST_F(HelpFileTest, WhatCannotBeReadIsNoManual) {
    EXPECT_FALSE(ReadManual(file)) << "missing";
    EXPECT_FALSE(ReadManual(folder)) << "a folder";
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(ReadManual(file)) << "a pipe that nobody writes to";
}

TEST_F(HelpFileTest, AHugeFileIsRefusedWithoutReadingIt) {
    std::ofstream(file) << Page("<p>Hola</p>").toStdString();
    ASSERT_TRUE(ReadManual(file));
    fs::resize_file(file, 4'000'000'000);
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(ReadManual(file));
    EXPECT_LT(time.elapsed(), 500);
}

// ----------------------------------------------------------------------------- the real manual

QString ReadableText(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText().simplified();
}

TEST(ManualTest, HasEveryTextThatThePlayerMeetsElsewhere) {
    QStringList wanted;
    for (int button = 0; button < MenuButtons::Count; ++button) wanted << MenuButton::HoverText(button);
    for (int key = 0; key < RecorderKeyCount; ++key) {
        wanted << RecorderStrip::HoverText(static_cast<RecorderKey>(key));
    }
    for (Short option = 1; option <= static_cast<Short>(Option::RuleFiveSomeInBox); ++option) {
        const auto asked = static_cast<Option>(option);
        wanted << QuestionText(asked) << AnswerText(asked, 1) << AnswerText(asked, 2);
    }
    MoveRecord arrival{.MoverColour = 1, .Count = 5, .Piece = 1, .To = 10};
    MoveRecord sentHome{.MoverColour = 4, .Piece = 1, .From = 10};
    MoveRecord pass{.MoverColour = 3};
    MoveRecord byHand{.Manual = Yes};
    wanted << NewGameHeading << ContinuedGameHeading << QString::fromStdString(LogLineText(7, arrival))
           << QString::fromStdString(LogLineText(10, sentHome))
           << QString::fromStdString(LogLineText(9, pass))
           << QString::fromStdString(LogLineText(11, byHand));
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

// ----------------------------------------------------------------------------------- the window

class AyudaTest : public WindowFixture {
protected:
    static ManualView& PageOf(QWidget& window) {
        return dynamic_cast<ManualView&>(*Control(window, "Txt_Manual"));
    }
    static int Position(QWidget& window) { return PageOf(window).verticalScrollBar()->value(); }
    static int End(QWidget& window) { return PageOf(window).verticalScrollBar()->maximum(); }

    /// The heading that is first on the page.
    static QString TopHeading(QWidget& window) {
        ManualView& page = PageOf(window);
        QTextBlock block = page.cursorForPosition({0, 0}).block();
        while (block.isValid() && block.blockFormat().headingLevel() == 0) block = block.next();
        return block.text();
    }
};

TEST_F(AyudaTest, KeysScroll) {
    Ayuda window(&board, *services, Shipped());
    Show(window);
    ManualView& page = PageOf(window);
    EXPECT_EQ(Position(window), 0);
    QTest::keyClick(&page, Qt::Key_Down);
    const int line = Position(window);
    EXPECT_GT(line, 0);
    QTest::keyClick(&page, Qt::Key_Up);
    EXPECT_EQ(Position(window), 0);
    QTest::keyClick(&page, Qt::Key_PageDown);
    EXPECT_GT(Position(window), 5 * line);
    QTest::keyClick(&page, Qt::Key_PageUp);
    EXPECT_EQ(Position(window), 0);
    QTest::keyClick(&page, Qt::Key_End);
    EXPECT_EQ(Position(window), End(window));
    QTest::keyClick(&page, Qt::Key_Home);
    EXPECT_EQ(Position(window), 0);
}

TEST_F(AyudaTest, TheKeyboardFollowsLinks) {
    Ayuda window(&board, *services, Shipped());
    Show(window);
    ManualView& page = PageOf(window);
    for (int i = 0; i < 3; ++i) QTest::keyClick(&page, Qt::Key_Tab);
    QTest::keyClick(&page, Qt::Key_Backtab);
    QTest::keyClick(&page, Qt::Key_Return);
    EXPECT_EQ(TopHeading(window), "2. El tablero");
    const int section = Position(window);
    QTest::keyClick(&page, Qt::Key_Down);
    const int line = Position(window);
    EXPECT_GT(line, section);
    QTest::keyClick(&page, Qt::Key_Return);
    EXPECT_EQ(Position(window), line) << "a link that was followed is not followed again unseen";
    QTest::keyClick(&page, Qt::Key_Tab);
    EXPECT_GE(Position(window), section) << "Tab goes on from where the reader is";
    EXPECT_EQ(page.textCursor().selectedText(), "captura a la salida");
}

TEST_F(AyudaTest, TabLeavesThePageAtItsLastLinkAndComesBack) {
    Ayuda window(&board, *services, Shipped());
    Show(window);
    ManualView& page = PageOf(window);
    QTest::keyClick(&page, Qt::Key_End);
    QTest::keyClick(&page, Qt::Key_Backtab);
    EXPECT_EQ(page.textCursor().selectedText(), "Volver al índice");
    QTest::keyClick(&page, Qt::Key_Tab);
    QWidget* leave = Control(window, "Pic_Salir");
    EXPECT_TRUE(leave->hasFocus());
    EXPECT_FALSE(page.textCursor().hasSelection());
    QTest::keyClick(leave, Qt::Key_Tab);
    EXPECT_TRUE(page.hasFocus());
}

TEST_F(AyudaTest, AClickFollowsALink) {
    Ayuda window(&board, *services, Shipped());
    Show(window);
    ManualView& page = PageOf(window);
    const QTextCursor link = page.document()->find("El ratón");
    const QRect at = page.cursorRect(link);
    QTest::mouseMove(page.viewport(), at.center() - QPoint(10, 0));
    QTest::mouseClick(page.viewport(), Qt::LeftButton, {}, at.center() - QPoint(10, 0));
    EXPECT_EQ(TopHeading(window), "7. El ratón");
}

TEST_F(AyudaTest, EveryWayOutClosesIt) {
    const std::pair<const char*, std::function<void(QWidget&)>> ways[] = {
        {"Escape", [](QWidget& window) { QTest::keyClick(&PageOf(window), Qt::Key_Escape); }},
        {"Alt+F4",
         [](QWidget& window) { QTest::keyClick(&PageOf(window), Qt::Key_F4, Qt::AltModifier); }},
        {"the button", [](QWidget& window) { Control<QAbstractButton>(window, "Pic_Salir")->click(); }},
        {"the window manager", [](QWidget& window) { window.close(); }},
    };
    for (const auto& [name, leave] : ways) {
        sounds.clear();
        Person person(leave);
        ShowHelp(&board, *services, shippedManual);
        EXPECT_EQ(person.Windows(), 1) << name;
        EXPECT_FALSE(person.LeftOpen()) << name;
        EXPECT_EQ(sounds, std::vector<Short>{4}) << name;
    }
}

TEST_F(AyudaTest, IsReadableOnEveryScreen) {
    for (const QSize screen : ScreenSizes) {
        UseScreen(screen);
        Ayuda window(&board, *services, Shipped());
        Show(window);
        ManualView& page = PageOf(window);
        const double unit = services->ToToolkit(1);
        const std::string name = std::to_string(screen.width());
        EXPECT_LE(window.width(), screen.width()) << name;
        EXPECT_LE(window.height(), screen.height() * 0.9) << name;
        EXPECT_GE(window.height(), screen.height() * 0.7) << name;
        // A table's lines are whole pixels: it may take one of the margin's.
        EXPECT_LE(page.document()->size().width(), page.viewport()->width() + 1)
            << name << ": cut at the right";
        EXPECT_NEAR(page.document()->defaultFont().pixelSize(), 16 * unit, 0.6) << name;
        const double letter = QFontMetricsF(page.document()->defaultFont()).averageCharWidth();
        EXPECT_LE(page.viewport()->width() / letter, 95) << name << ": lines too long to read";
        EXPECT_TRUE(page.geometry().bottom() < Control(window, "Pic_Salir")->geometry().top()) << name;
    }
}

TEST_F(AyudaTest, TellsItsNames) {
    Ayuda window(&board, *services, Shipped());
    EXPECT_EQ(window.objectName(), "Ayuda");
    const auto nameOf = [](QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    EXPECT_EQ(nameOf(&window), "Ayuda de la aplicación");
    EXPECT_EQ(nameOf(&PageOf(window)), "Manual del juego");
    EXPECT_EQ(nameOf(Control(window, "Pic_Salir")), "Aceptar");
}

// ------------------------------------------------------------------------------ damaged manuals

TEST_F(AyudaTest, AMissingManualIsTold) {
    QString title, text;
    Person person([&](QWidget& window) {
        title = window.accessibleName();
        text = window.accessibleDescription();
        QTest::keyClick(&window, Qt::Key_Space);
    });
    ShowHelp(&board, *services, "no/such/folder/ZORVA32.HLP");
    EXPECT_EQ(person.Windows(), 1);
    EXPECT_EQ(title, "Ayuda de la aplicación");
    EXPECT_TRUE(text.contains("ZORVA32.HLP")) << text;
}

QByteArray Damaged(QByteArray bytes, std::mt19937& chance) {
    const auto at = [&] {
        return static_cast<qsizetype>(chance() % static_cast<unsigned>(bytes.size()));
    };
    const auto length = static_cast<qsizetype>(chance() % 200);
    switch (chance() % 4) {
        case 0: bytes[at()] = static_cast<char>(chance()); break;
        case 1: bytes.truncate(at()); break;
        case 2: bytes.remove(at(), length); break;
        default: bytes.insert(at(), bytes.mid(at(), length));
    }
    return bytes;
}

// Most damages break the text's form; those that do not must be shown in no time.
TEST_F(AyudaTest, ADamagedManualIsRefusedOrShown) {
    const QByteArray good = Shipped().toUtf8();
    std::mt19937 chance(1);
    int refused = 0;
    int shown = 0;
    for (int i = 0; i < 400; ++i) {
        const std::optional<QString> text = ManualText(Damaged(good, chance));
        if (!text) {
            ++refused;
            continue;
        }
        if (++shown > 20) continue;
        QElapsedTimer time;
        time.start();
        Ayuda window(&board, *services, *text);
        window.grab();
        EXPECT_LT(time.elapsed(), 3000);
    }
    EXPECT_GT(refused, 100);
    EXPECT_GT(shown, 20);
}

}  // namespace
}  // namespace zorva
