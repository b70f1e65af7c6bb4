#include "dialogs/OptionPage.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "app/Artwork.h"
#include "app/Cursors.h"
#include "app/KeyStrokes.h"
#include "app/Palette.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

// What screen readers call an option: "Sonido", "Rojo: Tipo de juego".
QString NameOf(const OptionPlace& place) {
    QString question = QuestionText(place.option);
    if (place.player == 0) return question;
    return QString::fromStdString(DefaultName(place.player)) + ": " + question;
}

// "Pic_Opcion_4", "Pic_Opcion_6_3": the number of the option and that of the player.
QString ObjectNameOf(const OptionPlace& place) {
    const QString name = QStringLiteral("Pic_Opcion_%1").arg(static_cast<Short>(place.option));
    return place.player == 0 ? name : name + QStringLiteral("_%1").arg(place.player);
}

// What can be switched off is drawn as a switch with a lamp. Where both answers are equal the knob only
// points to one of them.
QString SelectorDrawing(Option option, Short value) {
    switch (option) {
        case Option::PauseBetweenMoves:
        case Option::Tutor:
        case Option::Sound:
        case Option::ButtonInfo:
        case Option::PlayerState: return value == 1 ? "personal_switch_on" : "personal_switch_off";
        default: return QStringLiteral("personal_selector_%1").arg(value);
    }
}

}  // namespace

OptionStop::OptionStop(QWidget* page, const Services& services, const OptionPlace& place,
                       double fontSize)
    : QAbstractButton(page), services_(services), option_(place.option), fontSize_(fontSize) {
    setObjectName(ObjectNameOf(place));
    setAccessibleName(NameOf(place));
    setCheckable(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);  // the page gets them
    // From the event loop: a screen reader that toggles the box waits for the end of its call, and the
    // message of a refusal would open inside it.
    connect(this, &QAbstractButton::toggled, this, &OptionStop::ClickIfToggled, Qt::QueuedConnection);
}

// Screen readers toggle a check box. That is made a click, so that the window decides whether the option
// may change, and undone if it may not.
void OptionStop::ClickIfToggled() {
    if (isChecked() == shown_) return;
    click();
    setChecked(shown_);
}

// Qt reports every description that is set, a new one or not.
void OptionStop::ShowAnswer(Short value) {
    shown_ = value == 1;
    setChecked(shown_);
    const QString answer = AnswerText(option_, value);
    if (answer != accessibleDescription()) setAccessibleDescription(answer);
}

void OptionStop::paintEvent(QPaintEvent*) {
    if (!hasFocus()) return;
    LayoutPainter painter(this, services_);
    // Round the selector and the answer, as OptionPlace has them.
    const double answer = WidthOf(AnswerText(option_, isChecked() ? 1 : 2), {fontSize_, QFont::Bold});
    const double width = std::min(answer + 46, LayoutArea(*this, services_).width() - 4);
    decoration::DrawFocus(painter, QRectF(2, 17, width, 24), 10);
}

void OptionStop::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (IsKeyStroke(*event)) click();
            break;
        default: QAbstractButton::keyPressEvent(event);
    }
}

OptionPage::OptionPage(QWidget* window, const Services& services, const char* name,
                       const Settings& settings, const std::vector<OptionPlace>& places, double fontSize)
    : QWidget(window), services_(services), settings_(settings), places_(places), fontSize_(fontSize) {
    setObjectName(name);
    setGeometry(window->rect());
    setMouseTracking(true);  // for the hand over a selector
    for (const OptionPlace& place : places_) {
        auto* stop = new OptionStop(this, services, place, fontSize);
        OptionPage::Place(stop, place.Whole());
        connect(stop, &QAbstractButton::clicked, this, [this, place] {
            if (Chosen) Chosen(place.option, place.player);
        });
        stops_.push_back(stop);
    }
}

void OptionPage::ShowSettings() {
    for (std::size_t i = 0; i < places_.size(); ++i) {
        stops_[i]->ShowAnswer(AnswerOf(places_[i]));
        stops_[i]->setVisible(IsShown(places_[i]));
    }
    update();
}

const OptionPlace* OptionPage::OptionAt(Point point) const {
    for (const OptionPlace& place : places_) {
        if (place.Selector().Contains(point) && IsShown(place)) return &place;
    }
    return nullptr;
}

