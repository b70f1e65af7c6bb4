#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

#include "dialogs/MessageLabel.h"
#include "dialogs/mensajes.h"
#include "store/FileError.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

constexpr auto question = MessageButtons::YesNo;
constexpr auto notice = MessageButtons::Acknowledge;

class MessageTest : public WindowFixture {
protected:
    /// Shows a question or a notice, lets the person act and tells what came of it.
    MessageAnswer AnswerAfter(MessageButtons buttons, const std::function<void(QWidget&)>& action) {
        Person person(action);
        const MessageAnswer answer =
            ShowMessage(&board, *services, "Salir del programa",
                        "¿Desea abandonar la partida que está jugando?", 1, buttons);
        EXPECT_EQ(person.Windows(), 1);
        leftOpen = person.LeftOpen();
        return answer;
    }

    bool leftOpen = false;
};

struct Text {
    const char* title;
    const char* text;
    Short lineCount;  // 0: as many as the text takes
};

// The longest text for each number of lines, and what no text of ours is like.
const Text texts[] = {
    {"Sorteo del jugador que comienza", "Sale Wmwmwmwmw.", 1},
    {"Ha sacado 3 seises",
     "Este jugador ha sacado un 6 por tercera vez y la ficha que ha movido en la jugada anterior vuelve "
     "al cuadro de espera.",
     2},
    {"Ha sacado 3 seises",
     "Este jugador ha sacado un 6 por tercera vez. Como la ficha que ha movido en la  jugada  anterior "
     "ha llegado a casa no vuelve al cuadro de espera.",
     3},
    {"Selección improcedente",
     "No se puede activar  o  desactivar a un jugador durante el desarrollo  de  una  partida.  Cuando  "
     "finalice  esta  partida, podrá realizar dicho cambio.",
     3},
    {"Comienza la Partida",
     "Se va a tirar el dado para elegir el jugador que comienza la partida. Pulse Aceptar para comenzar "
     "el sorteo o  Cancelar\nsi desea cambiar algún parámetro  antes  de  comenzar  la partida.",
     4},
    {"Tecla no activa",
     "La tecla Restaurar no está activa, ya que la situación de la partida no se ha alterado. Esta "
     "tecla le permite restaurar la partida a una situación anterior una vez que se ha modificado el "
     "desarrollo de la misma mediante la teclas de Avance y Rebobinado.",
     0},
    {"Un título que es con mucho demasiado largo para el ancho de la ventana de mensajes", "Texto", 1},
    {"Una palabra sin blancos",
     "/media/disco/una/carpeta/con/un/nombre/que/no/se/puede/partir/por/ninguna/parte/y/que/sigue", 0},
    {"Más texto del previsto",
     "Una línea que no cabe en una sola línea de la ventana, por poco que sea.", 1},
};

/// Checks that the label's text lies within it, and that its rim shows no ink.
void ExpectWhole(const MessageLabel& label, const Services& services) {
    const double unit = services.ToLogical(1);
    EXPECT_LE(label.Lines().LineCount() * MessageLinePitch, label.height() / unit + 1.5);
    EXPECT_LE(label.Lines().WidestLine(), label.width() / unit - 4);
    const QImage picture = label.window()->grab(label.geometry()).toImage();
    const QRect all = picture.rect();
    EXPECT_TRUE(HasInk(picture, all)) << "nothing is written";
    for (const QRect& rim : {QRect(0, 0, 1, all.height()), QRect(all.right(), 0, 1, all.height()),
                             QRect(0, 0, all.width(), 1), QRect(0, all.bottom(), all.width(), 1)}) {
        EXPECT_FALSE(HasInk(picture, rim)) << "the writing runs into the frame";
    }
}

TEST_F(MessageTest, NoTextIsEverClipped) {
    for (const QSize size : ScreenSizes) {
        UseScreen(size);
        for (const Text& row : texts) {
            SCOPED_TRACE(testing::Message() << size.width() << ": " << row.text);
            const QString text(row.text);
            const Short lineCount = row.lineCount ? row.lineCount : MessageLinesFor(text);
            mensajes window(&board, *services, row.title, text, lineCount, notice);
            Show(window);
            for (const char* name : {"Tex_Titulo", "Tex_Mensaje"}) {
                auto* label = dynamic_cast<MessageLabel*>(Control(window, name));
                ASSERT_TRUE(label);
                ExpectWhole(*label, *services);
            }
            EXPECT_EQ(Control<QLabel>(window, "Tex_Mensaje")->text(), text);
        }
    }
}

