#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
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

// ------------------------------------------------------------------------------- texts and sizes

struct Text {
    const char* title;
    const char* text;
    Short lineCount;  // 0: as many as the text takes
};

const Text texts[] = {
    {"Ha sacado 3 seises",
     "Este jugador ha sacado un 6 por tercera vez. Como la ficha que ha movido en la  jugada  anterior "
     "ha "
     "llegado a casa no vuelve al cuadro de espera.",
     3},
    {"Ha sacado 3 seises",
     "Este jugador ha sacado un 6 por tercera vez y la ficha que ha movido en la jugada anterior vuelve "
     "al "
     "cuadro de espera.",
     2},
    {"Ha sacado 3 seises",
     "Este jugador ha sacado un 6 por tercera vez. Como en el turno anterior no pudo mover, no vuelve "
     "ninguna ficha al cuadro de espera.",
     3},
    {"Comienza la Partida",
     "Se va a tirar el dado para elegir el jugador que comienza la partida. Pulse Aceptar para comenzar "
     "el "
     "sorteo o  Cancelar\nsi desea cambiar algún parámetro  antes  de  comenzar  la partida.",
     4},
    {"Sorteo del jugador que comienza", "Hay empate y se va a desempatar", 1},
    {"Sorteo del jugador que comienza", "Sale Wmwmwmwmw.", 1},
    {"Final de la Partida", "Puntos : 9.99\nHa ganado la partida Wmwmwmwmw", 2},
    {"Histórico de partidas jugadas", "¿Se actualiza el Histórico de partidas?", 1},
    {"Continuar la partida anterior",
     "Continua el desarrollo de la partida que no finalizó en la sesión anterior.", 0},
    {"Posponer la partida en curso",
     "¿Desea abandonar el programa para continuar en otro momento la partida que está jugando?", 2},
    {"Salir del programa", "¿Desea abandonar la partida que está jugando?", 1},
    {"Salir del programa", "Antes de abandonar el programa debe apagar la Grabadora de jugadas.", 0},
    {"Abandonar la partida en curso",
     "¿Desea abandonar la partida que está jugando para comenzar una nueva partida?", 2},
    {"Tecla no activa",
     "La tecla Restaurar no está activa, ya que la situación de la partida no se ha alterado. Esta "
     "tecla le "
     "permite restaurar la partida a una situación anterior una vez que se ha modificado el desarrollo "
     "de "
     "la misma mediante la teclas de Avance y Rebobinado.",
     0},
    {"Selección improcedente",
     "No se puede cambiar el Sentido del juego una vez que ha comenzado la partida. Cuando finalice "
     "esta "
     "partida, podrá realizar dicho cambio.",
     3},
    {"Selección improcedente",
     "No se puede activar  o  desactivar a un jugador durante el desarrollo  de  una  partida.  Cuando  "
     "finalice  esta  partida, podrá realizar dicho cambio.",
     3},
    {"Datos incorrectos",
     "No puede jugar si deja desactivados los 4 jugadores. Active al menos 1 jugador.", 2},
    {LoadErrorTitle,
     "No se encuentra el fichero de inicialización ZORVA32.INI. Se ha procedido a crearlo "
     "automáticamente "
     "con los valores establecidos por defecto.",
     0},
    {"Un título que es con mucho demasiado largo para el ancho de la ventana de mensajes", "Texto", 1},
    {"Una palabra sin blancos",
     "/media/disco/una/carpeta/con/un/nombre/que/no/se/puede/partir/por/ninguna/parte/y/que/sigue", 0},
    {"Más texto del previsto",
     "Una línea que no cabe en una sola línea de la ventana, por poco que sea.", 1},
};

