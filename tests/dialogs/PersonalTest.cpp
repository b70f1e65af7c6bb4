#include "dialogs/Personal.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <set>

#include "dialogs/NameBox.h"
#include "dialogs/Options.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

struct OptionRow {
    Option option;
    Colour player;  // 0: common to all
};

std::vector<OptionRow> AllOptions() {
    std::vector<OptionRow> rows;
    for (Short number = 1; number <= static_cast<Short>(LastOption); ++number) {
        const auto option = static_cast<Option>(number);
        const bool isPlayers = option == Option::PlayerType || option == Option::PlayerState;
        for (Colour player = isPlayers; player <= (isPlayers ? 4 : 0); ++player) {
            rows.push_back({option, player});
        }
    }
    return rows;
}

QString NameOf(Option option, Colour player) {
    const QString name = QStringLiteral("Pic_Opcion_%1").arg(static_cast<Short>(option));
    return player == 0 ? name : name + QStringLiteral("_%1").arg(player);
}

class PersonalTest : public WindowFixture {
protected:
    void Open(bool gameInProgress = false) {
        const auto save = [this] { ++saved, redAtSaving = settings.PlayerName[3]; };
        window = std::make_unique<Personal>(&board, *services, settings, gameInProgress,
                                            PersonalHooks{[this] { ++applied; }, save});
        Show(*window);
    }

    QWidget* Find(const QString& name) { return Control(*window, name); }
    QWidget* Find(Option option, Colour player = 0) { return Find(NameOf(option, player)); }

    void GoToRules() { QTest::mouseClick(Find("Bot_Normas"), Qt::LeftButton); }
    void GoToPageOf(const OptionRow& row) {
        if (Find(row.option, row.player)->parentWidget()->isVisible()) return;
        const bool onRules = Find("Pic_Normas")->isVisible();
        QTest::mouseClick(Find(onRules ? "Pic_SalirNormas" : "Bot_Normas"), Qt::LeftButton);
    }

    /// Presses the mouse on the page at a point of the option, in the middle of its selector by default.
    void Press(Option option, Colour player = 0, QPointF fromOption = {18, 21}) {
        QWidget* stop = Find(option, player);
        QWidget* page = stop->parentWidget();
        // The question above the option reaches eight pixels higher.
        const QPoint at = stop->pos() + InLogical(fromOption + QPointF(0, 8));
        QTest::mouseClick(page->childAt(at) ? page->childAt(at) : page, Qt::LeftButton, {}, at);
    }

    static void Toggle(QWidget* stop) {
        QAccessibleInterface* option = QAccessible::queryAccessibleInterface(stop);
        option->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    }

    Settings settings;
    const std::pair<const char*, Short*> sliders[3] = {{"Pic_Nivel_1", &settings.PlayerLevel[1]},
                                                       {"Pic_Nivel_4", &settings.PlayerLevel[4]},
                                                       {"Pic_Velocidad", &settings.Speed}};
    std::unique_ptr<Personal> window;
    int applied = 0;
    int saved = 0;
    std::string redAtSaving;
};

TEST_F(PersonalTest, EveryOptionIsFlippedByMouseByKeyAndByScreenReader) {
    UseScreen({3840, 2160});
    Open();
    std::set<Short*> fields;
    for (const OptionRow& row : AllOptions()) {
        SCOPED_TRACE(NameOf(row.option, row.player).toStdString());
        GoToPageOf(row);
        narrated.clear();
        EXPECT_TRUE(fields.insert(&OptionField(settings, row.option, row.player)).second);
        const Settings before = settings;
        QWidget* stop = Find(row.option, row.player);
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(stop);
        const auto isFlipped = [&] {
            const Short answer = OptionField(settings, row.option, row.player);
            EXPECT_EQ(spoken->state().checked, answer == 1);
            EXPECT_EQ(spoken->text(QAccessible::Description), AnswerText(row.option, answer));
            EXPECT_EQ(narrated, QStringList(AnswerText(row.option, answer)));
            narrated.clear();
            return answer != OptionField(before, row.option, row.player);
        };
        applied = 0;
        Press(row.option, row.player);
        EXPECT_TRUE(isFlipped());
        const QSignalSpy reports(stop, SIGNAL(toggled(bool)));  // Qt hands each on to screen readers
        Toggle(stop);
        QApplication::processEvents();
        EXPECT_FALSE(isFlipped());
        EXPECT_EQ(reports.count(), 1);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            QTest::keyClick(stop, key);
        }
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
        QApplication::sendEvent(stop, &held);
        QTest::mouseClick(stop->parentWidget(), Qt::RightButton, {}, stop->pos() + InLogical({18, 29}));
        EXPECT_EQ(applied, 6);
        EXPECT_EQ(settings, before) << "six times flipped";
    }
}

