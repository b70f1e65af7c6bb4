#pragma once

#include "dialogs/OptionPage.h"

namespace zorva {

class NameBox;
class Slider;

/// Pic_Opciones: the page of the settings window with a block for each of the four players and, below
/// them, the options common to all. The block of a player who takes no part shows nothing but that.
class SettingsPage : public OptionPage {
public:
    /// Covers its window. The services and the settings must outlive the page.
    SettingsPage(QWidget* window, const Services& services, const Settings& settings);

    // Called at each change: the name is well-formed (see NameFromTyped), levels and the speed are
    // 0..100. The page shows the new value when the settings have it.
    std::function<void(Colour player, const QString& name)> Renamed;
    std::function<void(Colour player, Short level)> LevelSet;
    std::function<void(Short speed)> SpeedSet;

    void ShowSettings() override;

protected:
    bool IsShown(const OptionPlace& place) const override;
    void DrawPage(QPainter& painter) override;

private:
    void AddPlayer(Colour player);
    void ShowStrength(Colour player, Short level);
    void AddSpeed();
    void OrderFocus();
    void DrawPlayer(QPainter& painter, Colour player);
    void DrawHeader(QPainter& painter, Colour player);
    void DrawSliderLabel(QPainter& painter, const Box& box, const QString& label, Short value);

    PerColour<NameBox*> names_{};  // owned by the page, as the sliders
    PerColour<Slider*> levels_{};
    Slider* speed_ = nullptr;
};

}  // namespace zorva
