#pragma once

#include <functional>

#include "core/Settings.h"
#include "dialogs/BoardDialog.h"

namespace zorva {

class PictureButton;
class RulesPage;
class SettingsPage;
enum class Option : Short;

/// What the settings window asks of whoever opens it.
struct PersonalHooks {
    /// The settings were changed; what they govern is to follow at once.
    std::function<void()> Applied;
    /// The window is left: the settings are to be kept.
    std::function<void()> Save;
};

/// The settings window with its two pages. It changes the settings at every click; during a game the
/// order of play and who takes part cannot be changed.
class Personal : public BoardDialog {
public:
    /// The settings must outlive the window.
    Personal(QWidget* parent, const Services& services, Settings& settings, bool gameInProgress,
             PersonalHooks hooks);

protected:
    void KeyPressed(QKeyEvent* event) override;
    void Leave() override;

private:
    void AddButtons();
    void ConnectPages();
    void ShowRules(bool rules);
    void OptionChosen(Option option, Colour player);
    /// Why the option cannot be changed now; empty when it can.
    QString RefusalOf(Option option) const;
    void Changed();

    Settings& settings_;
    const bool gameInProgress_;
    const PersonalHooks hooks_;
    SettingsPage* settingsPage_;
    RulesPage* rulesPage_;
};

/// Opens the settings window and returns when it was left.
void ShowPersonal(QWidget* parent, const Services& services, Settings& settings, bool gameInProgress,
                  PersonalHooks hooks);

}  // namespace zorva