// The width of a blank is given, not that of the font: between spaced letters the font's would be too
// narrow.
void OptionPage::DrawHeading(QPainter& painter, const QString& heading) const {
    constexpr TextStyle style = Headline(16);
    constexpr double blank = 6;
    const double windowWidth = width() / services_.ToLogical(1);
    const double headingWidth =
        WidthOf(QString(heading).remove(' '), style) + blank * static_cast<double>(heading.count(' '));
    painter.setPen(palette::Light);
    DrawSpaced(painter, QRectF((windowWidth - headingWidth) / 2, 16, headingWidth, 26), heading, style,
               blank);
}

void OptionPage::DrawOption(QPainter& painter, const OptionPlace& place) const {
    const Short value = AnswerOf(place);
    painter.setPen(palette::Ink);
    DrawLine(painter, ToRect(place.Question()), QuestionText(place.option), {fontSize_});
    DrawLine(painter, ToRect(place.Answer()), AnswerText(place.option, value), {fontSize_, QFont::Bold});
    const QString drawing = SelectorDrawing(place.option, value);
    if (&place == lit_) {
        decoration::DrawWarmLit(painter, drawing, ToRect(place.Selector()), services_);
    } else {
        services_.artwork.Paint(painter, drawing, ToRect(place.Selector()));
    }
}

void OptionPage::DrawOptions(QPainter& painter) {
    for (const OptionPlace& place : places_) {
        if (IsShown(place) && IsToBeDrawn(painter, place.Whole())) DrawOption(painter, place);
    }
}

QWidget* OptionPage::StopOf(Option option, Colour player) const {
    for (std::size_t i = 0; i < places_.size(); ++i) {
        if (places_[i].option == option && places_[i].player == player) return stops_[i];
    }
    Fatal("an option that is not on this page");
}

void OptionPage::Redraw(const Box& box) {
    const double scale = services_.ToLogical(1);
    update(QRectF(box.x * scale, box.y * scale, box.width * scale, box.height * scale).toAlignedRect());
}

void OptionPage::Place(QWidget* control, const Box& box) {
    PlaceControl(control, box, services_);
    control->installEventFilter(this);
}

void OptionPage::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setClipRect(event->rect());  // in logical pixels; IsToBeDrawn asks for it
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(services_.ToLogical(1), services_.ToLogical(1));
    DrawPage(painter);
    DrawOptions(painter);
}

// A click is handed to the option's control, so that mouse and keyboard go the same way from there.
void OptionPage::mousePressEvent(QMouseEvent* event) {
    const OptionPlace* place = OptionAt(ToLayout(event->position(), services_));
    if (event->button() != Qt::LeftButton || !place) return;
    OptionStop* stop = stops_[place - places_.data()];
    stop->setFocus(Qt::MouseFocusReason);
    stop->click();
}

void OptionPage::mouseMoveEvent(QMouseEvent* event) {
    ShowCursorAt(event->position());
}

// The page appears under a cursor that may have been a hand over the other page.
void OptionPage::showEvent(QShowEvent*) {
    ShowCursorAt(mapFromGlobal(QPointF(QCursor::pos())));
}

void OptionPage::ShowCursorAt(QPointF position) {
    const OptionPlace* place = OptionAt(ToLayout(position, services_));
    setCursor(place != nullptr ? services_.cursors.Hand() : Qt::ArrowCursor);
    Light(place);
}

void OptionPage::leaveEvent(QEvent*) {
    Light(nullptr);
}

// The mouse may leap from a selector to a control, which then gets its moves.
bool OptionPage::eventFilter(QObject* control, QEvent* event) {
    if (event->type() == QEvent::Enter) Light(nullptr);
    return QWidget::eventFilter(control, event);
}

void OptionPage::Light(const OptionPlace* place) {
    const OptionPlace* before = std::exchange(lit_, place);
    if (before == place) return;
    if (before != nullptr) Redraw(before->Selector());
    if (place != nullptr) Redraw(place->Selector());
}

Short OptionPage::AnswerOf(const OptionPlace& place) const {
    return OptionField(settings_, place.option, place.player);
}

}  // namespace zorva
