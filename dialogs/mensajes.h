#pragma once

#include <QString>

#include "core/Outside.h"
#include "dialogs/BoardDialog.h"
#include "dialogs/MessageLabel.h"

namespace zorva {

/// The window of every message and every question. Any key answers at once, whichever it is: it says yes
/// to a question and closes a notice. Closing the window in any other way says no.
///
/// It is 400 layout pixels wide and 135 high, and 16 higher for each line of its text.
class mensajes : public BoardDialog {
public:
    /// `lineCount` is the number of lines that the text was written for (see FitMessage).
    mensajes(QWidget* parent, const Services& services, const QString& title, const QString& text,
             Short lineCount, MessageButtons buttons);

    /// What the player has answered. A notice is never accepted.
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
    QWidget* focusHolder_ = nullptr;  // Pic_Focus; owned by the window
    MessageAnswer answer_ = MessageAnswer::Refused;
};

/// Shows a message and returns when the player has answered it. It opens over the window that is modal
/// at the moment, else over `parent`, which may be null before the board is there. Keys and clicks from
/// before it opened are discarded. The answer to a notice means nothing.
MessageAnswer ShowMessage(QWidget* parent, const Services& services, const QString& title,
                          const QString& text, Short lineCount, MessageButtons buttons);

}  // namespace zorva
