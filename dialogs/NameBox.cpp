#include "dialogs/NameBox.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTimer>

#include "app/Fonts.h"
#include "app/Palette.h"
#include "app/WarmLight.h"
#include "core/Settings.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"
#include "store/SettingsFile.h"

namespace zorva {
namespace {

// A letter and its accent may come as two characters, but a name can hold only the accented letter.
// Characters beyond 16 bits come as two surrogates, neither of which a name can hold.
QString WithoutRefused(const QString& typed) {
    QString kept;
    for (const QChar character : typed.normalized(QString::NormalizationForm_C)) {
        if (CanStandInName(character.unicode())) kept += character;
    }
    return kept;
}

}  // namespace

QString NameFromTyped(const QString& typed) {
    QString text = WithoutRefused(typed);
    while (text.startsWith(' ')) text.remove(0, 1);
    return text.left(1) + text.mid(1, LongestName - 1).toLower();
}

NameBox::NameBox(QWidget* parent, const Services& services, Colour player)
    : QLineEdit(parent),
      services_(services),
      nameOfColour_(QString::fromStdString(DefaultName(player))),
      names_(QString()) {
    setObjectName(QStringLiteral("Txt_Nombre_%1").arg(player));
    setAccessibleName(nameOfColour_ + ": Nombre");
    setFrame(false);
    setAttribute(Qt::WA_Hover);               // painted when the mouse comes and when it goes
    setContextMenuPolicy(Qt::NoContextMenu);  // Qt's would be in English
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
    if (name == text()) return;  // setText would move the caret
    const QSignalBlocker silent(this);
    setText(name);
    FitFont();
    names_ = {name};
    shown_ = 0;
}

// The caret stays behind the character that was typed, and where it was when that was refused.
void NameBox::Txt_Nombre_Change() {
    const int caret = static_cast<int>(WithoutRefused(text().left(cursorPosition())).size());
    const QString name = NameFromTyped(text());
    if (name != text()) {
        const QSignalBlocker silent(this);
        setText(name);
        setCursorPosition(qMin(caret, static_cast<int>(name.size())));
    }
    FitFont();
    Remember(name);
    if (Renamed) Renamed(name);
}

// Qt's own undo forgets everything when setText corrects a letter.
void NameBox::Remember(const QString& name) {
    if (name == names_[shown_]) return;
    names_.resize(++shown_);
    names_.append(name);
}

void NameBox::GoToName(qsizetype index) {
    if (index < 0 || index >= names_.size()) return;
    shown_ = index;
    setText(names_[index]);
    services_.Say(text());  // screen readers speak only what is typed
}

// Nine wide letters must be seen as a whole, too. The frame and the caret take 6 layout pixels of the
// width.
void NameBox::FitFont() {
    const double room = width() - services_.ToLogical(6);
    double size = services_.ToLogical(12.5);
    const double natural = QFontMetricsF(TextFont(size, QFont::DemiBold)).horizontalAdvance(text());
    if (natural > room && natural > 0) size = std::floor(size * room / natural);
    setFont(TextFont(size, QFont::DemiBold));
}

void NameBox::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    LayoutPainter painter(this, services_);
    if (underMouse()) WarmTint(painter, LayoutArea(*this, services_));
    if (!hasFocus()) return;
    decoration::DrawFocus(painter, LayoutArea(*this, services_).adjusted(1, 1, -1, -1), 2);
}

// A name has one line: the keys that would leave the line go to the next control.
void NameBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Undo)) {
        GoToName(shown_ - 1);
    } else if (event->matches(QKeySequence::Redo)) {
        GoToName(shown_ + 1);
    } else if (event->key() == Qt::Key_Up) {
        focusNextPrevChild(false);
    } else if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Return ||
               event->key() == Qt::Key_Enter) {
        focusNextPrevChild(true);
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

// Qt selects the whole text when Tab comes to a box: Space, which flips the options on the way, would
// replace the name.
void NameBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::TabFocusReason && event->reason() != Qt::BacktabFocusReason) return;
    end(false);
    // Of a text with the caret at its end Qt gives screen readers all but the last letter.
    QTimer::singleShot(0, this, [this] { services_.Say(text() + "."); });
}

void NameBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (text().isEmpty()) setText(nameOfColour_);
}

}  // namespace zorva
