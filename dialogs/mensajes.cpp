#include "dialogs/mensajes.h"

#include <QApplication>
#include <QEvent>

#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"
#include "dialogs/PictureButton.h"
#include "dialogs/QueuedInput.h"

namespace zorva {
namespace {

// In layout pixels.
constexpr Short windowWidth = 400;
constexpr Short heightWithoutText = 135;
constexpr Box titleBox{20, 22, MessageWidth, 15};

Box TextBox(Short lineCount) {
    return {20, 50, MessageWidth, ToShort(lineCount * MessageLinePitch + 3)};
}

Box ButtonBox(Short left, Short lineCount) {
    return {left, ToShort(lineCount * MessageLinePitch + 82), 96, 30};
}

// Some questions tell the player to press Aceptar or Cancelar; their buttons must be called so.
bool NamesItsButtons(const QString& text) {
    return text.contains("Aceptar") && text.contains("Cancelar");
}

// For players who do not see the buttons.
QString HowToAnswer(const QString& text, MessageButtons buttons) {
    if (buttons == MessageButtons::Acknowledge) return "Pulse una tecla.";
    return NamesItsButtons(text) ? "Cualquier tecla: Aceptar. Alt y F4: Cancelar."
                                 : "Cualquier tecla: sí. Alt y F4: no.";
}

// A title is never wrapped: a long one gets a smaller font, by a hundredth more than it takes, because
// widths do not shrink quite as the size does.
TextStyle TitleStyle(const QString& title) {
    TextStyle style{12.5, QFont::Bold};
    const double room = MessageWidth - 8;
    const double width = WidthOf(title, style);
    if (width > room) style.size *= room / width * 0.99;
    return style;
}

}  // namespace

// The text is fitted twice, because the base class wants the size before there are members.
mensajes::mensajes(QWidget* parent, const Services& services, const QString& title, const QString& text,
                   Short lineCount, MessageButtons buttons)
    : BoardDialog(
          parent, services, "mensajes", title,
          {windowWidth, FitMessage(text, lineCount).lineCount * MessageLinePitch + heightWithoutText}),
      fit_(FitMessage(text, lineCount)),
      buttons_(buttons) {
    Place(new MessageLabel(this, TheServices(), "Tex_Titulo", title, TitleStyle(title)), titleBox);
    auto* label = new MessageLabel(this, TheServices(), "Tex_Mensaje", text, fit_.style);
    Place(label, TextBox(fit_.lineCount));
    AddButtons(text);
    // Not a button has the focus but a control that cannot be seen, so that every key comes to the
    // window.
    focusHolder_ = new QWidget(this);
    focusHolder_->setObjectName("Pic_Focus");
    focusHolder_->setFocusPolicy(Qt::StrongFocus);
    focusHolder_->setGeometry(0, 0, 1, 1);
    focusHolder_->setAccessibleDescription(HowToAnswer(text, buttons));
    label->setBuddy(focusHolder_);  // so screen readers speak the text with the focus, and once only
}

void mensajes::AddButtons(const QString& text) {
    const auto add = [&](const char* name, const char* drawing, const QString& caption, Short left,
                         void (mensajes::*action)()) {
        auto* button = new PictureButton(this, TheServices(), name, drawing, caption);
        button->setFocusPolicy(Qt::NoFocus);  // every key means the same, so none moves the focus
        Place(button, ButtonBox(left, fit_.lineCount));
        connect(button, &QAbstractButton::clicked, this, action);
    };
    if (buttons_ == MessageButtons::Acknowledge) {
        add("Pic_Salir", "accept", "Aceptar", 152, &mensajes::Accept);
        return;
    }
    const bool named = NamesItsButtons(text);
    add("Pic_Si", "yes", named ? "Aceptar" : "Sí", 88, &mensajes::Accept);
    add("Pic_No", "no", named ? "Cancelar" : "No", 216, &mensajes::Refuse);
}

void mensajes::DrawGround(QPainter& painter) {
    BoardDialog::DrawGround(painter);
    decoration::DrawSunkenPaper(painter, ToRect(titleBox));
    decoration::DrawSunkenPaper(painter, ToRect(TextBox(fit_.lineCount)));
}

// Any key says yes, Escape included: which key it is, is deliberately not asked.
void mensajes::KeyPressed(QKeyEvent*) {
    Accept();
}

// Tab is a key like any other here: it answers.
bool mensajes::focusNextPrevChild(bool) {
    return false;
}

bool mensajes::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) focusHolder_->setFocus(Qt::ActiveWindowFocusReason);
    return BoardDialog::event(event);
}

void mensajes::Accept() {
    TheServices().PlaySound(Sound::Accept);
    if (buttons_ == MessageButtons::YesNo) answer_ = MessageAnswer::Accepted;
    accept();
}

void mensajes::Refuse() {
    TheServices().PlaySound(Sound::Decline);
    reject();
}

MessageAnswer ShowMessage(QWidget* parent, const Services& services, const QString& title,
                          const QString& text, Short lineCount, MessageButtons buttons) {
    DiscardQueuedInput();
    // Over a window that is modal already: below it nobody could answer.
    QWidget* topmost = QApplication::activeModalWidget();
    mensajes window(topmost ? topmost : parent, services, title, text, lineCount, buttons);
    RunModal(window);
    return window.Answer();
}

}  // namespace zorva
