#pragma once

#include "dialogs/OptionPage.h"

namespace zorva {

class NameBox;
class Slider;

/// The page of the settings window with the four players and the common options.
class SettingsPage : public OptionPage {
public:
    SettingsPage(QWidget* window, const Services& services, const Settings& settings);

    /// A player was given another name or level, or the speed was changed.
    std::function<void(Colour player, const QString& name)> Renamed;
    std::function<void(Colour player, Short level)> LevelSet;
    std::function<void(Short speed)> SpeedSet;

    void ShowSettings() override;

protected:
    bool IsShown(const OptionPlace& place) const override;
    void DrawPage(QPainter& painter) override;

private:
    void AddPlayer(Colour player);
    void AddSpeed();
    void OrderFocus();
    void DrawPlayer(QPainter& painter, Colour player);
    void DrawHeader(QPainter& painter, Colour player);
    void DrawScaleLabel(QPainter& painter, const Box& box, const QString& label, Short value);

    PerColour<NameBox*> names_{};  // owned by the page, as the scales
    PerColour<Slider*> levels_{};
    Slider* speed_ = nullptr;
};

}  // namespace zorva
