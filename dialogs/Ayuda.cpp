#include "dialogs/Ayuda.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "app/Palette.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"
#include "dialogs/ManualView.h"
#include "dialogs/PictureButton.h"
#include "dialogs/TextStyle.h"
#include "dialogs/mensajes.h"

namespace zorva {
namespace {

constexpr const char* title = "Ayuda de la aplicación";
constexpr double shareOfScreen = 0.84;  // of either side: some 70 % of the area

// In layout pixels.
constexpr int widestWindow = 740;
constexpr Short edge = 17;        // of wood, on all sides of the page
constexpr Short footHeight = 44;  // below the page, with the button

// Only its size counts: windows place themselves.
Box WindowBox(const Layout& layout) {
    return {0, 0, ToShort(std::min(qRound(layout.ScreenWidth * shareOfScreen), widestWindow)),
            ToShort(qRound(layout.ScreenHeight * shareOfScreen))};
}

Box PaperBox(const Box& window) {
    return {edge, edge, ToShort(window.width - 2 * edge),
            ToShort(window.height - 2 * edge - footHeight + 6)};
}

Box LeaveButtonBox(const Box& window) {
    return {ToShort(window.width - edge - 96), ToShort(window.height - footHeight), 96, 30};
}

// What the keys do: written below the page, and read out.
QString KeysText(const char* between) {
    return QStringList{"Flechas, RePág y AvPág: leer", "Tabulador e Intro: enlaces", "Esc: cerrar"}.join(
        between);
}

}  // namespace

Ayuda::Ayuda(QWidget* parent, const Services& services, const QString& manual)
    : BoardDialog(parent, services, "Ayuda", title,
                  {WindowBox(services.layout).width, WindowBox(services.layout).height}),
      window_(WindowBox(services.layout)),
      view_(new ManualView(this, TheServices(), manual)) {
    Place(view_, PaperBox(window_));
    setAccessibleDescription(KeysText(". ") + ".");
    auto* leave = new PictureButton(this, TheServices(), "Pic_Salir", "accept", "Aceptar");
    Place(leave, LeaveButtonBox(window_));
    connect(leave, &QAbstractButton::clicked, this, [this] { Leave(); });
    connect(qApp, &QApplication::focusChanged, this, [this] { update(); });  // the mark round the page
    view_->setFocus();
}

void Ayuda::DrawGround(QPainter& painter) {
    BoardDialog::DrawGround(painter);
    const QRectF paper = ToRect(PaperBox(window_));
    decoration::DrawSunkenPaper(painter, paper);
    if (view_->hasFocus()) decoration::DrawFocus(painter, paper.adjusted(-3, -3, 3, 3), 4);
    const Box button = LeaveButtonBox(window_);
    painter.setPen(palette::Light);
    DrawLine(painter, QRectF(edge, button.y, button.x - 2 * edge, button.height), KeysText("     "),
             {12.5});
}

// The manual does not open over itself.
void Ayuda::KeyPressed(QKeyEvent* event) {
    if (event->key() != Qt::Key_F1) BoardDialog::KeyPressed(event);
}

// Reading is left with the sound of a button, by whichever way.
void Ayuda::Leave() {
    TheServices().PlaySound(Sound::Accept);
    accept();
}

void ShowHelp(QWidget* parent, const Services& services, const std::filesystem::path& helpFile) {
    const std::optional<QString> manual = ReadManual(helpFile);  // anew each time: it may be back
    if (!manual) {
        const QString text = QStringLiteral(
                                 "No se puede mostrar el manual: el fichero %1 no se encuentra o "
                                 "no se puede leer. Puede seguir jugando sin él.")
                                 .arg(QString::fromStdString(helpFile.filename().string()));
        ShowMessage(parent, services, title, text, MessageLinesFor(text), MessageButtons::Acknowledge);
        return;
    }
    Ayuda window(parent, services, *manual);
    RunModal(window);
}

}  // namespace zorva
