// What all windows over the board have in common.
#include "dialogs/BoardDialog.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QTest>

#include "dialogs/Ayuda.h"
#include "dialogs/Historic.h"
#include "dialogs/NameBox.h"
#include "dialogs/Personal.h"
#include "dialogs/PictureButton.h"
#include "dialogs/Probabilidades.h"
#include "dialogs/mensajes.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

class BoardDialogTest : public WindowFixture {
protected:
    std::vector<std::unique_ptr<BoardDialog>> AllWindows() {
        std::vector<std::unique_ptr<BoardDialog>> windows;
        windows.push_back(std::make_unique<mensajes>(&board, *services, "Salir del programa",
                                                     "¿Desea salir?", 1, MessageButtons::YesNo));
        const History history("200103050907Ana      Luis     Eva               250\r\n");
        windows.push_back(std::make_unique<Historic>(&board, *services, history));
        windows.push_back(std::make_unique<Ayuda>(&board, *services, "<html></html>"));
        windows.push_back(std::make_unique<Personal>(&board, *services, settings, false,
                                                     PersonalHooks{{}, [this] { ++saved; }}));
        windows.push_back(
            std::make_unique<Probabilidades>(&board, *services, Probabilidades::Page::Now));
        return windows;
    }

    Settings settings;
    int saved = 0;
};

TEST_F(BoardDialogTest, EveryWayOutLeavesOnceWithItsSound) {
    const std::function<void(QWidget&)> ways[] = {
        [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Escape); },
        [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_F4, Qt::AltModifier); },
        [](QWidget& window) { QTest::keyClick(Control(window, "Pic_Salir"), Qt::Key_Return); },
        [](QWidget& window) { window.close(); },  // as the window manager does
    };
    for (const auto& leave : ways) {
        for (const auto& window : AllWindows()) {
            if (window->objectName() == "mensajes") continue;  // its keys answer
            SCOPED_TRACE(window->objectName().toStdString());
            sounds.clear();
            saved = 0;
            Show(*window);
            leave(*window);
            EXPECT_FALSE(window->isVisible());
            EXPECT_EQ(sounds, std::vector<Sound>{Sound::Accept});
            EXPECT_EQ(saved, window->objectName() == "Personal");
        }
    }
}

TEST_F(BoardDialogTest, F1OpensTheManualWhereKeysDoNotAnswer) {
    for (const auto& window : AllWindows()) {
        Show(*window);
        QTest::keyClick(window->focusWidget(), Qt::Key_F1);
        if (auto* rules = window->findChild<QAbstractButton*>("Bot_Normas")) {
            rules->click();
            for (auto* name : {"Pic_SalirNormas", "Txt_Nombre_1", "Pic_Velocidad"}) {
                QTest::keyClick(Control(*window, name), Qt::Key_F1);
            }
        }
    }
    EXPECT_EQ(readOver, QStringList({"Historic", "Personal", "Personal", "Personal", "Personal",
                                     "Probabilidades"}));
}

TEST_F(BoardDialogTest, LiesOnItsScreenWithoutOverlaps) {
    for (const QSize size : {QSize(640, 480), QSize(800, 600), QSize(768, 1024), QSize(3840, 2160)}) {
        UseScreen(size);
        const Layout& layout = services->layout;
        const QRect used(layout.DeviceLeft, layout.DeviceTop, layout.DeviceWidth, layout.DeviceHeight);
        for (const auto& window : AllWindows()) {
            SCOPED_TRACE(window->objectName().toStdString() + std::to_string(size.width()));
            Show(*window);
            EXPECT_TRUE(used.contains(window->geometry()));
            const int aside = (window->geometry().center() - used.center()).manhattanLength();
            EXPECT_TRUE(aside <= 2 || size.width() > 800) << "the test's screen is 800 pixels wide";
            const QPoint corner(InLogical({12, 12}));  // of the lower left, on bare wood
            EXPECT_GT(
                window->grab().toImage().pixelColor(corner.x(), window->height() - corner.y()).red(),
                30);
            for (const QWidget* control : window->findChildren<QWidget*>()) {
                QRegion taken;
                for (const QWidget* part : control->findChildren<QWidget*>(
                         QRegularExpression("^(Pic|Txt|Bot|Tex)_"), Qt::FindDirectChildrenOnly)) {
                    EXPECT_TRUE(control->rect().contains(part->geometry())) << part->objectName();
                    EXPECT_FALSE(taken.intersects(part->geometry())) << part->objectName();
                    taken += part->geometry();
                }
            }
        }
    }
}