/// Checks that the label's text lies within it, and that its rim shows no ink.
void ExpectWhole(const MessageLabel& label, const Services& services) {
    const double unit = services.ToToolkit(1);
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
    for (const Short lineCount : {1, 2, 3, 4, 6}) {
        mensajes window(&board, *services, "Título", "Texto", lineCount, question);
        EXPECT_EQ(window.size(), QSize(400, lineCount * 16 + 135));
        EXPECT_EQ(Control(window, "Tex_Titulo")->geometry(), QRect(20, 22, 365, 15));
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

TEST_F(MessageTest, ButtonsAreCalledAsTheTextCallsThem) {
    mensajes plain(&board, *services, "Título", "¿Seguimos?", 1, question);
    EXPECT_EQ(Control<QAbstractButton>(plain, "Pic_Si")->text(), "Sí");
    EXPECT_EQ(Control<QAbstractButton>(plain, "Pic_No")->text(), "No");
    mensajes named(&board, *services, "Título", "Pulse Aceptar o Cancelar", 1, question);
    EXPECT_EQ(Control<QAbstractButton>(named, "Pic_Si")->text(), "Aceptar");
    EXPECT_EQ(Control<QAbstractButton>(named, "Pic_No")->text(), "Cancelar");
}

// ------------------------------------------------------------------------------------- answering

struct KeyRow {
    const char* name;
    int key;
    Qt::KeyboardModifiers modifiers;
    bool repeat;
    bool answers;
};

constexpr KeyRow keys[] = {
    {"Escape answers yes, too", Qt::Key_Escape, Qt::NoModifier, false, true},
    {"Enter", Qt::Key_Return, Qt::NoModifier, false, true},
    {"a letter", Qt::Key_N, Qt::NoModifier, false, true},
    {"the blank", Qt::Key_Space, Qt::NoModifier, false, true},
    {"Tab does not move the focus", Qt::Key_Tab, Qt::NoModifier, false, true},
    {"Tab backwards", Qt::Key_Backtab, Qt::ShiftModifier, false, true},
    {"an arrow", Qt::Key_Left, Qt::NoModifier, false, true},
    {"a function key", Qt::Key_F4, Qt::NoModifier, false, true},
    {"Shift alone", Qt::Key_Shift, Qt::ShiftModifier, false, false},
    {"Alt alone", Qt::Key_Alt, Qt::AltModifier, false, false},
    {"a lock", Qt::Key_CapsLock, Qt::NoModifier, false, false},
    {"volume", Qt::Key_VolumeUp, Qt::NoModifier, false, false},
    {"media", Qt::Key_MediaPlay, Qt::NoModifier, false, false},
    {"the repeat of a key held since before", Qt::Key_A, Qt::NoModifier, true, false},
};

TEST_F(MessageTest, AnyKeyThatIsAKeyPressAnswersAtOnce) {
    for (const KeyRow& row : keys) {
        SCOPED_TRACE(row.name);
        sounds.clear();
        const auto press = [&row](QWidget& window) {
            QKeyEvent event(QEvent::KeyPress, row.key, row.modifiers, QString(), row.repeat);
            QApplication::sendEvent(window.focusWidget(), &event);
        };
        const MessageAnswer answer = AnswerAfter(question, press);
        EXPECT_EQ(leftOpen, !row.answers);
        EXPECT_EQ(answer, row.answers ? MessageAnswer::Accepted : MessageAnswer::Refused);
        EXPECT_EQ(sounds, row.answers ? std::vector<Short>{4} : std::vector<Short>{});
        AnswerAfter(notice, press);
        EXPECT_EQ(leftOpen, !row.answers);
    }
}

TEST_F(MessageTest, AltF4AndTheWindowManagerRefuse) {
    EXPECT_EQ(AnswerAfter(question,
                          [](QWidget& window) {
                              QTest::keyClick(window.focusWidget(), Qt::Key_F4, Qt::AltModifier);
                          }),
              MessageAnswer::Refused);
    EXPECT_FALSE(leftOpen);
    EXPECT_EQ(AnswerAfter(question, [](QWidget& window) { window.close(); }), MessageAnswer::Refused);
    EXPECT_FALSE(leftOpen);
    EXPECT_EQ(sounds, std::vector<Short>{});
}

TEST_F(MessageTest, ButtonsAnswerWithTheirSounds) {
    const auto click = [](const char* name) {
        return [name](QWidget& window) { QTest::mouseClick(Control(window, name), Qt::LeftButton); };
    };
    EXPECT_EQ(AnswerAfter(question, click("Pic_Si")), MessageAnswer::Accepted);
    EXPECT_EQ(AnswerAfter(question, click("Pic_No")), MessageAnswer::Refused);
    AnswerAfter(notice, click("Pic_Salir"));
    EXPECT_FALSE(leftOpen);
    EXPECT_EQ(sounds, (std::vector<Short>{4, 12, 4}));
}

TEST_F(MessageTest, AButtonWantsPressAndReleaseInside) {
    const auto half = [](bool press) {
        return [press](QWidget& window) {
            QWidget* button = Control(window, "Pic_Si");
            const QPoint inside = button->rect().center();
            if (press) QTest::mousePress(button, Qt::LeftButton, {}, inside);
            QTest::mouseRelease(button, Qt::LeftButton, {}, press ? QPoint(-20, -20) : inside);
        };
    };
    for (const bool press : {true, false}) {
        EXPECT_EQ(AnswerAfter(question, half(press)), MessageAnswer::Refused);
        EXPECT_TRUE(leftOpen);
    }
}

TEST_F(MessageTest, OnlyTheWantedButtonsAreThere) {
    mensajes asking(&board, *services, "Título", "Texto", 1, question);
    EXPECT_FALSE(asking.findChild<QWidget*>("Pic_Salir"));
    mensajes telling(&board, *services, "Título", "Texto", 1, notice);
    EXPECT_FALSE(telling.findChild<QWidget*>("Pic_Si"));
    EXPECT_FALSE(telling.findChild<QWidget*>("Pic_No"));
}

// A board that notes what reaches it.
class Listener : public QWidget {
public:
    int presses = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++presses; }
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

TEST_F(MessageTest, WhatWasPressedBeforeItOpenedIsForgotten) {
    Listener below;
    below.resize(400, 300);
    Show(below);
    QCoreApplication::postEvent(&below, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
    QCoreApplication::postEvent(
        &below, new QMouseEvent(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                                Qt::LeftButton, Qt::NoModifier));
    Person person([](QWidget&) {});
    ShowMessage(&below, *services, "Título", "Texto", 1, question);
    EXPECT_TRUE(person.LeftOpen());
    EXPECT_EQ(below.presses, 0);
    QTest::keyClick(&below, Qt::Key_A);
    EXPECT_EQ(below.presses, 1) << "input is still swallowed";
}

}  // namespace
}  // namespace zorva
