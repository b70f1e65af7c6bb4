#pragma once

#include <QLabel>

#include "app/Services.h"
#include "dialogs/TextStyle.h"

namespace zorva {

/// Pixels from one line of a message to the next.
inline constexpr Short MessageLinePitch = 16;
/// The width of a message's labels, in pixels of the layout.
inline constexpr Short MessageWidth = 365;

/// How a text is set in a message window.
struct MessageFit {
    Short lineCount = 1;  ///< lines the label has room for
    TextStyle style;
};

/// The setting of a text that was laid out for that many lines: the usual letters where they fit, else
/// smaller ones. A text that is too long even so gets more lines: none is ever cut.
MessageFit FitMessage(const QString& text, Short lineCount);

/// The number of lines a text takes in the usual letters: for texts whose length is not known before.
Short MessageLinesFor(const QString& text);

/// A label on paper that sets its text in lines of its own.
class MessageLabel : public QLabel {
public:
    MessageLabel(QWidget* parent, const Services& services, const char* objectName, const QString& text,
                 const TextStyle& style);

    /// The text as it is painted.
    const SetText& Lines() const { return lines_; }
    /// Where the first line begins, from the label's corner, in pixels of the layout.
    QPointF TextOrigin() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Services& services_;
    const SetText lines_;
};

}  // namespace zorva
