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
    Short Value(Option option, Colour player = 0) { return OptionField(settings, option, player); }

    void GoToPageOf(const OptionRow& row) {
        const bool onRules = Find("Pic_Normas")->isVisible();
        if (row.onRulesPage == onRules) return;
        QTest::mouseClick(Find(row.onRulesPage ? "Bot_Normas" : "Pic_SalirNormas"), Qt::LeftButton);
    }

    /// Presses the mouse on the page, at a point measured from where the option is drawn.
    void Press(Option option, Colour player, QPointF fromOption) {
        QWidget* stop = Find(option, player);
        QWidget* page = stop->parentWidget();
        // The question above the option reaches eight pixels higher.
        const QPoint at = stop->pos() + InToolkit(fromOption + QPointF(0, 8));
        QTest::mousePress(page->childAt(at) ? page->childAt(at) : page, Qt::LeftButton, {}, at);
        QTest::mouseRelease(page, Qt::LeftButton, {}, at);
    }

    Settings settings;
    std::unique_ptr<Personal> window;
    int applied = 0;
    int saved = 0;
};

// -------------------------------------------------------------------------------------- options

TEST_F(PersonalTest, EveryOptionIsFlippedByMouseAndByKey) {
    for (const QSize size : {QSize(640, 480), QSize(1024, 768), QSize(3840, 2160)}) {
        UseScreen(size);
        Open();
        for (const OptionRow& row : AllOptions()) {
            SCOPED_TRACE(NameOf(row.option, row.player).toStdString());
            GoToPageOf(row);
            const Settings before = settings;
            applied = 0;
            Press(row.option, row.player, {18, 21});
            EXPECT_NE(Value(row.option, row.player), OptionField(before, row.option, row.player));
            QTest::keyClick(Find(row.option, row.player), Qt::Key_Space);
            EXPECT_EQ(settings, before) << "the second time leads back";
            QTest::keyClick(Find(row.option, row.player), Qt::Key_Return);
            QTest::keyClick(Find(row.option, row.player), Qt::Key_Enter);
            EXPECT_EQ(settings, before);
            EXPECT_EQ(applied, 4);
        }
    }
}

TEST_F(PersonalTest, OnlyTheSelectorItselfCanBeClicked) {
    Open();
    const QPointF inside[] = {{4, 11}, {33, 11}, {4, 31}, {33, 31}};
    const QPointF outside[] = {{3, 21}, {35, 21}, {18, 10}, {18, 33}, {60, 21}, {18, 0}};
    for (const QPointF point : inside) {
        const Short before = settings.Tutor;
        Press(Option::Tutor, 0, point + QPointF(0.5, 0.5));
        EXPECT_NE(settings.Tutor, before) << point.x() << ", " << point.y();
    }
    for (const QPointF point : outside) {
        const Short before = settings.Tutor;
        Press(Option::Tutor, 0, point);
        EXPECT_EQ(settings.Tutor, before) << point.x() << ", " << point.y();
    }
}

TEST_F(PersonalTest, ThePointerIsAHandOverASelectorAlone) {
    Open();
    QWidget* page = Find("Pic_Opciones");
    const QPoint corner = Find(Option::Sound)->pos();
    QTest::mouseMove(page, corner + QPoint(18, 29));
    EXPECT_EQ(page->cursor().shape(), Qt::BitmapCursor);
    QTest::mouseMove(page, corner + QPoint(80, 29));
    EXPECT_EQ(page->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PersonalTest, AHeldKeyFlipsOnce) {
    Open();
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
    QApplication::sendEvent(Find(Option::Sound), &repeat);
    EXPECT_EQ(settings.SoundOn, 1);
}

// ------------------------------------------------------------------------------------- refusals

TEST_F(PersonalTest, AGameLocksTheDirectionAndWhoTakesPart) {
    Open(true);
    for (const OptionRow& row : AllOptions()) {
        SCOPED_TRACE(NameOf(row.option, row.player).toStdString());
        GoToPageOf(row);
        const Settings before = settings;
        QString title, text;
        QSize messageSize;
        Person person([&](QWidget& message) {
            title = Control<QLabel>(message, "Tex_Titulo")->text();
            text = Control<QLabel>(message, "Tex_Mensaje")->text();
            messageSize = message.size();
            QTest::keyClick(message.focusWidget(), Qt::Key_Return);
        });
        Press(row.option, row.player, {18, 21});
        EXPECT_EQ(settings == before, row.lockedInGame);
        EXPECT_EQ(person.Windows(), row.lockedInGame ? 1 : 0);
        if (!row.lockedInGame) continue;
        EXPECT_EQ(title, "Selección improcedente");
        EXPECT_EQ(messageSize.height(), 3 * 16 + 135);
        EXPECT_EQ(
            text,
            row.option == Option::PlayOrder
                ? "No se puede cambiar el Sentido del juego una vez que ha comenzado la partida. "
                  "Cuando finalice esta partida, podrá realizar dicho cambio."
                : "No se puede activar  o  desactivar a un jugador durante el desarrollo  de  una  "
                  "partida.  Cuando  finalice  esta  partida, podrá realizar dicho cambio.");
        EXPECT_TRUE(window->isVisible());
    }
}

TEST_F(PersonalTest, SomeoneMustTakePart) {
    settings.PlayerActive = {0, 2, 2, 2, 1};
    Open();
    Press(Option::PlayerState, 4, {18, 21});
    QString title;
    Person person([&title](QWidget& message) {
        title = Control<QLabel>(message, "Tex_Titulo")->text();
        QTest::keyClick(message.focusWidget(), Qt::Key_Return);
    });
    QTest::mouseClick(Find("Pic_Salir"), Qt::LeftButton);
    window->close();  // the window manager is refused like everybody
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_EQ(person.Windows(), 3);
    EXPECT_EQ(title, "Datos incorrectos");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(saved, 0);
    Press(Option::PlayerState, 1, {18, 21});
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
        EXPECT_EQ(sounds, std::vector<Short>{4});
    }
}

