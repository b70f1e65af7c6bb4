#pragma once

#include <QLabel>

#include "app/Services.h"
#include "dialogs/TextStyle.h"

namespace zorva {

/// From the top of one line of a message to the top of the next, in layout pixels.
inline constexpr Short MessageLinePitch = 16;
/// The width of a message's labels, in layout pixels.
inline constexpr Short MessageWidth = 365;

/// How a text is written in a message window.
struct MessageFit {
    Short lineCount = 1;  ///< lines that the label has room for
    TextStyle style;
};

/// How to write a text that was meant for `lineCount` lines (at least 1). The font is the usual one (13
/// layout pixels), or the largest down to 10.5 in which the text fits. A text that is too long even then
/// keeps the usual font and gets more lines: no text is ever cut.
MessageFit FitMessage(const QString& text, Short lineCount);

/// The number of lines, at least 1, that a text takes in the usual font. For texts whose length is not
/// known before, such as those with a path in them.
Short MessageLinesFor(const QString& text);

/// A label on paper. It wraps its text as WrappedText does, so that the lines break at the same words on
/// every screen, and centres them vertically. Screen readers get the text as it was given.
class MessageLabel : public QLabel {
public:
    /// The services must outlive the label.
    MessageLabel(QWidget* parent, const Services& services, const char* objectName, const QString& text,
                 const TextStyle& style);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Services& services_;
    const WrappedText lines_;
};

}  // namespace zorva
