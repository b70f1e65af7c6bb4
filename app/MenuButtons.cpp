#include "app/MenuButtons.h"

#include <QMouseEvent>
#include <QPainter>

#include "app/Artwork.h"
#include "app/Cursors.h"
#include "app/Pacer.h"
#include "app/Palette.h"

namespace zorva {

MenuButton::MenuButton(QWidget* parent, const Services& services, int index)
    : QAbstractButton(parent), services_(services), index_(index) {
    setObjectName(QStringLiteral("Pic_Boton_%1").arg(index));
    setAccessibleName(HoverText(index).trimmed());
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QAbstractButton::clicked, this, [this] {
        services_.pacer->AfterWait(this, [this] {
            if (Pressed) Pressed();
        });
    });
}

QString MenuButton::HoverText(int index) {
    static const char* const texts[] = {
        " Ayuda de la aplicación ", " Comenzar nueva partida ", " Personalizar la aplicación ",
        " Histórico de partidas ",  " Tutor de juego ",         " Salir de la aplicación "};
    return QString::fromUtf8(texts[index]);
}

void MenuButton::ShowGlow(bool glows) {
    glows_ = glows;
    update();
}

void MenuButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (glows_) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::Light);
        const double radius = services_.ToLogical(10);
        painter.drawRoundedRect(rect(), radius, radius);
    }
    const double ratio = services_.devicePixelRatio;
    const QString drawing =
        QStringLiteral("button_%1%2").arg(index_).arg(look_.IsPressed() ? "_pressed" : "");
    QPixmap pixmap = services_.artwork.Pixmap(drawing, (QSizeF(size()) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    painter.drawPixmap(QPointF(), pixmap);
}

void MenuButton::mousePressEvent(QMouseEvent* event) {
    // Not handed on to Qt: the button acts when the mouse presses, not when it lets go.
    if (event->button() == Qt::LeftButton && Pressed) Pressed();
}

MenuButtons::MenuButtons(QWidget* window, const Services& services,
                         const std::function<void(int)>& chosen)
    : services_(services) {
    auto* panel = new QWidget(window);
    panel->setObjectName("Pic_Botones");
    panel->setAccessibleName("Menú");
    panel->lower();
    for (int index = 0; index < MenuButtonCount; ++index) {
        buttons_[index] = new MenuButton(panel, services, index);
        buttons_[index]->Pressed = [chosen, index] { chosen(index); };
    }
}

void MenuButtons::RefreshCursors() {
    for (int index = 0; index < MenuButtonCount; ++index) {
        ShowHand(*buttons_[index], services_.cursors, IsLive && IsLive(index));
    }
}

void MenuButtons::Explain(bool explains) {
    for (int index = 0; index < MenuButtonCount; ++index) {
        buttons_[index]->setToolTip(explains ? MenuButton::HoverText(index) : QString());
    }
}

}  // namespace zorva
