#include <QAccessible>
#include <QTest>

#include "dialogs/Ayuda.h"
#include "dialogs/Historic.h"
#include "dialogs/Personal.h"
#include "dialogs/mensajes.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

struct Row {
    const char* control;
    QAccessible::Role role;
    const char* name;
    const char* description;
};

class AccessibilityTest : public WindowFixture {
protected:
    QAccessibleInterface* Of(QWidget& window, const QString& name) {
        return QAccessible::queryAccessibleInterface(Control(window, name));
    }

    void Expect(QWidget& window, const Row& row) {
        SCOPED_TRACE(row.control);
        QAccessibleInterface* interface = Of(window, row.control);
        ASSERT_TRUE(interface);
        EXPECT_EQ(interface->role(), row.role);
        EXPECT_EQ(interface->text(QAccessible::Name), row.name);
        EXPECT_EQ(interface->text(QAccessible::Description), row.description);
    }

    Settings settings;
};

TEST_F(AccessibilityTest, AMessageSaysItsTextAndItsButtons) {
    mensajes window(&board, *services, "Salir del programa", "¿Desea salir?", 1, MessageButtons::YesNo);
    Show(window);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->text(QAccessible::Name),
              "Salir del programa");
    const Row rows[] = {
        {"Tex_Titulo", QAccessible::StaticText, "Salir del programa", ""},
        {"Tex_Mensaje", QAccessible::StaticText, "¿Desea salir?", ""},
        {"Pic_Si", QAccessible::Button, "Sí", ""},
    };
    for (const Row& row : rows) Expect(window, row);
    EXPECT_TRUE(Of(window, "Pic_Focus")->state().focused);
}

TEST_F(AccessibilityTest, TheSettingsTellTheirNamesAndAnswers) {
    settings.PlayerType[3] = 2;
    settings.PlayerLevel[2] = 77;
    Personal window(&board, *services, settings, false, {});
    Show(window);
    const Row rows[] = {
        {"Pic_Opcion_1", QAccessible::CheckBox, "Pausa entre jugadas", "Activada"},
        {"Pic_Opcion_3", QAccessible::CheckBox, "Sentido del juego", "Inverso"},
        {"Pic_Opcion_6_3", QAccessible::CheckBox, "Rojo: Tipo de juego", "Manual"},
        {"Txt_Nombre_1", QAccessible::EditableText, "Amarillo: Nombre", ""},
        {"Pic_Nivel_2", QAccessible::Slider, "Azul: Nivel de juego", ""},
        {"Pic_Opcion_9", QAccessible::CheckBox, "Cómo se sale si están las 4 fichas en cuadro de espera",
         "Se empieza contando en la primera tirada"},
    };
    for (const Row& row : rows) Expect(window, row);
    EXPECT_EQ(Of(window, "Pic_Nivel_2")->valueInterface()->currentValue().toInt(), 77);
    EXPECT_EQ(Of(window, "Txt_Nombre_1")->text(QAccessible::Value), "Amarillo");
    EXPECT_TRUE(Of(window, "Pic_Opcion_1")->state().checked);
    EXPECT_FALSE(Of(window, "Pic_Opcion_3")->state().checked);
    EXPECT_TRUE(Of(window, "Pic_Opcion_5")->state().invisible) << "on the other page";
}

// A screen reader's own press does what a click does.
TEST_F(AccessibilityTest, AnOptionCanBePressedByAScreenReader) {
    Personal window(&board, *services, settings, false, {});
    Show(window);
    QAccessibleInterface* sound = Of(window, "Pic_Opcion_4");
    sound->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(settings.SoundOn, 2);
    EXPECT_EQ(sound->text(QAccessible::Description), "Desactivado");
    EXPECT_FALSE(sound->state().checked);
}

TEST_F(AccessibilityTest, TheHistoryReadsItsPage) {
    const std::string record = "200103050907Ana      Luis     Eva               250\r\n";
    Historic window(&board, *services, History(record));
    Show(window);
    EXPECT_EQ(Of(window, "Pic_Carpeta")->text(QAccessible::Description),
              "05-03-2001, 09:07. Ganador: Ana. Perdedores: Luis, Eva. Puntos: 2.50");
    EXPECT_EQ(Of(window, "Pic_Antiguas")->text(QAccessible::Name), "Partidas más antiguas");
    EXPECT_TRUE(Of(window, "Pic_Antiguas")->state().invisible);
}

TEST_F(AccessibilityTest, NothingThatTakesTheFocusIsNameless) {
    const std::unique_ptr<QWidget> windows[] = {
        std::make_unique<Personal>(&board, *services, settings, false, PersonalHooks{}),
        std::make_unique<Historic>(&board, *services, History()),
        std::make_unique<Ayuda>(&board, *services, "<html></html>"),
        std::make_unique<mensajes>(&board, *services, "Título", "Texto", 1,
                                   MessageButtons::Acknowledge)};
    for (const auto& window : windows) {
        EXPECT_FALSE(window->accessibleName().isEmpty());
        for (const QWidget* control : window->findChildren<QWidget*>()) {
            if (control->focusPolicy() == Qt::NoFocus) continue;
            EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName();
            EXPECT_FALSE(control->objectName().isEmpty());
        }
    }
}

}  // namespace
}  // namespace zorva
