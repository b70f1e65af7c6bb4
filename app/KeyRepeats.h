#pragma once

#include <QObject>

namespace zorva {

/// Recognises the automatic repeat of a held key where Qt does not: on a busy machine it
/// reads the release and the press of a repeat apart and takes the press for a new one. Both carry the
/// same time. To be installed as an event filter of the application.
class KeyRepeats : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    quint32 releasedKey_ = 0;
    quint64 releasedAt_ = 0;
};

}  // namespace zorva
