#include "dialogs/RulesPage.h"

#include <QPainter>

#include "app/Palette.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

// In layout pixels.
constexpr Box sheet{17, 48, 590, 322};
constexpr Short rulesLeft = 96;
constexpr Short rulesWidth = 432;

// In the order in which they stand on the page.
std::vector<OptionPlace> RulePlaces() {
    return {{Option::RuleLeaveAllInBox, 0, {rulesLeft, 118}, rulesWidth},
            {Option::RuleFiveSomeInBox, 0, {rulesLeft, 182}, rulesWidth},
            {Option::RuleFiveAllInBox, 0, {rulesLeft, 246}, rulesWidth},
            {Option::RuleSixAllOut, 0, {rulesLeft, 310}, rulesWidth}};
}

}  // namespace

RulesPage::RulesPage(QWidget* window, const Services& services, const Settings& settings)
    : OptionPage(window, services, "Pic_Normas", settings, RulePlaces(), 14) {
    setAccessibleName("Normas de juego");
    ShowSettings();
}

bool RulesPage::IsShown(const OptionPlace& place) const {
    return place.option != Option::RuleFiveAllInBox || Shown().RuleLeaveAllInBox == 1;
}

const OptionPlace* RulesPage::HaPulsadoEnNormas(Point point) const {
    constexpr int order[] = {3, 0, 1, 2};  // in which the rules are tried
    for (const int rule : order) {
        const OptionPlace& place = Places()[rule];
        if (place.Selector().Contains(point) && IsShown(place)) return &place;
    }
    return nullptr;
}

void RulesPage::DrawPage(QPainter& painter) {
    DrawHeading(painter, "N O R M A S   D E   J U E G O");
    const QRectF area = ToRect(sheet);
    decoration::DrawSunkenPaper(painter, area);
    painter.setPen(QColor(0x96, 0x2a, 0x20));
    DrawLine(painter, QRectF(area.left(), area.top() + 14, area.width(), 22), " S A L I D A S ",
             {14, QFont::Bold}, Qt::AlignHCenter);
}

// All of them: this page is never repainted in parts.
void RulesPage::DrawOptions(QPainter& painter) {
    for (const OptionPlace& rule : Places()) {
        if (IsShown(rule)) DibujaSelectorNormas(painter, rule);
    }
}

void RulesPage::DibujaSelectorNormas(QPainter& painter, const OptionPlace& rule) const {
    DrawOption(painter, rule);
}

}  // namespace zorva