TEST_F(BoardDialogTest, FollowsTheBoardOnItsScreenAndKeepsItsOwnSize) {
    for (const auto& window : AllWindows()) {
        SCOPED_TRACE(window->objectName().toStdString());
        mensajes above(window.get(), *services, "Sobre otra", "ventana", 1, MessageButtons::Acknowledge);
        board.show();
        Show(*window);
        const QImage before = window->grab().toImage();
        services->layout = LayoutFor(1280, 1024);
        EXPECT_EQ(window->grab().toImage(), before);
        Show(above);
        for (const QRect& place : {QRect(100, 50, 600, 700), QRect(40, 60, 700, 650)}) {
            board.setGeometry(place);
            for (const QWidget* each :
                 {static_cast<QWidget*>(window.get()), static_cast<QWidget*>(&above)})
                EXPECT_LE((each->geometry().center() - place.center()).manhattanLength(), 2);
        }
        board.move(700, -400);
        EXPECT_TRUE(window->screen()->geometry().contains(window->geometry()));
        UseScreen({1024, 768});
    }
}

TEST_F(BoardDialogTest, ScreenReadersFindNamesRolesAndAnswers) {
    settings.PlayerType[3] = 2;
    const struct {
        const char *control, *name, *description;
        QAccessible::Role role;
    } rows[] = {
        {"Tex_Mensaje", "¿Desea salir?", "", QAccessible::StaticText},
        {"Pic_Si", "Sí", "", QAccessible::Button},
        {"Pic_Focus", "¿Desea salir?", "Cualquier tecla: sí. Alt y F4: no.", QAccessible::Client},
        {"Pic_Carpeta", "Histórico de partidas",
         "Página 1: partida 1 de 1.\n05-03-2001, 09:07. Ganador: Ana. Perdedores: Luis, Eva. Puntos: "
         "2.50.",
         QAccessible::Client},
        {"Pic_Antiguas", "Partidas más antiguas", "", QAccessible::Button},
        {"Pic_Opcion_3", "Sentido del juego", "Inverso", QAccessible::CheckBox},
        {"Pic_Opcion_6_3", "Rojo: Tipo de juego", "Manual", QAccessible::CheckBox},
        {"Txt_Nombre_1", "Amarillo: Nombre", "", QAccessible::EditableText},
        {"Pic_Nivel_2", "Azul: Nivel de juego", "Juega flojo", QAccessible::Slider},
        {"Bot_Pagina_2", "La partida", "", QAccessible::RadioButton},
        {"Bot_Tarjetas", "Mostrar en las tarjetas", "", QAccessible::CheckBox},
        {"Pic_Ahora", "Ahora", "", QAccessible::Client},
    };
    const auto windows = AllWindows();
    for (const auto& row : rows) {
        QWidget* control = nullptr;
        for (const auto& window : windows) {
            if (!control) control = window->findChild<QWidget*>(row.control);
        }
        QAccessibleInterface* found = QAccessible::queryAccessibleInterface(control);
        ASSERT_TRUE(found) << row.control;
        EXPECT_EQ(found->role(), row.role) << row.control;
        EXPECT_EQ(found->text(QAccessible::Name), row.name);
        EXPECT_EQ(found->text(QAccessible::Description), row.description);
    }
}

TEST_F(BoardDialogTest, WhatTakesTheFocusHasANameAndShowsTheFocus) {
    for (const auto& window : AllWindows()) {
        Show(*window);
        QApplication::setActiveWindow(window.get());  // the one before was it until now
        EXPECT_FALSE(window->accessibleName().isEmpty());
        for (QWidget* control : window->findChildren<QWidget*>()) {
            if (control->focusPolicy() == Qt::NoFocus || control->objectName() == "Pic_Focus") continue;
            SCOPED_TRACE(control->objectName().toStdString());
            EXPECT_TRUE(control->isHidden() || !control->accessibleName().isEmpty());
            if (!control->isVisible()) continue;
            control->clearFocus();
            const QImage without = window->grab().toImage();
            control->setFocus();
            const QImage with = window->grab().toImage();
            EXPECT_NE(without, with);
            if (dynamic_cast<PictureButton*>(control) == nullptr &&
                dynamic_cast<NameBox*>(control) == nullptr) {
                continue;
            }
            control->setAttribute(Qt::WA_UnderMouse);
            const QImage lit = window->grab().toImage();
            EXPECT_NE(lit, with) << "under the cursor";
            control->clearFocus();
            EXPECT_NE(lit, window->grab().toImage()) << "the focus is seen there, too";
        }
    }
}

}  // namespace
}  // namespace zorva