TEST_F(PersonalTest, OnlyTheSelectorItselfCanBeClicked) {
    const std::pair<QPointF, bool> rows[] = {{{4.5, 11.5}, true}, {{33.5, 31.5}, true},
                                             {{3, 21}, false},    {{35, 21}, false},
                                             {{18, 10}, false},   {{18, 33}, false}};
    Open();
    QWidget* stop = Find(Option::Tutor);
    for (const auto& [point, inside] : rows) {
        SCOPED_TRACE(testing::Message() << point.x() << ", " << point.y());
        const Short before = settings.Tutor;
        Press(Option::Tutor, 0, point);
        EXPECT_EQ(settings.Tutor != before, inside);
        QWidget* page = stop->parentWidget();
        QTest::mouseMove(page, {1, 1});
        const QImage unlit = page->grab().toImage();
        QTest::mouseMove(page, stop->pos() + InLogical(point + QPointF(0, 8)));
        EXPECT_EQ(page->cursor().shape() == Qt::BitmapCursor, inside);
        EXPECT_EQ(page->grab().toImage() != unlit, inside);
    }
}

TEST_F(PersonalTest, AGameLocksTheDirectionAndWhoTakesPart) {
    Open(true);
    for (const OptionRow& row : AllOptions()) {
        SCOPED_TRACE(NameOf(row.option, row.player).toStdString());
        GoToPageOf(row);
        narrated.clear();
        const bool isOrder = row.option == Option::PlayOrder;
        const bool isLocked = isOrder || row.option == Option::PlayerState;
        const Settings before = settings;
        QString said;
        Person person(
            [&said](QWidget& message) { said = message.findChild<QLabel*>("Tex_Mensaje")->text(); });
        Press(row.option, row.player);
        EXPECT_EQ(settings == before, isLocked);
        EXPECT_EQ(said.contains(isOrder ? "cambiar el Sentido" : "desactivar"), isLocked) << said;
        EXPECT_EQ(narrated.size(), isLocked ? 0 : 1);
        said.clear();
        Toggle(Find(row.option, row.player));  // back, because other options depend on it
        EXPECT_EQ(said, "") << "a message inside the call of the screen reader";
        QApplication::processEvents();
        EXPECT_EQ(settings, before);
        EXPECT_EQ(said.isEmpty(), !isLocked);
    }
}