// -------------------------------------------------------------------------- players, scales, rules

TEST_F(PersonalTest, AColourThatTakesNoPartShowsItsStateOnly) {
    Open();
    for (const bool active : {false, true}) {
        Press(Option::PlayerState, 3, {18, 21});
        EXPECT_TRUE(Find(Option::PlayerState, 3)->isVisible());
        EXPECT_EQ(Find("Txt_Nombre_3")->isVisible(), active);
        EXPECT_EQ(Find("Pic_Nivel_3")->isVisible(), active);
        EXPECT_EQ(Find(Option::PlayerType, 3)->isVisible(), active);
        const Short before = settings.PlayerType[3];
        Press(Option::PlayerType, 3, {18, 21});
        EXPECT_EQ(settings.PlayerType[3] != before, active) << "what is not shown cannot be clicked";
    }
}

TEST_F(PersonalTest, NamesAreTheSettings) {
    settings.PlayerName[2] = "Íñigo";
    Open();
    EXPECT_EQ(Control<QLineEdit>(*window, "Txt_Nombre_2")->text(), "Íñigo");
    auto* box = Control<QLineEdit>(*window, "Txt_Nombre_4");
    box->selectAll();
    QTest::keyClicks(box, " PEPA  ");
    EXPECT_EQ(settings.PlayerName[4], "Pepa  ");
    EXPECT_GT(applied, 0);
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

TEST_F(PersonalTest, AScaleIsDraggedUntilThePointerLeavesIt) {
    for (const QSize size : {QSize(800, 600), QSize(3840, 2160)}) {
        UseScreen(size);
        for (const ScaleRow& row : scales) {
            SCOPED_TRACE(row.name);
            settings = {};
            Open();
            QWidget* scale = Find(row.name);
            const auto at = [this](double value) { return InToolkit({6.5 + value, 9}); };
            const Short& field = row.field(settings);
            QTest::mousePress(scale, Qt::LeftButton, {}, at(50));
            for (const Short value : {51, 73, 100, 0, 12}) {
                QTest::mouseMove(scale, at(value));
                EXPECT_EQ(field, value);
            }
            QTest::mouseMove(scale, at(-3));
            QTest::mouseMove(scale, at(40));
            EXPECT_EQ(field, 12) << "the drag has ended at the left end";
            QTest::mouseRelease(scale, Qt::LeftButton, {}, at(40));
            QTest::mousePress(scale, Qt::LeftButton, {}, at(12));
            QTest::mouseMove(scale, at(97));
            QTest::mouseMove(scale, at(104));
            QTest::mouseMove(scale, at(60));
            EXPECT_EQ(field, 97) << "the drag has ended at the right end";
            QTest::mouseRelease(scale, Qt::LeftButton, {}, at(60));
            QTest::mouseMove(scale, at(61));
            EXPECT_EQ(field, 97) << "nothing is held any more";
        }
    }
}

TEST_F(PersonalTest, AScaleIsTakenByItsMarkerOnly) {
    Open();
    QWidget* scale = Find("Pic_Velocidad");
    for (const double value : {43.0, 57.0, 0.0, 100.0}) {
        QTest::mousePress(scale, Qt::LeftButton, {}, InToolkit({6.5 + value, 9}));
        QTest::mouseMove(scale, InToolkit({26, 9}));
        QTest::mouseRelease(scale, Qt::LeftButton, {}, InToolkit({26, 9}));
        EXPECT_EQ(settings.Speed, 50) << value;
    }
}

TEST_F(PersonalTest, AScaleFollowsTheKeyboardWithinItsRange) {
    Open();
    QWidget* scale = Find("Pic_Nivel_1");
    const auto after = [&](int key) {
        QTest::keyClick(scale, static_cast<Qt::Key>(key));
        return settings.PlayerLevel[1];
    };
    EXPECT_EQ(after(Qt::Key_Right), 51);
    EXPECT_EQ(after(Qt::Key_PageUp), 61);
    EXPECT_EQ(after(Qt::Key_End), 100);
    EXPECT_EQ(after(Qt::Key_Right), 100);
    EXPECT_EQ(after(Qt::Key_Home), 0);
    EXPECT_EQ(after(Qt::Key_Left), 0);
}

TEST_F(PersonalTest, TheThirdRuleDependsOnTheFirst) {
    settings.RuleFiveAllInBox = 2;
    Open();
    QTest::mouseClick(Find("Bot_Normas"), Qt::LeftButton);
    EXPECT_FALSE(Find("Pic_Opciones")->isVisible());
    EXPECT_TRUE(Find(Option::RuleFiveAllInBox)->isVisible());
    Press(Option::RuleLeaveAllInBox, 0, {18, 21});
    EXPECT_FALSE(Find(Option::RuleFiveAllInBox)->isVisible());
    Press(Option::RuleFiveAllInBox, 0, {18, 21});
    EXPECT_EQ(settings.RuleFiveAllInBox, 2) << "where the third rule was, nothing happens";
    Press(Option::RuleLeaveAllInBox, 0, {18, 21});
    EXPECT_TRUE(Find(Option::RuleFiveAllInBox)->isVisible());
    EXPECT_EQ(settings.RuleFiveAllInBox, 2) << "it comes back with its answer";
}

TEST_F(PersonalTest, TheRulesPageLeadsBackWithoutSaving) {
    const std::function<void()> ways[] = {
        [this] { QTest::mouseClick(Find("Pic_SalirNormas"), Qt::LeftButton); },
        [this] { QTest::keyClick(window->focusWidget(), Qt::Key_Escape); },
    };
    for (const auto& goBack : ways) {
        Open();
        QTest::mouseClick(Find("Bot_Normas"), Qt::LeftButton);
        goBack();
        EXPECT_TRUE(Find("Pic_Opciones")->isVisible());
        EXPECT_FALSE(Find("Pic_Normas")->isVisible());
        EXPECT_EQ(saved, 0);
    }
}

// ------------------------------------------------------------------------------- keyboard and sizes

std::set<QString> ReachedBy(QWidget& window, const std::vector<int>& keys) {
    std::set<QString> reached;
    for (int i = 0; i < 60; ++i) {
        reached.insert(window.focusWidget()->objectName());
        QTest::keyClick(window.focusWidget(), static_cast<Qt::Key>(keys[i % keys.size()]));
    }
    return reached;
}

TEST_F(PersonalTest, TabAndTheArrowsReachEverything) {
    std::set<QString> wanted{"Bot_Normas", "Pic_Salir", "Pic_Velocidad"};
    for (const OptionRow& row : AllOptions()) {
        if (!row.onRulesPage) wanted.insert(NameOf(row.option, row.player));
    }
    for (Colour player = 1; player <= ColourCount; ++player) {
        wanted.insert(QStringLiteral("Txt_Nombre_%1").arg(player));
        wanted.insert(QStringLiteral("Pic_Nivel_%1").arg(player));
    }
    for (const int key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Down, Qt::Key_Up}) {
        Open();
        EXPECT_EQ(ReachedBy(*window, {key}), wanted) << key;
    }
    Open();
    QTest::mouseClick(Find("Bot_Normas"), Qt::LeftButton);
    EXPECT_EQ(ReachedBy(*window, {Qt::Key_Down}),
              (std::set<QString>{"Pic_Opcion_9", "Pic_Opcion_11", "Pic_Opcion_10", "Pic_Opcion_5",
                                 "Pic_SalirNormas"}));
}

