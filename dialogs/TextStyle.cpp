#include "dialogs/TextStyle.h"

#include <QPainter>
#include <QTextOption>
#include <algorithm>

#include "app/Fonts.h"

namespace zorva {
namespace {

// Units of the text layout for one layout pixel.
constexpr double fine = 16;

QFont FineFont(const TextStyle& style) {
    if (style.display) return DisplayFont(style.size * fine, QString());
    QFont font = TextFont(style.size * fine, style.weight);
    font.setItalic(style.italic);
    return font;
}

}  // namespace

WrappedText::WrappedText(const QString& text, double width, const TextStyle& style)
    : layout_(QString(text).replace('\n', QChar::LineSeparator), FineFont(style)) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    layout_.setCacheEnabled(true);  // every painting needs the lines again
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(width * fine);
        line.setPosition({0, 0});  // Draw puts them where they belong
    }
    layout_.endLayout();
}

double WrappedText::MiddleOfInk() const {
    const QFontMetricsF metrics(layout_.font());
    return (metrics.ascent() + metrics.tightBoundingRect("dg").center().y()) / fine;
}

void WrappedText::Draw(QPainter& painter, QPointF top, double pitch) const {
    painter.save();
    painter.translate(top);
    painter.scale(1 / fine, 1 / fine);
    for (int i = 0; i < LineCount(); ++i) layout_.lineAt(i).draw(&painter, {0, i * pitch * fine});
    painter.restore();
}

double WidthOf(const QString& text, const TextStyle& style) {
    return QFontMetricsF(FineFont(style)).horizontalAdvance(text) / fine;
}

void DrawLine(QPainter& painter, const QRectF& box, const QString& text, TextStyle style,
              Qt::Alignment alignment) {
    // A text that is made smaller stays on the baseline of the usual size.
    const QFontMetricsF usual(FineFont(style));
    const double base = box.center().y() + (usual.ascent() - usual.descent()) / fine / 2;
    const double natural = WidthOf(text, style);
    if (natural > box.width())
        style.size = std::max(style.size * box.width() / natural, double{SmallestFont});
    const QString shown =
        QFontMetricsF(FineFont(style)).elidedText(text, Qt::ElideRight, box.width() * fine + fine);
    const double spare = std::max(0.0, box.width() - WidthOf(shown, style));
    const double indent = alignment & Qt::AlignRight     ? spare
                          : alignment & Qt::AlignHCenter ? spare / 2
                                                         : 0;
    // The painter counts in fine units while it writes.
    painter.save();
    painter.translate(box.left() + indent, base);
    painter.scale(1 / fine, 1 / fine);
    painter.setFont(FineFont(style));
    painter.drawText(QPointF(), shown);
    painter.restore();
}

void DrawSpaced(QPainter& painter, const QRectF& box, const QString& text, const TextStyle& style,
                double blankWidth) {
    double left = box.left();
    for (const QString& word : text.split(' ')) {
        const double width = WidthOf(word, style);
        // One pixel of room, so that rounding does not make the word smaller.
        DrawLine(painter, QRectF(left, box.top(), width + 1, box.height()), word, style);
        left += width + blankWidth;
    }
}

double BlankWidthFor(const QString& text, const TextStyle& style, double width) {
    double words = 0;
    for (const QString& word : text.split(' ')) words += WidthOf(word, style);
    return (width - words) / static_cast<double>(text.count(' '));
}

}  // namespace zorva