TEST_F(PersonalTest, SomeoneMustTakePart) {
    settings.PlayerActive = {0, 2, 2, 2, 1};
    Open();
    Press(Option::PlayerState, 4);
    QString title;
    Person person([&title](QWidget& message) { title = message.accessibleName(); });
    QTest::mouseClick(Find("Pic_Salir"), Qt::LeftButton);
    window->close();  // the window manager is refused, too
    EXPECT_EQ(title, "Datos incorrectos");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(saved, 0);
    Press(Option::PlayerState, 1);
    QTest::mouseClick(Find("Pic_Salir"), Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(PersonalTest, AColourThatTakesNoPartShowsItsStateOnly) {
    Open();
    for (const bool active : {false, true}) {
        Press(Option::PlayerState, 3);
        for (const QString& name :
             {QString("Txt_Nombre_3"), QString("Pic_Nivel_3"), NameOf(Option::PlayerType, 3)}) {
            EXPECT_EQ(Find(name)->isVisible(), active) << name;
        }
        const Short before = settings.PlayerType[3];
        Press(Option::PlayerType, 3);
        EXPECT_EQ(settings.PlayerType[3] != before, active) << "clicked where it is not shown";
    }
}

TEST_F(PersonalTest, NamesAndSlidersFollowTheKeyboard) {
    settings.PlayerName[2] = "Íñigo";
    Open();
    EXPECT_EQ(Control<QLineEdit>(*window, "Txt_Nombre_2")->text(), "Íñigo");
    const std::pair<Qt::Key, Short> steps[] = {
        {Qt::Key_PageUp, 60}, {Qt::Key_Right, 61}, {Qt::Key_Home, 0}, {Qt::Key_End, 100}};
    for (const auto& [name, field] : sliders) {
        Find(name)->setFocus();
        narrated.clear();
        for (const auto& [key, value] : steps) {
            applied = 0;
            QTest::keyClick(Find(name), key);
            EXPECT_EQ(*field, value) << name;
            EXPECT_EQ(applied, 1);
        }
        const bool isLevel = field != &settings.Speed;
        EXPECT_EQ(narrated, isLevel ? QStringList({"Juega regular.", "Juega fuerte."}) : QStringList());
        EXPECT_EQ(Find(name)->accessibleDescription(), isLevel ? "Juega fuerte" : "");
    }
}

TEST_F(PersonalTest, ASliderIsDraggedByItsMarkerUntilTheCursorLeavesIt) {
    // The way of the cursor, from the press to the release, and the value that is reached. The marker is
    // twelve pixels wide, and the cursor's way is that of its middle.
    const std::tuple<const char*, std::vector<double>, bool, Short> drags[] = {
        {"follows the cursor", {50, 51, 100, 0, 12}, true, 12},
        {"is not taken left of its marker", {5.2, 26}, false, 12},
        {"nor right of it", {17.9, 26}, false, 12},
        {"is let go at the left", {5.9, 5, -3, 40}, true, 5},
        {"and at the right end", {10.4, 97, 104, 60}, true, 97},
        {"and by the button", {97}, true, 97},
    };
    UseScreen({3840, 2160});
    Open();
    const auto at = [this](double value) { return InLogical({6.5 + value, 9}); };
    for (const auto& [name, field] : sliders) {
        QWidget* slider = Find(name);
        for (const auto& [what, way, caught, reached] : drags) {
            SCOPED_TRACE(testing::Message() << name << ' ' << what);
            QEvent leave(QEvent::Leave);
            QApplication::sendEvent(slider, &leave);
            const QImage unlit = slider->grab().toImage();
            QTest::mouseMove(slider, at(way[0]));
            EXPECT_EQ(slider->grab().toImage() != unlit, caught);
            EXPECT_EQ(slider->cursor().shape() == Qt::BitmapCursor, caught);
            QTest::mousePress(slider, Qt::LeftButton, {}, at(way[0]));
            for (const double value : way) QTest::mouseMove(slider, at(value));
            QTest::mouseRelease(slider, Qt::LeftButton, {}, at(way.back()));
            QTest::mouseMove(slider, at(61));  // without a button
            EXPECT_EQ(*field, reached);
        }
    }
}

TEST_F(PersonalTest, AButtonIsSeenPressedByAKeyToo) {
    Open();
    auto* rules = window->findChild<QAbstractButton*>("Bot_Normas");
    const QImage atRest = rules->grab().toImage();
    QImage released;
    QObject::connect(rules, &QAbstractButton::released, [&] { released = rules->grab().toImage(); });
    QTest::keyClick(rules, Qt::Key_Return);
    EXPECT_FALSE(released.isNull() || released == atRest);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rules->grab().toImage() == atRest; }));
}

TEST_F(PersonalTest, TheThirdRuleDependsOnTheFirst) {
    settings.RuleFiveAllInBox = 2;
    Open();
    GoToRules();
    Press(Option::RuleLeaveAllInBox);
    EXPECT_FALSE(Find(Option::RuleFiveAllInBox)->isVisible());
    Press(Option::RuleFiveAllInBox);
    EXPECT_EQ(settings.RuleFiveAllInBox, 2) << "where the third rule was, nothing happens";
    Press(Option::RuleLeaveAllInBox);
    EXPECT_TRUE(Find(Option::RuleFiveAllInBox)->isVisible());
    QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(Find("Pic_Opciones")->isVisible()) << "Escape leads back to the first page";
    EXPECT_FALSE(Find("Pic_Normas")->isVisible());
    EXPECT_TRUE(narrated.startsWith("Normas de juego.")) << narrated.join(' ');
    EXPECT_TRUE(narrated.endsWith("Personalizar la aplicación.")) << narrated.join(' ');
    EXPECT_EQ(saved, 0);
}

