#pragma once

#include "dialogs/BoardDialog.h"
#include "store/HistoryFile.h"

namespace zorva {

class HistoricSheet;

/// The history window: the games that were kept, eight to a page, newest first.
class Historic : public BoardDialog {
public:
    Historic(QWidget* parent, const Services& services, History history);

protected:
    void DrawGround(QPainter& painter) override;
    void KeyPressed(QKeyEvent* event) override;
    void Leave() override;

private:
    const History history_;
    HistoricSheet* sheet_;
};

/// Opens the history window and returns when it was left.
void ShowHistoric(QWidget* parent, const Services& services, History history);

}  // namespace zorva