TEST_F(MessageTest, TheLineCountSizesTheWindow) {
    for (const Short lineCount : {1, 3, 6}) {
        mensajes window(&board, *services, "Título", "Texto", lineCount, question);
        EXPECT_EQ(window.size(), QSize(400, lineCount * 16 + 135));
        EXPECT_EQ(Control(window, "Tex_Mensaje")->geometry(), QRect(20, 50, 365, lineCount * 16 + 3));
        EXPECT_TRUE(window.rect().contains(Control(window, "Pic_Si")->geometry()));
        EXPECT_TRUE(window.rect().contains(Control(window, "Pic_No")->geometry()));
    }
}

TEST_F(MessageTest, StandsInTheMiddleOfTheBoardsPartOfTheScreen) {
    UseScreen({768, 1024});  // of which the middle 768 x 614 are used
    mensajes window(&board, *services, "Título", "Texto", 1, notice);
    Show(window);
    EXPECT_NEAR(window.geometry().center().x(), 768 / 2, 1);
    EXPECT_NEAR(window.geometry().center().y(), 205 + 614 / 2, 1);
}

TEST_F(MessageTest, HasTheButtonsThatItsTextNames) {
    const struct {
        const char* text;
        MessageButtons buttons;
        QStringList wanted;
    } rows[] = {{"¿Seguimos?", question, {"Sí", "No"}},
                {"Pulse Aceptar", question, {"Sí", "No"}},
                {"Pulse Aceptar o Cancelar", question, {"Aceptar", "Cancelar"}},
                {"Pulse Aceptar o Cancelar", notice, {"Aceptar"}}};
    for (const auto& row : rows) {
        const mensajes window(&board, *services, "Título", row.text, 1, row.buttons);
        QStringList seen;
        for (const auto* button : window.findChildren<QAbstractButton*>()) seen << button->text();
        EXPECT_EQ(seen, row.wanted) << row.text;
    }
}

// Which keys are key presses at all, another test says.
TEST_F(MessageTest, AnyKeyThatIsAKeyPressAnswersAtOnce) {
    const struct {
        const char* name;
        int key;
        bool repeat, answers;
    } rows[] = {{"Escape answers yes, too", Qt::Key_Escape, false, true},
                {"a letter", Qt::Key_N, false, true},
                {"Tab does not move the focus", Qt::Key_Tab, false, true},
                {"Tab backwards", Qt::Key_Backtab, false, true},
                {"Shift alone", Qt::Key_Shift, false, false},
                {"the repeat of a key held since before", Qt::Key_A, true, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        sounds.clear();
        const auto press = [&row](QWidget& window) {
            QKeyEvent event(QEvent::KeyPress, row.key, Qt::NoModifier, QString(), row.repeat);
            QApplication::sendEvent(window.focusWidget(), &event);
        };
        EXPECT_EQ(AnswerAfter(question, press),
                  row.answers ? MessageAnswer::Accepted : MessageAnswer::Refused);
        EXPECT_EQ(leftOpen, !row.answers);
        EXPECT_EQ(sounds, row.answers ? std::vector<Sound>{Sound::Accept} : std::vector<Sound>{});
        AnswerAfter(notice, press);
        EXPECT_EQ(leftOpen, !row.answers);
    }
}

TEST_F(MessageTest, AltF4AndTheWindowManagerRefuse) {
    const std::function<void(QWidget&)> ways[] = {
        [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_F4, Qt::AltModifier); },
        [](QWidget& window) { window.close(); },
    };
    for (const auto& way : ways) {
        EXPECT_EQ(AnswerAfter(question, way), MessageAnswer::Refused);
        EXPECT_FALSE(leftOpen);
    }
    EXPECT_EQ(sounds, std::vector<Sound>{});
}

TEST_F(MessageTest, ButtonsAnswerWithTheirSounds) {
    const auto click = [](const char* name) {
        return [name](QWidget& window) { QTest::mouseClick(Control(window, name), Qt::LeftButton); };
    };
    EXPECT_EQ(AnswerAfter(question, click("Pic_Si")), MessageAnswer::Accepted);
    EXPECT_EQ(AnswerAfter(question, click("Pic_No")), MessageAnswer::Refused);
    AnswerAfter(notice, click("Pic_Salir"));
    EXPECT_FALSE(leftOpen);
    EXPECT_EQ(sounds, (std::vector<Sound>{Sound::Accept, Sound::Decline, Sound::Accept}));
}

TEST_F(MessageTest, WhatWasPressedBeforeItOpenedIsForgotten) {
    QLineEdit below;
    Show(below);
    QCoreApplication::postEvent(&below, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
    const Person person([](QWidget&) {});
    ShowMessage(&below, *services, "Título", "Texto", 1, question);
    EXPECT_TRUE(person.LeftOpen());
    EXPECT_EQ(below.text(), "");
    QTest::keyClick(&below, Qt::Key_A);
    EXPECT_EQ(below.text(), "a") << "input is still swallowed";
}

}  // namespace
}  // namespace zorva
