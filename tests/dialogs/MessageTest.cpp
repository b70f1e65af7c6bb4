#include <QApplication>
#include <QKeyEvent>
#include <QRegion>
#include <QTest>

#include "dialogs/MessageLabel.h"
#include "dialogs/mensajes.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

constexpr auto question = MessageButtons::YesNo;
constexpr auto notice = MessageButtons::Acknowledge;

using MessageTest = WindowFixture;

// Long texts for each number of lines (0: as many as the text takes), and what no text of ours is like.
const std::pair<const char*, Short> texts[] = {
    {"Este jugador ha sacado un 6 por tercera vez y la ficha que ha movido en la jugada anterior vuelve "
     "al cuadro de espera.",
     2},
    {"Se va a tirar el dado para elegir el jugador que comienza la partida. Pulse Aceptar para comenzar "
     "el sorteo o  Cancelar\nsi desea cambiar algún parámetro  antes  de  comenzar  la partida.",
     4},
    {"/media/unacarpetaconunnombrequenosepuedepartirporningunapartesinqueloparezcayquesiguetodavía", 0},
    {"Una línea que no cabe en una sola línea de la ventana, por mucho que se intente, porque tiene más "
     "letras de las previstas.",
     1},
};

/// Checks that the label's text lies within it, and that its rim shows no ink.
void ExpectWhole(const QWidget& label) {
    const QImage picture = label.window()->grab(label.geometry()).toImage();
    const QRect inside = picture.rect().adjusted(1, 1, -1, -1);
    EXPECT_TRUE(HasInk(picture, inside)) << "nothing is written";
    for (const QRect& rim : QRegion(picture.rect()) - inside) {
        EXPECT_FALSE(HasInk(picture, rim)) << "the writing runs into the frame";
    }
}

TEST_F(MessageTest, NoTextIsEverClipped) {
    EXPECT_EQ(WrappedText("1\n2", MessageWidth, {}).LineCount(), 2);
    for (const QSize size : ScreenSizes) {
        UseScreen(size);
        for (const auto& [text, lines] : texts) {
            SCOPED_TRACE(testing::Message() << size.width() << ": " << text);
            const Short lineCount = lines != 0 ? lines : MessageLinesFor(text);
            const QString title = QString("demasiado largo ").repeated(5);
            mensajes window(&board, *services, title, text, lineCount, notice);
            Show(window);
            ExpectWhole(*Control(window, "Tex_Titulo"));
            ExpectWhole(*Control(window, "Tex_Mensaje"));
            const MessageFit fit = FitMessage(text, lineCount);
            EXPECT_EQ(WrappedText(text, MessageWidth - 8, fit.style).LineCount(), fit.lineCount);
            EXPECT_EQ(Control<QLabel>(window, "Tex_Mensaje")->text(), text) << "with all its blanks";
        }
    }
}

TEST_F(MessageTest, ItsTextNamesTheButtons) {
    for (const QString text : {"Pulse Aceptar", "Pulse Aceptar o Cancelar"}) {
        mensajes window(&board, *services, "Título", text, 6, question);
        EXPECT_EQ(window.size(), QSize(400, 6 * 16 + 135));
        const bool isNamed = text.contains("Cancelar");
        EXPECT_EQ(Control(window, "Pic_Si")->accessibleName(), isNamed ? "Aceptar" : "Sí");
        EXPECT_EQ(Control(window, "Pic_No")->accessibleName(), isNamed ? "Cancelar" : "No");
    }
}

std::function<void(QWidget&)> Key(int key, Qt::KeyboardModifiers modifiers = {}, bool repeat = false) {
    return [=](QWidget& window) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), repeat);
        QApplication::sendEvent(window.focusWidget(), &event);
    };
}

std::function<void(QWidget&)> Click(const char* name) {
    return [=](QWidget& window) { QTest::mouseClick(window.findChild<QWidget*>(name), Qt::LeftButton); };
}

TEST_F(MessageTest, IsAnsweredByButtonsAndByAnyKey) {
    const std::vector<Sound> yes{Sound::Accept}, no{Sound::Decline}, silent;
    const struct {
        const char* name;
        std::function<void(QWidget&)> act;
        bool closes, accepts;
        std::vector<Sound> sounds;
        MessageButtons buttons = question;
    } rows[] = {
        {"Escape answers yes, too", Key(Qt::Key_Escape), true, true, yes},
        {"Tab does not move the focus", Key(Qt::Key_Tab), true, true, yes},
        {"Shift alone", Key(Qt::Key_Shift), false, false, silent},
        {"a key held since before", Key(Qt::Key_A, {}, true), false, false, silent},
        {"Alt+F4", Key(Qt::Key_F4, Qt::AltModifier), true, false, silent},
        {"the window manager", [](QWidget& window) { window.close(); }, true, false, silent},
        {"yes", Click("Pic_Si"), true, true, yes},
        {"no", Click("Pic_No"), true, false, no},
        {"a notice's button", Click("Pic_Salir"), true, false, yes, notice},
        {"a key to a notice", Key(Qt::Key_Space), true, false, yes, notice},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        sounds.clear();
        Person person(row.act);
        const MessageAnswer answer =
            ShowMessage(&board, *services, "Salir del programa", "¿Desea salir?", 1, row.buttons);
        EXPECT_EQ(answer == MessageAnswer::Accepted, row.accepts);
        EXPECT_EQ(person.LeftOpen(), !row.closes);
        EXPECT_EQ(sounds, row.sounds);
    }
}

}  // namespace
}  // namespace zorva
