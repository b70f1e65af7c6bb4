#include <QInputMethodEvent>
#include <QTest>

#include "dialogs/NameBox.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

const struct {
    const char *name, *typed, *kept;
} rows[] = {
    {"blanks in front go", "  juan CARLOS", "juan carl"},
    {"only the first letter may be a capital", "PEPE", "Pepe"},
    {"blanks inside and at the end stay", "Ana Luz ", "Ana luz "},
    {"accents become small, too", "ÁÉÍÓÚÑÜÇ", "Áéíóúñüç"},
    {"a letter and its accent are one character", "Jose\xCC\x81", "José"},
    {"no quotes, control characters or other alphabets", "\"A\tn\x01\"Ж日\xF0\x9F\x8E\xB2z", "Anz"},
    {"what the file has", "€–Š", "€–š"},
};

TEST(NameTest, IsBroughtIntoItsFormAndStaysInIt) {
    for (const auto& row : rows) {
        EXPECT_EQ(NameFromTyped(row.typed), QString(row.kept)) << row.name;
        EXPECT_EQ(NameFromTyped(row.kept), QString(row.kept)) << row.name;
    }
}

class NameBoxTest : public WindowFixture {
protected:
    NameBoxTest() {
        box.resize(74, 20);
        box.Renamed = [this](const QString& name) { reported = name; };
        Show(box);
    }

    NameBox box{nullptr, *services, "Txt_Nombre_1", "Nombre"};
    QString reported;
};

TEST_F(NameBoxTest, TheCaretStaysWhereOneTypes) {
    box.ShowName("Alejandro");
    EXPECT_EQ(reported, "") << "nobody typed it";
    box.setCursorPosition(3);
    QTest::keyClicks(&box, "X");
    EXPECT_EQ(box.text(), "Alexjandr");
    EXPECT_EQ(box.cursorPosition(), 4);
    QTest::keyClicks(&box, "\"");
    EXPECT_EQ(box.cursorPosition(), 4) << "a refused character moves nothing";
    EXPECT_EQ(reported, "Alexjandr");
}

TEST_F(NameBoxTest, TheInputMethodIsLeftAloneUntilItCommits) {
    box.setText("Jos");
    QInputMethodEvent composing("´", {});
    QApplication::sendEvent(&box, &composing);
    EXPECT_EQ(box.text(), "Jos");
    QInputMethodEvent committed;
    committed.setCommitString("É");
    QApplication::sendEvent(&box, &committed);
    EXPECT_EQ(reported, "José");
}

TEST_F(NameBoxTest, TheWidestNameIsSeenWhole) {
    for (const QSize size : ScreenSizes) {
        UseScreen(size);
        for (const bool typed : {false, true}) {
            NameBox wide(nullptr, *services, "Txt_Nombre_1", "Nombre");
            wide.resize(InLogical({74, 20}).x(), InLogical({74, 20}).y());
            typed ? wide.setText("Wwwwwwwww") : wide.ShowName("Wwwwwwwww");
            EXPECT_LE(QFontMetricsF(wide.font()).horizontalAdvance(wide.text()), wide.width() - 4)
                << size.width();
        }
    }
}

}  // namespace
}  // namespace zorva
