#pragma once

#include "dialogs/OptionPage.h"

namespace zorva {

/// Pic_Normas: the page of the settings window with the four rules that players choose. The third, about
/// a five with four pieces in the box, is on the page only while the first has its first answer: where a
/// five is needed to come out, it always brings out one piece.
class RulesPage : public OptionPage {
public:
    /// Covers its window. The services and the settings must outlive the page.
    RulesPage(QWidget* window, const Services& services, const Settings& settings);

protected:
    bool IsShown(const OptionPlace& place) const override;
    const OptionPlace* OptionAt(Point point) const override { return HaPulsadoEnNormas(point); }
    void DrawPage(QPainter& painter) override;
    void DrawOptions(QPainter& painter) override;

private:
    /// The rule whose selector lies under the point, in layout pixels; null when there is none.
    const OptionPlace* HaPulsadoEnNormas(Point point) const;
    void DibujaSelectorNormas(QPainter& painter, const OptionPlace& rule) const;
};

}  // namespace zorva
