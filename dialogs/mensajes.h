#pragma once

#include <QString>

#include "core/Outside.h"
#include "dialogs/BoardDialog.h"
#include "dialogs/MessageLabel.h"

namespace zorva {

/// The window of every message and every question. Any key answers at once, whichever it is: yes to
/// a question; a notice is closed. Closing the window in any other way refuses.
class mensajes : public BoardDialog {
public:
    mensajes(QWidget* parent, const Services& services, const QString& title, const QString& text,
             Short lineCount, MessageButtons buttons);

    /// What was answered; a notice is never accepted.
    MessageAnswer Answer() const { return answer_; }

protected:
    void DrawGround(QPainter& painter) override;
    void KeyPressed(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool event(QEvent* event) override;

private:
    void AddButtons(const QString& text);
    void Accept();
    void Refuse();

    const MessageFit fit_;
    const MessageButtons buttons_;
    QWidget* focusHolder_ = nullptr;  // Pic_Focus
    MessageAnswer answer_ = MessageAnswer::Refused;
};

/// Shows a message over the parent, which may be null at the start, and returns when it was answered.
/// What was pressed before it opened does not answer it. The answer to a notice means nothing.
MessageAnswer ShowMessage(QWidget* parent, const Services& services, const QString& title,
                          const QString& text, Short lineCount, MessageButtons buttons);

}  // namespace zorva
