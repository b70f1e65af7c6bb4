#pragma once

#include <QString>
#include <filesystem>

#include "dialogs/BoardDialog.h"

namespace zorva {

class ManualView;

/// The window in which the player's manual is read.
class Ayuda : public BoardDialog {
public:
    /// `manual` is the manual's HTML (see ManualText).
    Ayuda(QWidget* parent, const Services& services, const QString& manual);

protected:
    void DrawGround(QPainter& painter) override;
    void Leave() override;

private:
    const Box window_;
    ManualView* view_ = nullptr;
};

/// Shows the manual in that file and returns when its window was left. A file that is missing, cannot
/// be read or holds no manual is told to the player.
void ShowHelp(QWidget* parent, const Services& services, const std::filesystem::path& helpFile);

}  // namespace zorva
