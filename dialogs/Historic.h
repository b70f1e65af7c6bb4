#pragma once

#include "dialogs/BoardDialog.h"
#include "store/HistoryFile.h"

namespace zorva {

class HistoricSheet;

/// The history window: the finished games of the history file, eight to a page, newest first. Page Down
/// turns to older games and Page Up to newer ones; so do two corners of the sheet.
class Historic : public BoardDialog {
public:
    /// Shows the page with the newest games. An empty history gives an empty sheet. The services must
    /// outlive the window.
    Historic(QWidget* parent, const Services& services, History history);

protected:
    bool event(QEvent* event) override;
    void DrawGround(QPainter& painter) override;
    void KeyPressed(QKeyEvent* event) override;
    void Leave() override;

private:
    const History history_;
    HistoricSheet* sheet_;  // owned by the window
};

/// Opens the history window and returns when the player has left it.
void ShowHistoric(QWidget* parent, const Services& services, History history);

}  // namespace zorva
