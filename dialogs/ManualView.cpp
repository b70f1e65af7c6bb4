#include "dialogs/ManualView.h"

#include <QFile>
#include <QFileInfo>
#include <QProxyStyle>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringDecoder>
#include <QStyleOption>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include "app/Cursors.h"
#include "app/Fonts.h"
#include "app/Palette.h"

namespace zorva {
namespace {

constexpr qint64 longestManual = 65'536;  // bytes

// In layout pixels.
constexpr double fontSize = 16;
constexpr double pageMargin = 22;
constexpr double listIndent = 26;
constexpr double cellPadding = 5;
constexpr double roomAboveTarget = 12;  // between the page's upper edge and the place a link leads to

constexpr double imageDensity = 2;  // pixels of the manual's images for one layout pixel

// Style sheets in which "8u" means a length of 8 layout pixels.
constexpr const char* pageStyle = R"(
    h1, h2, h3 { font-family: Vollkorn, Lato, "DejaVu Sans"; }
    h1 { color: #7a2318; margin-top: 4u; margin-bottom: 10u; }
    h2 { color: #7a2318; margin-top: 30u; margin-bottom: 8u; }
    h3 { color: #4f3117; margin-top: 18u; margin-bottom: 5u; }
    p { margin-top: 7u; margin-bottom: 7u; line-height: 118%; }
    li { margin-top: 3u; margin-bottom: 3u; line-height: 114%; }
    th { background-color: #e8d7ad; text-align: left; }
    a[href] { color: #1d4f8c; }
    .dibujo { line-height: 100%; }
    .nota { color: #5c4630; }
    .amarillo { color: #d9a806; }
    .azul { color: #1226c8; }
    .rojo { color: #c01a12; }
    .verde { color: #0a6b28; }
)";

constexpr const char* scrollBarStyle = R"(
    QScrollBar:vertical { background: #e4d3ab; width: 14u; margin: 0; }
    QScrollBar::handle:vertical { background: #8a5c36; min-height: 34u; border-radius: 4u; margin: 2u; }
    QScrollBar::handle:vertical:hover { background: #a8754a; }
    QScrollBar::add-line, QScrollBar::sub-line { height: 0; }
    QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)";

// The style sheet with its lengths in logical pixels, which is what Qt takes them for.
QString Scaled(const char* style, const Services& services) {
    static const QRegularExpression length("(\\d+)u\\b");
    QString scaled = QString::fromLatin1(style);
    for (auto found = length.match(scaled); found.hasMatch(); found = length.match(scaled)) {
        const int pixels = qRound(services.ToLogical(found.captured(1).toInt()));
        scaled.replace(found.capturedStart(), found.capturedLength(), QString::number(pixels) + "px");
    }
    return scaled;
}

QPalette PagePalette() {
    QPalette colours;
    colours.setColor(QPalette::Base, Qt::transparent);  // the window's paper shows through
    colours.setColor(QPalette::Text, palette::Ink);
    colours.setColor(QPalette::Highlight, palette::Brass);
    colours.setColor(QPalette::HighlightedText, palette::Ink);
    return colours;
}

/// Marks the link that has the focus with light, like every control that has it. Qt's own mark is a
/// dotted line, one device pixel wide on every screen.
class LinkMark : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override {
        auto* mark = qstyleoption_cast<QStyleHintReturnVariant*>(answer);
        if (hint != SH_TextControl_FocusIndicatorTextCharFormat || mark == nullptr) {
            return QProxyStyle::styleHint(hint, option, widget, answer);
        }
        QTextCharFormat format;
        format.setBackground(palette::Brass.lighter(115));
        mark->variant = format;
        return 1;
    }
};

// Whether it is our manual and whole. Any other HTML of that length could keep Qt busy for a minute, by
// tables in tables.
bool IsOurs(const QString& text) {
    return text.startsWith("<!DOCTYPE html>") &&
           text.contains("<title>Zorva: manual del jugador</title>") &&
           text.trimmed().endsWith("</html>");
}

}  // namespace

std::optional<QString> ReadManual(const std::filesystem::path& file) {
    QFile source(file);
    if (!QFileInfo(source).isFile() || source.size() > longestManual) return std::nullopt;
    if (!source.open(QFile::ReadOnly)) return std::nullopt;
    QStringDecoder decode(QStringDecoder::Utf8);
    // At most that much, should the file have grown meanwhile.
    const QString text = decode(source.read(longestManual));
    if (source.error() != QFile::NoError || decode.hasError() || !IsOurs(text)) return std::nullopt;
    return text;
}

ManualView::ManualView(QWidget* parent, const Services& services, const QString& html)
    : QTextBrowser(parent), services_(services) {
    setObjectName("Txt_Manual");
    setAccessibleName("Manual");
    DressUp();
    setHtml(html);
    DressTables();
    setOpenLinks(false);  // Qt would scroll without leaving room above
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
        services_.PlaySound(Sound::PageOpens);
        GoTo(url.fragment());
    });
    connect(this, &QTextBrowser::highlighted, this, [this](const QUrl& url) {
        viewport()->setCursor(url.isEmpty() ? QCursor(Qt::ArrowCursor) : services_.cursors.Hand());
        LightLinkUnderMouse(url);
    });
    ManualView::accessibilityActiveChanged(QAccessible::isActive());
    QAccessible::installActivationObserver(this);
}

ManualView::~ManualView() {
    QAccessible::removeActivationObserver(this);
}

// The parts of its paragraph that lead there.
void ManualView::LightLinkUnderMouse(const QUrl& url) {
    QList<QTextEdit::ExtraSelection> lit;
    const QTextBlock block = cursorForPosition(viewport()->mapFromGlobal(QCursor::pos())).block();
    for (auto part = block.begin(); !url.isEmpty() && !part.atEnd(); ++part) {
        const QTextFragment text = part.fragment();
        if (QUrl(text.charFormat().anchorHref()).fragment() != url.fragment()) continue;
        QTextCursor link(document());
        link.setPosition(text.position());
        link.setPosition(text.position() + text.length(), QTextCursor::KeepAnchor);
        lit.append({link, {}});
        lit.last().format.setBackground(palette::Light);
    }
    setExtraSelections(lit);
}

// Without a reader there is no caret: the arrows scroll.
void ManualView::accessibilityActiveChanged(bool active) {
    setTextInteractionFlags(textInteractionFlags().setFlag(Qt::TextSelectableByKeyboard, active));
}

// Before the HTML is set: a document takes its style sheet while it reads.
void ManualView::DressUp() {
    auto* linkMark = new LinkMark;
    linkMark->setParent(this);
    setStyle(linkMark);
    setFrameShape(QFrame::NoFrame);
    setPalette(PagePalette());
    viewport()->setAutoFillBackground(false);
    viewport()->setCursor(Qt::ArrowCursor);
    setContextMenuPolicy(Qt::NoContextMenu);  // Qt's would be in English
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    verticalScrollBar()->setStyleSheet(Scaled(scrollBarStyle, services_));
    verticalScrollBar()->setCursor(Qt::ArrowCursor);
    document()->setDefaultFont(TextFont(services_.ToLogical(fontSize)));
    document()->setDefaultStyleSheet(Scaled(pageStyle, services_));
    document()->setDocumentMargin(services_.ToLogical(pageMargin));
    document()->setIndentWidth(services_.ToLogical(listIndent));
}

// Afterwards, on the document: Qt knows no style sheet for most of this.
void ManualView::DressTables() {
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) continue;
        QTextTableFormat format = table->format();
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        format.setCellPadding(services_.ToLogical(cellPadding));
        format.setCellSpacing(0);
        format.setBorderCollapse(true);
        format.setBorder(services_.ToLogical(1));
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(palette::Brass);
        format.setTopMargin(services_.ToLogical(8));
        format.setBottomMargin(services_.ToLogical(10));
        table->setFormat(format);
    }
}

// The leading colon makes Qt look for every name among the built-in resources. For an invalid QVariant
// Qt would open a file of that name, so a missing image returns an empty one.
QVariant ManualView::loadResource(int type, const QUrl& name) {
    const QImage image(":/manual/" + name.toString());
    if (type != QTextDocument::ImageResource || image.isNull()) return QImage();
    const QSizeF size = QSizeF(image.size()) / imageDensity * services_.layout.Unit;
    QImage fitting = image.scaled(size.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    fitting.setDevicePixelRatio(services_.devicePixelRatio);
    return fitting;
}

// Scrolls the heading of that name to the top. The caret goes there, too: on the link that was followed,
// which is out of sight now, Enter would follow it again.
void ManualView::GoTo(const QString& anchor) {
    const QTextBlock heading = HeadingAt(anchor);
    if (!heading.isValid()) return;
    setTextCursor(QTextCursor(heading));
    scrollToAnchor(anchor);
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(bar->value() - qRound(services_.ToLogical(roomAboveTarget)));
    services_.Say(heading.text() + ".");
}

// Every link of the manual leads to a heading; Qt gives its first letter the name.
QTextBlock ManualView::HeadingAt(const QString& anchor) const {
    QTextBlock block = document()->begin();
    const auto isIt = [&] {
        return !block.begin().atEnd() &&
               block.begin().fragment().charFormat().anchorNames().contains(anchor);
    };
    while (block.isValid() && !isIt()) block = block.next();
    return block;
}

// Tab searches for the next link from the selection on, and without one from the beginning. So one
// character is selected first: at the caret or, when the caret is out of sight, at the edge of the page.
void ManualView::StartInSight(bool forwards) {
    const bool isInSight = viewport()->rect().intersects(cursorRect());
    if (isInSight && textCursor().hasSelection()) return;
    QTextCursor cursor =
        isInSight ? textCursor() : cursorForPosition({0, forwards ? 0 : viewport()->height() - 1});
    const int start = cursor.position();
    cursor.movePosition(forwards ? QTextCursor::PreviousCharacter : QTextCursor::NextCharacter);
    cursor.setPosition(start, QTextCursor::KeepAnchor);
    const int position = verticalScrollBar()->value();
    setTextCursor(cursor);
    verticalScrollBar()->setValue(position);
}

bool ManualView::focusNextPrevChild(bool next) {
    StartInSight(next);
    const bool found = QTextBrowser::focusNextPrevChild(next);
    if (found && hasFocus()) services_.Say("Enlace: " + textCursor().selectedText() + ".");
    return found;
}

void ManualView::keyPressEvent(QKeyEvent* event) {
    const bool down = event->key() == Qt::Key_Down;
    const bool isLineKey = (down || event->key() == Qt::Key_Up) && event->modifiers() == Qt::NoModifier;
    if (isLineKey && textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard)) {
        ReadOn(down);
    } else {
        QTextBrowser::keyPressEvent(event);
    }
}

// Moves the caret to the line after or before, which in a table is the next cell's: Qt's own Down would
// stay in one column.
void ManualView::ReadOn(bool forwards) {
    QTextCursor caret = textCursor();
    caret.movePosition(forwards ? QTextCursor::EndOfLine : QTextCursor::StartOfLine);
    caret.movePosition(forwards ? QTextCursor::NextCharacter : QTextCursor::PreviousCharacter);
    caret.movePosition(QTextCursor::StartOfLine);
    setTextCursor(caret);
}

}  // namespace zorva