TEST_F(PersonalTest, TheFocusCanBeSeen) {
    Open();
    for (const char* name : {"Pic_Opcion_4", "Pic_Velocidad", "Txt_Nombre_1", "Pic_Salir"}) {
        QWidget* control = Find(name);
        Find("Bot_Normas")->setFocus();
        const QImage without = control->window()
                                   ->grab(QRect(control->mapTo(window.get(), QPoint()), control->size()))
                                   .toImage();
        control->setFocus();
        const QImage with = control->window()
                                ->grab(QRect(control->mapTo(window.get(), QPoint()), control->size()))
                                .toImage();
        EXPECT_NE(without, with) << name;
    }
}

TEST_F(PersonalTest, FitsEveryScreenWithoutOverlaps) {
    for (const QSize size : ScreenSizes) {
        UseScreen(size);
        Open();
        SCOPED_TRACE(size.width());
        EXPECT_LE(window->width(), services->layout.DeviceWidth);
        EXPECT_LE(window->height(), services->layout.DeviceHeight);
        for (const char* pageName : {"Pic_Opciones", "Pic_Normas"}) {
            const auto controls =
                Find(pageName)->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
            for (int i = 0; i < controls.size(); ++i) {
                EXPECT_TRUE(window->rect().contains(controls[i]->geometry()))
                    << controls[i]->objectName();
                for (int j = 0; j < i; ++j) {
                    EXPECT_FALSE(controls[i]->geometry().intersects(controls[j]->geometry()))
                        << controls[i]->objectName() << " lies on " << controls[j]->objectName();
                }
            }
        }
    }
}

}  // namespace
}  // namespace zorva
