#include "app/LargeKeys.h"

namespace zorva {
namespace {

const char* const hoverTexts[RecorderKeyCount] = {
    " Encender o apagar la grabadora: Control + Inicio ",
    " Una jugada atrás: Control + flecha izquierda ",
    " Una jugada adelante: Control + flecha derecha ",
    " Rebobinar sola, y parar: Control + flecha arriba ",
    " Avanzar sola, y parar: Control + flecha abajo ",
    " Seguir la partida desde esta jugada: Control + Fin ",
};

}  // namespace

LargeKeys::LargeKeys(QWidget* window, const Services& services,
                     const std::function<void(RecorderKey)>& chosen)
    : services_(services) {
    for (int index = 0; index < RecorderKeyCount; ++index) {
        const QString drawing = QStringLiteral("recorder_%1").arg(index);
        keys_[index] = new WoodenKey(window, services, drawing, QString::fromUtf8(hoverTexts[index]));
        keys_[index]->setObjectName(QStringLiteral("Pic_Mando_%1").arg(index));
        keys_[index]->Pressed = [chosen, index] { chosen(static_cast<RecorderKey>(index)); };
    }
}

void LargeKeys::Refresh(const std::function<bool(RecorderKey)>& isLive, bool isOn) {
    for (int index = 0; index < RecorderKeyCount; ++index) {
        const auto key = static_cast<RecorderKey>(index);
        const bool isSwitch = key == RecorderKey::OnOff, live = isLive && isLive(key);
        Key(key).setVisible(services_.layout.LargeKey[index].width > 0 && (isOn || isSwitch));
        Key(key).ShowLive(live);
        Key(key).ShowDimmed(!live && !isSwitch);
    }
}

void LargeKeys::Explain(bool explains) {
    for (WoodenKey* key : keys_) key->Explain(explains);
}

}  // namespace zorva
