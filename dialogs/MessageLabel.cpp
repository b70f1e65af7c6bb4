#include "dialogs/MessageLabel.h"

#include <algorithm>

#include "app/Palette.h"
#include "dialogs/Geometry.h"

namespace zorva {
namespace {

// In layout pixels.
constexpr double usualSize = 13;
constexpr double smallestSize = 10.5;
constexpr double sizeStep = 0.5;
constexpr double sideMargin = 4;  // blank paper left and right of the text

// At least one, also for an empty text.
int LinesAt(const QString& text, const TextStyle& style) {
    return std::max(1, WrappedText(text, MessageWidth - 2 * sideMargin, style).LineCount());
}

}  // namespace

MessageFit FitMessage(const QString& text, Short lineCount) {
    double size = usualSize;
    while (size >= smallestSize && LinesAt(text, {size}) > lineCount) size -= sizeStep;
    if (size >= smallestSize) return {lineCount, {size}};
    return {MessageLinesFor(text), {usualSize}};
}

Short MessageLinesFor(const QString& text) {
    return ToShort(LinesAt(text, {usualSize}));
}

MessageLabel::MessageLabel(QWidget* parent, const Services& services, const char* objectName,
                           const QString& text, const TextStyle& style)
    : QLabel(parent), services_(services), lines_(text, MessageWidth - 2 * sideMargin, style) {
    setObjectName(objectName);
    setTextFormat(Qt::PlainText);  // a name may hold what would be HTML
    setText(text);
    setAccessibleName(text);
}

// The ink is centred, not the lines: they have room for accents above, which would look like a larger
// margin.
void MessageLabel::paintEvent(QPaintEvent*) {
    LayoutPainter painter(this, services_);
    painter.setPen(palette::Ink);
    const double heightOfOneLine =
        LayoutArea(*this, services_).height() - MessageLinePitch * (lines_.LineCount() - 1);
    lines_.Draw(painter, {sideMargin, heightOfOneLine / 2 - lines_.MiddleOfInk()}, MessageLinePitch);
}

}  // namespace zorva
