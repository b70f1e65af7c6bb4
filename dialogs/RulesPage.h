#pragma once

#include "dialogs/OptionPage.h"

namespace zorva {

/// Pic_Normas: the page of the settings window with the four options of the rules. The third is on
/// the page only while four pieces in the box start counting at once.
class RulesPage : public OptionPage {
public:
    RulesPage(QWidget* window, const Services& services, const Settings& settings);

protected:
    bool IsShown(const OptionPlace& place) const override;
    const OptionPlace* OptionAt(Point point) const override { return HaPulsadoEnNormas(point); }
    void DrawPage(QPainter& painter) override;
    void DrawOptions(QPainter& painter) override;

private:
    /// The rule whose selector lies under the point; null when there is none.
    const OptionPlace* HaPulsadoEnNormas(Point point) const;
    void DibujaSelectorNormas(QPainter& painter, const OptionPlace& rule) const;
};

}  // namespace zorva
