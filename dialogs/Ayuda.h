#pragma once

#include <QString>
#include <filesystem>

#include "dialogs/BoardDialog.h"

namespace zorva {

class ManualView;

/// The help window, in which the player reads the manual. It takes 84 % of either side of the screen but
/// is never wider than 740 layout pixels: longer lines would be tiring to read. The page has the focus
/// when the window opens; Tab goes through its links and then to the button.
class Ayuda : public BoardDialog {
public:
    /// `manual` is the manual's HTML, as ReadManual returns it. The services must outlive the window.
    Ayuda(QWidget* parent, const Services& services, const QString& manual);

protected:
    void DrawGround(QPainter& painter) override;
    void KeyPressed(QKeyEvent* event) override;
    void Leave() override;

private:
    const Box window_;
    ManualView* view_ = nullptr;
};

/// Shows the manual in that file and returns when the player has left the window. When ReadManual
/// refuses the file, a message says so instead.
void ShowHelp(QWidget* parent, const Services& services, const std::filesystem::path& helpFile);

}  // namespace zorva
