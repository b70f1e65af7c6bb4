#include "dialogs/Lettering.h"

#include <QPainter>
#include <QTextOption>
#include <algorithm>

#include "app/Typeface.h"

namespace zorva {
namespace {

// Units of the setting per pixel of the layout.
constexpr double fine = 16;

QFont FineFont(const Letters& letters) {
    QFont font = TextFont(letters.size * fine, letters.weight);
    font.setItalic(letters.italic);
    return font;
}

}  // namespace

SetText::SetText(const QString& text, double width, const Letters& letters)
    : layout_(QString(text).replace('\n', QChar::LineSeparator), FineFont(letters)) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    layout_.setCacheEnabled(true);
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(width * fine);
        line.setPosition({0, 0});
    }
    layout_.endLayout();
}

double SetText::WidestLine() const {
    double widest = 0;
    for (int i = 0; i < LineCount(); ++i)
        widest = std::max(widest, layout_.lineAt(i).naturalTextWidth());
    return widest / fine;
}

double SetText::MiddleOfInk() const {
    const QFontMetricsF metrics(layout_.font());
    return (metrics.ascent() + metrics.tightBoundingRect("dg").center().y()) / fine;
}

void SetText::Draw(QPainter& painter, QPointF top, double pitch) const {
    painter.save();
    painter.translate(top);
    painter.scale(1 / fine, 1 / fine);
    for (int i = 0; i < LineCount(); ++i) layout_.lineAt(i).draw(&painter, {0, i * pitch * fine});
    painter.restore();
}

double WidthOf(const QString& text, const Letters& letters) {
    return QFontMetricsF(FineFont(letters)).horizontalAdvance(text) / fine;
}

void DrawLine(QPainter& painter, const QRectF& box, const QString& text, Letters letters,
              Qt::Alignment alignment) {
    // Letters that are made smaller stay on the line that the usual ones stand on.
    const QFontMetricsF usual(FineFont(letters));
    const double base = box.center().y() + (usual.ascent() - usual.descent()) / fine / 2;
    const double natural = WidthOf(text, letters);
    if (natural > box.width()) letters.size *= box.width() / natural;
    const double spare = box.width() - std::min(natural, box.width());
    const double indent = alignment & Qt::AlignRight     ? spare
                          : alignment & Qt::AlignHCenter ? spare / 2
                                                         : 0;
    painter.save();
    painter.translate(box.left() + indent, base);
    painter.scale(1 / fine, 1 / fine);
    painter.setFont(FineFont(letters));
    painter.drawText(QPointF(), text);
    painter.restore();
}

void DrawSpaced(QPainter& painter, const QRectF& box, const QString& text, const Letters& letters,
                double blankWidth) {
    double left = box.left();
    for (const QString& word : text.split(' ')) {
        const double width = WidthOf(word, letters);
        DrawLine(painter, QRectF(left, box.top(), width + 1, box.height()), word, letters);
        left += width + blankWidth;
    }
}

double BlankWidthFor(const QString& text, const Letters& letters, double width) {
    double words = 0;
    for (const QString& word : text.split(' ')) words += WidthOf(word, letters);
    return (width - words) / static_cast<double>(text.count(' '));
}

}  // namespace zorva
