#pragma once

#include <functional>

#include "core/Settings.h"
#include "dialogs/BoardDialog.h"

namespace zorva {

class RulesPage;
class SettingsPage;
enum class Option : Short;

/// What the settings window calls.
struct PersonalHooks {
    /// After each change of the settings. The board is to follow at once.
    std::function<void()> Applied;
    /// When the player leaves the window. The settings are to be written to their file.
    std::function<void()> Save;
};

/// The settings window with its two pages, players and common options on the one, rules on the other.
/// Each click changes the settings at once. During a game the order of play and who takes part are
/// locked: a message refuses their change. The window cannot be left while all four players are switched
/// off.
class Personal : public BoardDialog {
public:
    /// Opens on the first page. The services and the settings must outlive the window; either hook may
    /// be empty.
    Personal(QWidget* parent, const Services& services, Settings& settings, bool gameInProgress,
             PersonalHooks hooks);

protected:
    void KeyPressed(QKeyEvent* event) override;
    void Leave() override;

private:
    void AddButtons();
    void ConnectPages();
    void ShowRules(bool rules);
    void TurnTo(bool rules);
    void OptionChosen(Option option, Colour player);
    /// Why the option cannot be changed now; empty when it can.
    QString RefusalOf(Option option) const;
    void Changed();

    Settings& settings_;
    const bool gameInProgress_;
    const PersonalHooks hooks_;
    SettingsPage* settingsPage_;  // owned by the window, as the other page
    RulesPage* rulesPage_;
};

/// Opens the settings window and returns when the player has left it.
void ShowPersonal(QWidget* parent, const Services& services, Settings& settings, bool gameInProgress,
                  PersonalHooks hooks);

}  // namespace zorva
