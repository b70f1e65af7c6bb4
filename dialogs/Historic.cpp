#include "dialogs/Historic.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

#include "app/Artwork.h"
#include "app/Palette.h"
#include "dialogs/Geometry.h"
#include "dialogs/HistoricSheet.h"
#include "dialogs/PictureButton.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

// In layout pixels.
constexpr QSize windowSize(580, 416);
constexpr Box folder{16, 18, 548, 340};
constexpr Box sheetBox{205, 39, HistoricSheet::Width,
                       HistoricSheet::Height};  // where the folder shows it
constexpr Box labelBox{44, 77, 124, 44};
constexpr Box countBox{28, 300, 150, 40};
constexpr Box leaveButton{468, 370, 96, 30};

// Which games are on the page and how many there are, counted from the newest: "1 - 8 de 16".
QString CountText(const HistoricPages& pages) {
    if (pages.Entries() == 0) return {};
    return QStringLiteral("%1 - %2 de %3")
        .arg(pages.FirstGame())
        .arg(pages.LastGame())
        .arg(pages.Entries());
}

}  // namespace

Historic::Historic(QWidget* parent, const Services& services, History history)
    : BoardDialog(parent, services, "Historic", "Histórico de partidas", windowSize),
      history_(std::move(history)),
      sheet_(new HistoricSheet(this, TheServices(), history_)) {
    Place(sheet_, sheetBox);
    sheet_->Turned = [this] { update(); };  // the count beside the sheet changes
    auto* leave = new PictureButton(this, TheServices(), "Pic_Salir", "accept", "Aceptar");
    Place(leave, leaveButton);
    connect(leave, &QAbstractButton::clicked, this, [this] { Leave(); });
    leave->setFocus();  // so that Enter leaves
}

// A moment later, because screen readers fall silent for the focus, which comes after this event.
bool Historic::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate)
        QTimer::singleShot(0, sheet_, [this] { sheet_->Say(); });
    return BoardDialog::event(event);
}

void Historic::DrawGround(QPainter& painter) {
    BoardDialog::DrawGround(painter);
    TheServices().artwork.Paint(painter, "historic_folder", ToRect(folder));
    painter.setPen(palette::Ink);
    const QRectF label = ToRect(labelBox);
    const QSizeF half(label.width(), label.height() / 2);
    DrawLine(painter, QRectF(label.topLeft(), half), "Histórico", Headline(19), Qt::AlignHCenter);
    DrawLine(painter, QRectF(label.topLeft() + QPointF(0, half.height()), half), "de partidas",
             {14, QFont::Normal, true}, Qt::AlignHCenter);
    painter.setPen(QColor(0x5d, 0x3f, 0x12));
    DrawLine(painter, ToRect(countBox), CountText(sheet_->Pages()), {13, QFont::Bold}, Qt::AlignHCenter);
}

void Historic::KeyPressed(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_PageDown: sheet_->TurnOlder(); break;
        case Qt::Key_PageUp: sheet_->TurnNewer(); break;
        default: BoardDialog::KeyPressed(event);
    }
}

void Historic::Leave() {
    TheServices().PlaySound(Sound::Accept);
    accept();
}

void ShowHistoric(QWidget* parent, const Services& services, History history) {
    Historic window(parent, services, std::move(history));
    RunModal(window);
}

}  // namespace zorva
