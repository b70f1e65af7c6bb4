#include "dialogs/Ayuda.h"

#include <sys/stat.h>

#include <QAccessible>
#include <QLabel>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QXmlStreamReader>

#include "app/MenuButtons.h"
#include "app/RecorderStrip.h"
#include "core/Records.h"
#include "dialogs/ManualView.h"
#include "dialogs/Options.h"
#include "tests/dialogs/WindowFixture.h"
#include "tests/support/Files.h"

namespace zorva {
namespace {

namespace fs = std::filesystem;

const fs::path shippedManual = fs::path(ZORVA_TEST_DATA) / "../../assets/manual/ZORVA32.HLP";

QString Shipped() {
    return ReadManual(shippedManual).value();
}

TEST(ReadManualTest, RefusesWhatIsNotOurManualWithoutWaiting) {
    const test::TemporaryFolder folder;
    const fs::path file = folder / "ZORVA32.HLP";
    EXPECT_FALSE(ReadManual(file)) << "missing";
    const std::string ours = Shipped().toStdString();
    for (const std::string& bytes :
         {ours + std::string(40000, '\n'), ours.substr(0, 9000), ours.substr(20),
          std::string("<!DOCTYPE html>\n</html>"), "<!DOCTYPE html>\xc9" + ours.substr(15)}) {
        test::WriteBytes(file, bytes);
        EXPECT_FALSE(ReadManual(file)) << bytes.substr(0, 40);
    }
    fs::resize_file(file, 4'000'000'000);
    EXPECT_FALSE(ReadManual(file)) << "huge";
    fs::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(ReadManual(file)) << "a pipe that nobody writes to";
}

TEST(ManualTest, HasEveryTextThatThePlayerMeetsElsewhere) {
    QStringList wanted{NewGameHeading,     ContinuedGameHeading, "7 Ama. cuenta 5",
                       "10 Ver. a espera", "9 Rojo pasa",        "11 Despl. manual"};
    for (int button = 0; button < MenuButtonCount; ++button) wanted << MenuButtons::HoverText(button);
    for (int key = 0; key < RecorderKeyCount; ++key) {
        wanted << RecorderStrip::HoverText(static_cast<RecorderKey>(key));
    }
    for (Short option = 1; option <= static_cast<Short>(LastOption); ++option) {
        const auto asked = static_cast<Option>(option);
        wanted << QuestionText(asked) << AnswerText(asked, 1) << AnswerText(asked, 2);
    }
    wanted.removeAll("Activada");  // the manual has these answers in the masculine only
    wanted.removeAll("Desactivada");
    QTextDocument manual;
    manual.setHtml(Shipped());
    const QString text = manual.toPlainText().simplified();
    for (const QString& part : wanted) EXPECT_TRUE(text.contains(part.simplified())) << part;
}

QStringList Captured(const QString& text, const char* pattern) {
    QStringList found;
    for (const auto& match : QRegularExpression(pattern).globalMatch(text)) found << match.captured(1);
    return found;
}

TEST(ManualTest, ItsLinksAndImagesAreWhole) {
    const QString html = Shipped();
    QXmlStreamReader reader(html);
    while (!reader.atEnd()) reader.readNext();
    EXPECT_FALSE(reader.hasError()) << reader.errorString() << " in line " << reader.lineNumber();

    const QStringList places = Captured(html, "<a name=\"([^\"]*)\">");
    const QStringList links = Captured(html, "<a href=\"#([^\"]*)\">");
    EXPECT_EQ(QSet(places.begin(), places.end()), QSet(links.begin(), links.end()));
    EXPECT_EQ(QSet(places.begin(), places.end()).size(), places.size());
    EXPECT_EQ(html.count("<h2>"), html.count("<h2><a name="));

    const QStringList names = Captured(html, "<img src=\"([^\"]*)\" alt=\"[^\"]+\"/>");
    EXPECT_EQ(names.size(), html.count("<img"));
    for (const QString& name : names) {
        const QImage image(":/manual/" + name);
        EXPECT_FALSE(image.isNull()) << name;
        EXPECT_LE(image.width(), 2 * 440) << name << ": wider than the narrowest page";
    }
}

using AyudaTest = WindowFixture;

/// The heading that is first on the page.
QString TopHeading(const ManualView& page) {
    QTextBlock block = page.cursorForPosition({0, 0}).block();
    while (block.isValid() && block.blockFormat().headingLevel() == 0) block = block.next();
    return block.text();
}

TEST_F(AyudaTest, TheKeyboardFollowsLinks) {
    Ayuda window(&board, *services, Shipped());
    Show(window);
    auto* page = Control<ManualView>(window, "Txt_Manual");
    const auto position = [page] { return page->verticalScrollBar()->value(); };
    const QString link("Jugar sin ver el tablero");
    for (const QString& text : {link, QString("Bienvenidos")}) {
        const QTextCursor found = page->document()->find(text);
        QTest::mouseMove(page->viewport(), page->cursorRect(found).center() - QPoint(9, 0));
        QString lit;
        for (const auto& selection : page->extraSelections()) lit += selection.cursor.selectedText();
        EXPECT_EQ(lit, text == link ? link : QString()) << "lit under the cursor";
    }
    for (int i = 0; i < 4; ++i) QTest::keyClick(page, Qt::Key_Tab);
    QTest::keyClick(page, Qt::Key_Backtab);
    QTest::keyClick(page, Qt::Key_Return);
    EXPECT_EQ(TopHeading(*page), "2. El tablero");
    // A table's lines are whole pixels: it may take one of the margin's.
    EXPECT_LE(page->document()->size().width(), page->viewport()->width() + 1) << "cut at the right";
    const int section = position();
    QTest::keyClick(page, Qt::Key_Down);
    const int line = position();
    EXPECT_GT(line, section);
    QTest::keyClick(page, Qt::Key_Return);
    EXPECT_EQ(position(), line) << "a link that was followed is not followed again unseen";
    QTest::keyClick(page, Qt::Key_Tab);
    EXPECT_EQ(page->textCursor().selectedText(), "captura a la salida") << "goes on from what is seen";
    QTest::keyClick(page, Qt::Key_End);
    QTest::keyClick(page, Qt::Key_Backtab);
    EXPECT_EQ(page->textCursor().selectedText(), "Volver al índice");
    QTest::keyClick(page, Qt::Key_Tab);
    EXPECT_TRUE(Control(window, "Pic_Salir")->hasFocus()) << "behind the last link";
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(page->hasFocus());
}

TEST_F(AyudaTest, AScreenReaderReadsItAloudLineByLineAndCellByCell) {
    Ayuda window(&board, *services, Shipped());
    Show(window);
    auto* page = Control<ManualView>(window, "Txt_Manual");
    QAccessible::setActive(true);
    for (const auto key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return})
        QTest::keyClick(page, key);
    EXPECT_EQ(narrated,
              QStringList({"Enlace: Jugar sin ver el tablero.", "Enlace: A jugar en cinco minutos.",
                           "Enlace: El tablero.", "2. El tablero."}));
    EXPECT_EQ(page->textCursor().block().text(), "2. El tablero");
    QStringList cells;
    const auto go = [&](Qt::Key key) {
        QTest::keyClick(page, key);
        if (page->textCursor().currentTable()) cells << page->textCursor().block().text();
    };
    for (int line = 0; line < 50 && cells.size() < 6; ++line) go(Qt::Key_Down);
    go(Qt::Key_Up);
    EXPECT_EQ(cells, QStringList({"Color", "Su esquina", "Casilla de salida", "Entrada a su columna",
                                  "● Amarillo", "abajo a la derecha", "● Amarillo"}));
    QTest::keyClick(page, Qt::Key_Tab);
    EXPECT_EQ(narrated.last(), "Enlace: captura a la salida.") << "goes on from the caret";
    QAccessible::setActive(false);
    go(Qt::Key_Down);
    EXPECT_EQ(page->textCursor().selectedText(), "captura a la salida") << "the arrows scroll";
}

TEST_F(AyudaTest, LoadsNothingThatIsNotBuiltIn) {
    const test::TemporaryFolder folder;
    const std::string file = (folder / "x.png").string();
    ASSERT_TRUE(QImage(8, 8, QImage::Format_RGB32).save(QString::fromStdString(file)));
    ManualView view(nullptr, *services, "");
    const auto loads = [&view](const std::string& name) {
        const QVariant image =
            view.document()->resource(QTextDocument::ImageResource, QUrl(name.c_str()));
        return image.value<QImage>().width() > 0;
    };
    EXPECT_TRUE(loads("tablero.png"));
    for (const std::string& name : {file, "file://" + file, "../../../../../../.." + file}) {
        EXPECT_FALSE(loads(name)) << name;
    }
}

TEST_F(AyudaTest, AManualThatIsRefusedIsTold) {
    QStringList told;
    Person person([&told](QWidget& shown) {
        told << shown.accessibleName();
        const auto* text = shown.findChild<QLabel*>("Tex_Mensaje");
        told << (text != nullptr ? text->text() : shown.accessibleDescription());
    });
    ShowHelp(&board, *services, "no/such/folder/ZORVA32.HLP");
    ShowHelp(&board, *services, shippedManual);
    ASSERT_EQ(told.size(), 4);
    EXPECT_EQ(told[0], "Ayuda de la aplicación");
    EXPECT_TRUE(told[1].contains("ZORVA32.HLP")) << told[1];
    EXPECT_TRUE(told[3].endsWith(". Esc: cerrar.")) << "the window with the manual: " << told[3];
}

}  // namespace
}  // namespace zorva
