#include "dialogs/NameBox.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>

#include "app/Fonts.h"
#include "app/Palette.h"
#include "dialogs/Decoration.h"
#include "store/Encoding.h"

namespace zorva {
namespace {

bool MayStandInName(QChar character) {
    return character != '"' && character.isPrint() && IsInWindows1252(character.unicode());
}

// A letter and its accent may come as two characters; the file knows only the accented letter.
QString WithoutRefused(const QString& typed) {
    QString kept;
    for (const QChar character : typed.normalized(QString::NormalizationForm_C)) {
        if (MayStandInName(character)) kept += character;
    }
    return kept;
}

}  // namespace

QString NameFromTyped(const QString& typed) {
    QString text = WithoutRefused(typed);
    while (text.startsWith(' ')) text.remove(0, 1);
    return text.left(1) + text.mid(1, LongestName - 1).toLower();
}

NameBox::NameBox(QWidget* parent, const Services& services, const QString& objectName,
                 const QString& accessibleName)
    : QLineEdit(parent), services_(services) {
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    setFrame(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    QPalette colours = palette();
    colours.setColor(QPalette::Base, QColor(0xff, 0xfd, 0xf4));
    colours.setColor(QPalette::Text, palette::Ink);
    colours.setColor(QPalette::Highlight, palette::Brass);
    colours.setColor(QPalette::HighlightedText, palette::Ink);
    setPalette(colours);
    connect(this, &QLineEdit::textChanged, this, &NameBox::Txt_Nombre_Change);
}

void NameBox::ShowName(const QString& name) {
    if (name == text()) return;
    const QSignalBlocker silent(this);
    setText(name);
    FitLetters();
}

void NameBox::Txt_Nombre_Change() {
    const int caret =
        cursorPosition() - static_cast<int>(text().left(cursorPosition()).size() -
                                            WithoutRefused(text().left(cursorPosition())).size());
    const QString name = NameFromTyped(text());
    if (name != text()) {
        const QSignalBlocker silent(this);
        setText(name);
        setCursorPosition(qMin(caret, static_cast<int>(name.size())));
    }
    FitLetters();
    if (Renamed) Renamed(name);
}

// Nine wide letters must be seen as a whole, too.
void NameBox::FitLetters() {
    const double room = width() - services_.ToLogical(6);
    double size = services_.ToLogical(12.5);
    const double natural = QFontMetricsF(TextFont(size, QFont::DemiBold)).horizontalAdvance(text());
    if (natural > room && natural > 0) size = std::floor(size * room / natural);
    setFont(TextFont(size, QFont::DemiBold));
}

void NameBox::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = services_.ToLogical(1);
    painter.scale(scale, scale);
    decoration::DrawFocus(painter, QRectF(1, 1, width() / scale - 2, height() / scale - 2), 2);
}

void NameBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up: focusNextPrevChild(false); break;
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter: focusNextPrevChild(true); break;
        default: QLineEdit::keyPressEvent(event);
    }
}

}  // namespace zorva