TEST_F(PersonalTest, TabAndTheArrowsReachEverything) {
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Down, Qt::Key_Up}) {
        for (const char* page : {"Pic_Opciones", "Pic_Normas"}) {
            Open();
            if (page == QString("Pic_Normas")) GoToRules();
            std::set<QWidget*> wanted, reached;
            for (auto* control : Find(page)->findChildren<QWidget*>()) {
                if (control->focusPolicy() != Qt::NoFocus) wanted.insert(control);
            }
            for (int times = 0; times < 60; ++times) {
                reached.insert(window->focusWidget());
                QTest::keyClick(window->focusWidget(), key);
            }
            EXPECT_EQ(reached, wanted) << key << page;
        }
    }
    Open();
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget()->objectName(), "Txt_Nombre_1") << "player by player";
}

TEST(NameTest, IsBroughtIntoItsFormAndStaysInIt) {
    const std::tuple<const char*, const char*, const char*> names[] = {
        {"blanks in front go", "  juan CARLOS", "juan carl"},
        {"only the first letter may be a capital", "PEPE", "Pepe"},
        {"blanks inside and at the end stay", "Ana Luz ", "Ana luz "},
        {"accents become small, too", "ÁÉÍÓÚÑÜÇ", "Áéíóúñüç"},
        {"a letter and its accent are one character", "Jose\xCC\x81", "José"},
        {"no quotes, control characters or other alphabets", "\"A\tn\x01\"Ж日\xF0\x9F\x8E\xB2z", "Anz"},
        {"what the file has", "€–Š", "€–š"},
    };
    for (const auto& [name, typed, kept] : names) {
        EXPECT_EQ(NameFromTyped(typed), QString(kept)) << name;
        EXPECT_EQ(NameFromTyped(kept), QString(kept)) << name;
    }
}

TEST_F(PersonalTest, ANameIsFormedWhileItIsTyped) {
    Open();
    auto* box = Control<QLineEdit>(*window, "Txt_Nombre_1");
    box->setText("Alejandro");
    box->setCursorPosition(3);
    QTest::keyClicks(box, "X");
    EXPECT_EQ(settings.PlayerName[1], "Alexjandr");
    EXPECT_EQ(box->cursorPosition(), 4) << "the caret stays where one types";
    QTest::keyClicks(box, "\"");
    EXPECT_EQ(box->cursorPosition(), 4) << "a refused character moves nothing";
    QInputMethodEvent composing("´", {});
    QApplication::sendEvent(box, &composing);
    EXPECT_EQ(box->text(), "Alexjandr") << "the input method has not committed it yet";
    composing.setCommitString("É");
    QApplication::sendEvent(box, &composing);
    EXPECT_EQ(settings.PlayerName[1], "Alexéjand");
}

TEST_F(PersonalTest, ANameCanBeTakenBackStepByStep) {
    Open();
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(window->focusWidget(), " X");
    EXPECT_EQ(settings.PlayerName[1], "Amarillo ") << "nothing was selected";
    auto* box = Control<QLineEdit>(*window, "Txt_Nombre_1");
    box->setText("Eva");
    QTest::keyClicks(box, "NA");
    for (const char* name : {"Evan", "Eva", "Amarillo ", "Amarillo", "Amarillo"}) {
        QTest::keySequence(box, QKeySequence::Undo);
        EXPECT_EQ(settings.PlayerName[1], name);
        EXPECT_TRUE(narrated.endsWith(name)) << name;
    }
    QTest::keySequence(box, QKeySequence::Redo);
    EXPECT_EQ(settings.PlayerName[1], "Amarillo ");
}

TEST_F(PersonalTest, ANameLeftEmptyIsThatOfTheColour) {
    const std::function<void()> ways[] = {
        [this] { QTest::keyClick(window->focusWidget(), Qt::Key_Tab); },
        [this] { QTest::keyClick(window->focusWidget(), Qt::Key_Escape); }, [this] { window->close(); },
        [this] { GoToRules(); }, [this] { Press(Option::PlayerState, 3); }};
    for (const auto& leave : ways) {
        Open();
        auto* box = Control<QLineEdit>(*window, "Txt_Nombre_3");
        box->setFocus();
        box->clear();
        EXPECT_EQ(settings.PlayerName[3], "");
        redAtSaving = "Rojo";
        leave();
        EXPECT_EQ(settings.PlayerName[3], "Rojo");
        EXPECT_EQ(redAtSaving, "Rojo");
    }
}

}  // namespace
}  // namespace zorva
