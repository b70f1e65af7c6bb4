#include "dialogs/MessageLabel.h"

#include <QPainter>
#include <algorithm>

#include "app/Palette.h"

namespace zorva {
namespace {

constexpr double usualSize = 13;
constexpr double smallestSize = 10.5;
constexpr double sizeStep = 0.5;
constexpr double sideMargin = 4;  // blank paper left and right of the text

int LinesAt(const QString& text, const TextStyle& style) {
    return std::max(1, SetText(text, MessageWidth - 2 * sideMargin, style).LineCount());
}

}  // namespace

MessageFit FitMessage(const QString& text, Short lineCount) {
    for (double size = usualSize; size >= smallestSize; size -= sizeStep) {
        if (LinesAt(text, {size}) <= lineCount) return {lineCount, {size}};
    }
    return {MessageLinesFor(text), {usualSize}};
}

Short MessageLinesFor(const QString& text) {
    return ToShort(LinesAt(text, {usualSize}));
}

MessageLabel::MessageLabel(QWidget* parent, const Services& services, const char* objectName,
                           const QString& text, const TextStyle& style)
    : QLabel(parent), services_(services), lines_(text, MessageWidth - 2 * sideMargin, style) {
    setObjectName(objectName);
    setTextFormat(Qt::PlainText);
    setText(text);
    setAccessibleName(text);
}

QPointF MessageLabel::TextOrigin() const {
    const double room = height() / services_.ToLogical(1) - MessageLinePitch * (lines_.LineCount() - 1);
    return {sideMargin, room / 2 - lines_.MiddleOfInk()};
}

void MessageLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(services_.ToLogical(1), services_.ToLogical(1));
    painter.setPen(palette::Ink);
    lines_.Draw(painter, TextOrigin(), MessageLinePitch);
}

}  // namespace zorva
