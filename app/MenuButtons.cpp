#include "app/MenuButtons.h"

namespace zorva {

QString MenuButtons::HoverText(int index) {
    static const char* const texts[] = {
        " Ayuda de la aplicación ", " Comenzar nueva partida ", " Personalizar la aplicación ",
        " Histórico de partidas ",  " Tutor de juego ",         " Salir de la aplicación "};
    return QString::fromUtf8(texts[index]);
}

QString MenuButtons::Name(int index) {
    static const char* const names[] = {"Ayuda", "Nueva", "Personalizar", "Histórico", "Tutor", "Salir"};
    return QString::fromUtf8(names[index]);
}

MenuButtons::MenuButtons(QWidget* window, const Services& services,
                         const std::function<void(int)>& chosen) {
    auto* panel = new QWidget(window);
    panel->setObjectName("Pic_Botones");
    panel->setAccessibleName("Menú");
    panel->lower();
    for (int index = 0; index < MenuButtonCount; ++index) {
        const QString drawing = QStringLiteral("button_%1").arg(index);
        buttons_[index] = new WoodenKey(panel, services, drawing, HoverText(index));
        buttons_[index]->setObjectName(QStringLiteral("Pic_Boton_%1").arg(index));
        buttons_[index]->Pressed = [chosen, index] { chosen(index); };
    }
}

void MenuButtons::Refresh() {
    for (int index = 0; index < MenuButtonCount; ++index)
        buttons_[index]->ShowLive(IsLive && IsLive(index));
}

void MenuButtons::Explain(bool explains) {
    for (WoodenKey* button : buttons_) button->Explain(explains);
}

}  // namespace zorva
