#pragma once

#include <QObject>

namespace zorva {

/// Recognises the automatic repeat of a held key where Qt (6.4, X11) does not. A repeat is a release and
/// a press with the same time; on a busy machine Qt reads them one by one and takes the press for a new
/// one, which would throw or accept twice. Install it as an event filter of the application.
class KeyRepeats : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    quint32 releasedKey_ = 0;  // scan code and time of the last release; 0 before the first
    quint64 releasedAt_ = 0;
};

}  // namespace zorva
