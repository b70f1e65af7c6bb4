#include "app/RecorderStrip.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <utility>

#include "app/Artwork.h"
#include "app/Cursors.h"
#include "app/Pacer.h"
#include "app/WarmLight.h"

namespace zorva {
namespace {

// The drawing's own units, one for each layout pixel.
constexpr int stripWidth = 50;
constexpr int stripHeight = 75;
constexpr int pressedOffset = 51;  // from a key at rest to the same key pressed, in the sheet

struct KeyPlace {
    const char* hoverText;
    Short x, y;
    Short clickWidth;  // the on/off key's click area is narrower than its drawing
    Short drawnWidth;
};
constexpr Short keyHeight = 13;
const char* const drawing = "recorder";

constexpr KeyPlace places[RecorderKeyCount] = {
    {" Encender/Apagar mando ", 6, 6, 38, 42}, {" Retroceder 1 jugada ", 4, 25, 21, 21},
    {" Avanzar 1 jugada ", 25, 25, 21, 21},    {" Retroceso automático ", 4, 41, 21, 21},
    {" Avance automático ", 25, 41, 21, 21},   {" Restaurar partida ", 14, 57, 21, 21},
};

const KeyPlace& PlaceOf(RecorderKey key) {
    return places[static_cast<int>(key)];
}

QRectF HalfFrom(int left) {
    return QRectF(left, 0, stripWidth, stripHeight);
}

// Both ends of a key's area belong to it; where two touch, the first has the point.
std::optional<RecorderKey> KeyAt(Point p) {
    for (int index = 0; index < RecorderKeyCount; ++index) {
        const KeyPlace& place = places[index];
        const bool inX = p.x >= place.x && p.x <= place.x + place.clickWidth;
        const bool inY = p.y >= place.y && p.y <= place.y + keyHeight;
        if (inX && inY) return static_cast<RecorderKey>(index);
    }
    return std::nullopt;
}

}  // namespace

RecorderStrip::RecorderStrip(QWidget* parent, const Services& services)
    : QWidget(parent), services_(services) {
    setObjectName("Pic_Grabadora");
    setAccessibleName("Grabadora de jugadas");
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    for (int index = 0; index < RecorderKeyCount; ++index) {
        const auto key = static_cast<RecorderKey>(index);
        auto* button = new KeyButton(this);
        button->setAccessibleName(HoverText(key).trimmed());
        button->setFocusPolicy(Qt::NoFocus);
        button->setAttribute(Qt::WA_TransparentForMouseEvents);
        connect(button, &QAbstractButton::clicked, this, [this, key] {
            services_.pacer->AfterWait(this, [this, key] {
                if (Pressed) Pressed(key);
            });
        });
        keyButtons_[index] = button;
    }
}

void RecorderStrip::resizeEvent(QResizeEvent*) {
    const double unit = services_.ToLogical(1);
    for (int index = 0; index < RecorderKeyCount; ++index) {
        const Box box = KeyBox(static_cast<RecorderKey>(index));
        keyButtons_[index]->setGeometry(
            QRectF(box.x * unit, box.y * unit, box.width * unit, box.height * unit).toAlignedRect());
    }
}

QString RecorderStrip::HoverText(RecorderKey key) {
    return QString::fromUtf8(PlaceOf(key).hoverText);
}

Box RecorderStrip::KeyBox(RecorderKey key) {
    const KeyPlace& place = PlaceOf(key);
    return {place.x, place.y, place.clickWidth, keyHeight};
}

void RecorderStrip::ShowPressed(RecorderKey key, bool pressed) {
    looks_[static_cast<int>(key)].Show(*this, pressed);
}

void RecorderStrip::Explain(bool explains) {
    explains_ = explains;
    if (!explains) setToolTip(QString());
}

void RecorderStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double ratio = services_.devicePixelRatio;
    const QSize device = (QSizeF(size()) * ratio).toSize();
    const double unit = device.width() / static_cast<double>(stripWidth);
    painter.scale(1 / ratio, 1 / ratio);
    const auto sheet = [&](int left) {
        return services_.artwork.PixmapOfPart(drawing, HalfFrom(left), device);
    };
    painter.drawPixmap(0, 0, sheet(0));
    for (int index = 0; index < RecorderKeyCount; ++index) {
        const bool isPressed = looks_[index].IsPressed();
        const bool isLit = lit_ == static_cast<RecorderKey>(index);
        if (!isPressed && !isLit) continue;
        const KeyPlace& place = places[index];
        const QRect key =
            QRectF(place.x * unit, place.y * unit, place.drawnWidth * unit, keyHeight * unit)
                .toAlignedRect();
        painter.drawPixmap(key.topLeft(), sheet(isPressed ? pressedOffset : 0), key);
        if (isLit) WarmTint(painter, QRectF(key).adjusted(unit, unit, -unit, -unit));
    }
}

Point RecorderStrip::StripPoint(QPointF position) const {
    const double unit = services_.ToLogical(1);
    return {ToShort(std::lround(std::floor(position.x() / unit))),
            ToShort(std::lround(std::floor(position.y() / unit)))};
}

void RecorderStrip::mousePressEvent(QMouseEvent* event) {
    const auto key = KeyAt(StripPoint(event->position()));
    if (event->button() == Qt::LeftButton && key && Pressed) Pressed(*key);
}

void RecorderStrip::mouseMoveEvent(QMouseEvent* event) {
    const auto key = KeyAt(StripPoint(event->position()));
    if (explains_) setToolTip(key ? HoverText(*key) : QString());
    RefreshCursor();
}

void RecorderStrip::RefreshCursor() {
    const auto key = KeyAt(StripPoint(mapFromGlobal(QPointF(QCursor::pos()))));
    const bool live = key && IsLive && IsLive(*key);
    ShowHand(*this, services_.cursors, live);
    const auto lit = live ? key : std::nullopt;
    if (std::exchange(lit_, lit) != lit) update();
}

}  // namespace zorva
