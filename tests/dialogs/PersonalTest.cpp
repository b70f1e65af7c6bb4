#include "dialogs/Personal.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <set>

#include "dialogs/Options.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

struct OptionRow {
    Option option;
    Colour player;
    bool lockedInGame;
    bool onRulesPage;
};

std::vector<OptionRow> AllOptions() {
    std::vector<OptionRow> rows{
        {Option::PauseBetweenMoves, 0, false, false}, {Option::Tutor, 0, false, false},
        {Option::PlayOrder, 0, true, false},          {Option::Sound, 0, false, false},
        {Option::ButtonInfo, 0, false, false},        {Option::RuleSixAllOut, 0, false, true},
        {Option::RuleFiveSomeInBox, 0, false, true},  {Option::RuleFiveAllInBox, 0, false, true},
        {Option::RuleLeaveAllInBox, 0, false, true},
    };
    for (Colour player = 1; player <= ColourCount; ++player) {
        rows.push_back({Option::PlayerType, player, false, false});
        rows.push_back({Option::PlayerState, player, true, false});
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
        window = std::make_unique<Personal>(&board, *services, settings, gameInProgress,
                                            PersonalHooks{[this] { ++applied; }, [this] { ++saved; }});
        Show(*window);
    }

    QWidget* Find(const QString& name) { return Control(*window, name); }
    QWidget* Find(Option option, Colour player = 0) { return Find(NameOf(option, player)); }

    void GoToPageOf(const OptionRow& row) {
        const bool onRules = Find("Pic_Normas")->isVisible();
        if (row.onRulesPage == onRules) return;
        QTest::mouseClick(Find(row.onRulesPage ? "Bot_Normas" : "Pic_SalirNormas"), Qt::LeftButton);
    }

    /// Presses the mouse on the page, at a point measured from where the option is drawn.
    void Press(Option option, Colour player = 0, QPointF fromOption = {18, 21}) {
        QWidget* stop = Find(option, player);
        QWidget* page = stop->parentWidget();
        // The question above the option reaches eight pixels higher.
        const QPoint at = stop->pos() + InLogical(fromOption + QPointF(0, 8));
        QTest::mouseClick(page->childAt(at) ? page->childAt(at) : page, Qt::LeftButton, {}, at);
    }

    /// What the window shows of a control.
    QImage PictureOf(QWidget* control) const {
        return window->grab({control->mapTo(window.get(), QPoint()), control->size()}).toImage();
    }

    Settings settings;
    std::unique_ptr<Personal> window;
    int applied = 0;
    int saved = 0;
};

TEST_F(PersonalTest, EveryOptionIsFlippedByMouseAndByKey) {
    for (const QSize size : {QSize(640, 480), QSize(1024, 768), QSize(3840, 2160)}) {
        UseScreen(size);
        Open();
        for (const OptionRow& row : AllOptions()) {
            SCOPED_TRACE(NameOf(row.option, row.player).toStdString());
            GoToPageOf(row);
            const Settings before = settings;
            applied = 0;
            Press(row.option, row.player);
            EXPECT_NE(OptionField(settings, row.option, row.player),
                      OptionField(before, row.option, row.player));
            for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
                QTest::keyClick(Find(row.option, row.player), key);
            }
            EXPECT_EQ(settings, before) << "four times flipped";
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
            QApplication::sendEvent(Find(row.option, row.player), &held);
            EXPECT_EQ(applied, 4);
        }
    }
}

TEST_F(PersonalTest, OnlyTheSelectorItselfCanBeClicked) {
    const struct {
        QPointF point;
        bool inside;
    } rows[] = {{{4.5, 11.5}, true}, {{33.5, 11.5}, true}, {{4.5, 31.5}, true}, {{33.5, 31.5}, true},
                {{3, 21}, false},    {{35, 21}, false},    {{18, 10}, false},   {{18, 33}, false},
                {{60, 21}, false},   {{18, 0}, false}};
    Open();
    QWidget* page = Find("Pic_Opciones");
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.point.x() << ", " << row.point.y());
        const Short before = settings.Tutor;
        Press(Option::Tutor, 0, row.point);
        EXPECT_EQ(settings.Tutor != before, row.inside);
        QTest::mouseMove(page, Find(Option::Tutor)->pos() + InLogical(row.point + QPointF(0, 8)));
        EXPECT_EQ(page->cursor().shape(), row.inside ? Qt::BitmapCursor : Qt::ArrowCursor);
    }
}

TEST_F(PersonalTest, AGameLocksTheDirectionAndWhoTakesPart) {
    Open(true);
    for (const OptionRow& row : AllOptions()) {
        SCOPED_TRACE(NameOf(row.option, row.player).toStdString());
        GoToPageOf(row);
        const Settings before = settings;
        QString said;
        Person person([&](QWidget& message) {
            said = message.accessibleName() + ": " + message.accessibleDescription();
            EXPECT_EQ(message.height(), 3 * 16 + 135) << "three lines";
            QTest::keyClick(message.focusWidget(), Qt::Key_Return);
        });
        Press(row.option, row.player);
        EXPECT_EQ(settings == before, row.lockedInGame);
        EXPECT_EQ(person.Windows(), row.lockedInGame ? 1 : 0);
        if (!row.lockedInGame) continue;
        const bool isOrder = row.option == Option::PlayOrder;
        EXPECT_TRUE(said.startsWith(isOrder ? "Selección improcedente: No se puede cambiar el Sentido"
                                            : "Selección improcedente: No se puede activar "))
            << said;
        EXPECT_TRUE(window->isVisible());
    }
}

TEST_F(PersonalTest, SomeoneMustTakePart) {
    settings.PlayerActive = {0, 2, 2, 2, 1};
    Open();
    Press(Option::PlayerState, 4);
    QString title;
    Person person([&title](QWidget& message) {
        title = message.accessibleName();
        QTest::keyClick(message.focusWidget(), Qt::Key_Return);
    });
    QTest::mouseClick(Find("Pic_Salir"), Qt::LeftButton);
    window->close();  // the window manager is refused like everybody
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_EQ(person.Windows(), 3);
    EXPECT_EQ(title, "Datos incorrectos");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(saved, 0);
    Press(Option::PlayerState, 1);
    QTest::mouseClick(Find("Pic_Salir"), Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(saved, 1);
}

TEST_F(PersonalTest, EveryWayOutSavesOnceWithItsSound) {
    const std::function<void()> ways[] = {
        [this] { QTest::mouseClick(Find("Pic_Salir"), Qt::LeftButton); },
        [this] { QTest::keyClick(window->focusWidget(), Qt::Key_Escape); },
        [this] { QTest::keyClick(Find("Txt_Nombre_2"), Qt::Key_Escape); },
        [this] { QTest::keyClick(window->focusWidget(), Qt::Key_F4, Qt::AltModifier); },
        [this] { window->close(); },
    };
    for (const auto& leave : ways) {
        Open();
        saved = 0;
        sounds.clear();
        leave();
        EXPECT_FALSE(window->isVisible());
        EXPECT_EQ(saved, 1);
        EXPECT_EQ(sounds, std::vector<Sound>{Sound::Accept});
    }
}

TEST_F(PersonalTest, AColourThatTakesNoPartShowsItsStateOnly) {
    Open();
    for (const bool active : {false, true}) {
        Press(Option::PlayerState, 3);
        EXPECT_TRUE(Find(Option::PlayerState, 3)->isVisible());
        for (const QString& name :
             {QString("Txt_Nombre_3"), QString("Pic_Nivel_3"), NameOf(Option::PlayerType, 3)}) {
            EXPECT_EQ(Find(name)->isVisible(), active) << name;
        }
        const Short before = settings.PlayerType[3];
        Press(Option::PlayerType, 3);
        EXPECT_EQ(settings.PlayerType[3] != before, active) << "what is not shown cannot be clicked";
    }
}

TEST_F(PersonalTest, NamesAndScalesFollowTheKeyboard) {
    settings.PlayerName[2] = "Íñigo";
    Open();
    EXPECT_EQ(Control<QLineEdit>(*window, "Txt_Nombre_2")->text(), "Íñigo");
    Control<QLineEdit>(*window, "Txt_Nombre_4")->selectAll();
    QTest::keyClicks(Find("Txt_Nombre_4"), " PEPA  ");
    EXPECT_EQ(settings.PlayerName[4], "Pepa  ");
    EXPECT_GT(applied, 0);
    const auto levelAfter = [this](Qt::Key key) {
        QTest::keyClick(Find("Pic_Nivel_1"), key);
        return settings.PlayerLevel[1];
    };
    EXPECT_EQ(levelAfter(Qt::Key_PageUp), 60);
    EXPECT_EQ(levelAfter(Qt::Key_End), 100);
    EXPECT_EQ(levelAfter(Qt::Key_Right), 100);
    EXPECT_EQ(levelAfter(Qt::Key_Home), 0);
}

struct ScaleRow {
    const char* name;
    std::function<Short&(Settings&)> field;
};

const ScaleRow scales[] = {
    {"Pic_Nivel_1", [](Settings& s) -> Short& { return s.PlayerLevel[1]; }},
    {"Pic_Nivel_2", [](Settings& s) -> Short& { return s.PlayerLevel[2]; }},
    {"Pic_Nivel_3", [](Settings& s) -> Short& { return s.PlayerLevel[3]; }},
    {"Pic_Nivel_4", [](Settings& s) -> Short& { return s.PlayerLevel[4]; }},
    {"Pic_Velocidad", [](Settings& s) -> Short& { return s.Speed; }},
};

struct DragRow {
    const char* name;
    double pressedAt;
    std::vector<double> way;
    Short reached;
};

const DragRow drags[] = {
    {"follows the cursor", 50, {51, 100, 0, 12}, 12}, {"is taken by its marker only", 5, {26}, 12},
    {"not right beside it either", 19, {26}, 12},     {"is let go at the left end", 12, {5, -3, 40}, 5},
    {"and at the right end", 5, {97, 104, 60}, 97},
};

TEST_F(PersonalTest, AScaleIsDraggedUntilThePointerLeavesIt) {
    for (const QSize size : {QSize(800, 600), QSize(3840, 2160)}) {
        UseScreen(size);
        for (const ScaleRow& row : scales) {
            settings = {};
            Open();
            QWidget* scale = Find(row.name);
            const auto at = [this](double value) { return InLogical({6.5 + value, 9}); };
            for (const DragRow& drag : drags) {
                QTest::mousePress(scale, Qt::LeftButton, {}, at(drag.pressedAt));
                for (const double value : drag.way) QTest::mouseMove(scale, at(value));
                EXPECT_EQ(row.field(settings), drag.reached) << row.name << ' ' << drag.name;
                QTest::mouseRelease(scale, Qt::LeftButton, {}, at(drag.way.back()));
            }
            QTest::mousePress(scale, Qt::LeftButton, {}, at(97));
            QTest::mouseRelease(scale, Qt::LeftButton, {}, at(97));
            QTest::mouseMove(scale, at(61));
            EXPECT_EQ(row.field(settings), 97) << "nothing is held any more";
        }
    }
}

TEST_F(PersonalTest, TheThirdRuleDependsOnTheFirst) {
    settings.RuleFiveAllInBox = 2;
    Open();
    QTest::mouseClick(Find("Bot_Normas"), Qt::LeftButton);
    EXPECT_TRUE(Find(Option::RuleFiveAllInBox)->isVisible());
    Press(Option::RuleLeaveAllInBox);
    EXPECT_FALSE(Find(Option::RuleFiveAllInBox)->isVisible());
    Press(Option::RuleFiveAllInBox);
    EXPECT_EQ(settings.RuleFiveAllInBox, 2) << "where the third rule was, nothing happens";
    Press(Option::RuleLeaveAllInBox);
    EXPECT_TRUE(Find(Option::RuleFiveAllInBox)->isVisible());
}

TEST_F(PersonalTest, TheRulesPageLeadsBackWithoutSaving) {
    Open();
    for (const bool byKey : {false, true}) {
        QTest::mouseClick(Find("Bot_Normas"), Qt::LeftButton);
        EXPECT_TRUE(Find("Pic_Normas")->isVisible());
        if (byKey) QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
        if (!byKey) QTest::mouseClick(Find("Pic_SalirNormas"), Qt::LeftButton);
        EXPECT_TRUE(Find("Pic_Opciones")->isVisible());
        EXPECT_FALSE(Find("Pic_Normas")->isVisible());
    }
    EXPECT_EQ(saved, 0);
}

TEST_F(PersonalTest, TabAndTheArrowsReachEverything) {
    const std::set<QString> rules{"Pic_Opcion_9", "Pic_Opcion_11", "Pic_Opcion_10", "Pic_Opcion_5",
                                  "Pic_SalirNormas"};
    std::set<QString> settingsPage{"Bot_Normas", "Pic_Salir"};
    for (const OptionRow& row : AllOptions()) {
        if (!row.onRulesPage) settingsPage.insert(NameOf(row.option, row.player));
    }
    for (const ScaleRow& scale : scales) settingsPage.insert(scale.name);
    for (int player = 1; player <= 4; ++player)
        settingsPage.insert(QString("Txt_Nombre_%1").arg(player));
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Down, Qt::Key_Up}) {
        for (const bool onRules : {false, true}) {
            Open();
            if (onRules) QTest::mouseClick(Find("Bot_Normas"), Qt::LeftButton);
            std::set<QString> reached;
            for (int times = 0; times < 60; ++times) {
                reached.insert(window->focusWidget()->objectName());
                QTest::keyClick(window->focusWidget(), key);
            }
            EXPECT_EQ(reached, onRules ? rules : settingsPage) << key;
        }
    }
}

TEST_F(PersonalTest, TheFocusCanBeSeen) {
    Open();
    for (const char* name : {"Pic_Opcion_4", "Pic_Velocidad", "Txt_Nombre_1", "Pic_Salir"}) {
        Find("Bot_Normas")->setFocus();
        const QImage without = PictureOf(Find(name));
        Find(name)->setFocus();
        EXPECT_NE(without, PictureOf(Find(name))) << name;
    }
}

TEST_F(PersonalTest, FitsEveryScreenWithoutOverlaps) {
    for (const QSize size : ScreenSizes) {
        UseScreen(size);
        Open();
        SCOPED_TRACE(size.width());
        EXPECT_LE(window->width(), services->layout.DeviceWidth);
        EXPECT_LE(window->height(), services->layout.DeviceHeight);
        for (const char* page : {"Pic_Opciones", "Pic_Normas"}) {
            QRegion taken;
            for (const QWidget* control :
                 Find(page)->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                const QRect place = control->geometry();
                EXPECT_TRUE(window->rect().contains(place)) << control->objectName();
                EXPECT_FALSE(taken.intersects(place)) << control->objectName() << " lies on another";
                taken += place;
            }
        }
    }
}

}  // namespace
}  // namespace zorva
