#include "dialogs/GamePage.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "app/Palette.h"
#include "app/Sentences.h"
#include "dialogs/ChancePlot.h"
#include "dialogs/Decoration.h"
#include "dialogs/DrawnButton.h"
#include "dialogs/Geometry.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

// In layout pixels.
constexpr Short edge = 14, contentWidth = 538;
constexpr Short rowHeight = 20, headingHeight = 18, momentHeight = 18;
constexpr Short rowsBottom = 264, listsTop = 270;
constexpr double barLeft = 132, barWidth = 130, luckLeft = 274, costLeft = 420;
constexpr Short costliestLeft = 232;  // of the list, from the edge
constexpr TextStyle plain{13}, bold{13, QFont::Bold};

}  // namespace

/// A moment of the game in one line. It acts by a click, Space or Enter.
class MomentButton : public DrawnButton {
public:
    MomentButton(QWidget* page, const Services& services, const QString& name)
        : DrawnButton(page, services, name, {}) {}

    void Show(const ToldMoment& moment) {
        moment_ = moment;
        if (moment.sentence != accessibleName()) setAccessibleName(moment.sentence);
        update();
    }
    int Record() const { return moment_.record; }

protected:
    void paintEvent(QPaintEvent*) override {
        LayoutPainter painter(this, TheServices());
        const QRectF area = LayoutArea(*this, TheServices());
        if (underMouse()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(palette::Light);
            painter.drawRoundedRect(area, 5, 5);
        }
        painter.setPen(palette::Ink);
        DrawLine(painter, area.adjusted(4, 0, -4, 0), moment_.line, plain);
        if (hasFocus()) decoration::DrawFocus(painter, area.adjusted(1.5, 1.5, -1.5, -1.5), 4);
    }

private:
    ToldMoment moment_;
};

GamePage::GamePage(QWidget* window, const Services& services)
    : QWidget(window),
      services_(services),
      plot_(new ChancePlot(this, services, report_)),
      luckiest_(AddMoments("Bot_Tirada_%1", edge - 4, costliestLeft - 8)),
      costliest_(
          AddMoments("Bot_Decision_%1", edge + costliestLeft - 4, contentWidth - costliestLeft + 8)) {
    setObjectName("Pic_Partida");
    setAccessibleName("La partida");
    setFocusProxy(plot_);
    plot_->Chosen = [this](int record) {
        if (GoTo) GoTo(record);
    };
    Show({});
}

// Qt takes the focus from the plot when the page goes, and the plot then reads the report once more.
GamePage::~GamePage() {
    delete plot_;
}

GamePage::Moments GamePage::AddMoments(const char* name, Short left, Short width) {
    Moments moments{};
    Short top = listsTop + headingHeight;
    for (std::size_t i = 0; i < MomentsTold; ++i) {
        auto* moment = new MomentButton(this, services_, QString(name).arg(i + 1));
        PlaceControl(moment, {left, top, width, momentHeight}, services_);
        top = ToShort(top + momentHeight);
        connect(moment, &QAbstractButton::clicked, this, [this, moment] {
            if (GoTo) GoTo(moment->Record());
        });
        moments[i] = moment;
    }
    return moments;
}

void GamePage::Show(const GameReport& report) {
    report_ = report;
    PlaceControl(plot_, {edge, 2, contentWidth, ToShort(RowsTop() - headingHeight - 2)}, services_);
    plot_->ShowReport();
    const auto show = [](const Moments& buttons, const std::vector<ToldMoment>& moments) {
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            if (i < moments.size()) buttons[i]->Show(moments[i]);
            buttons[i]->setVisible(i < moments.size());
        }
    };
    show(luckiest_, LuckiestThrows(report));
    show(costliest_, CostliestChoices(report));
    const QString text = PageText();
    if (text != accessibleDescription()) setAccessibleDescription(text);
    update();
}

QString GamePage::PageText() const {
    QStringList lines{ChancesText(report_, static_cast<int>(report_.shown))};
    if (report_.worths.empty()) return lines.first();
    for (const Colour colour : ColoursOf(report_)) lines << SumsText(report_, colour);
    lines << "Las tiradas con más suerte:";
    const std::vector<ToldMoment> throws = LuckiestThrows(report_);
    for (const ToldMoment& moment : throws) lines << moment.sentence;
    if (throws.empty()) lines << NoLuckText(report_);
    lines << "Las decisiones más caras:";
    const std::vector<ToldMoment> choices = CostliestChoices(report_);
    for (const ToldMoment& moment : choices) lines << moment.sentence;
    if (choices.empty()) lines << NoCostsText(report_);
    return lines.join('\n');
}

// ------------------------------------------------------------------------------------ the drawing

Short GamePage::RowsTop() const {
    const auto rows = std::max<std::size_t>(2, ColoursOf(report_).size());
    return ToShort(rowsBottom - rowHeight * static_cast<long>(rows));
}

// A bar to the right of the middle for good luck, to the left for bad luck. One length is the largest
// luck of the game, but half a game at least.
void GamePage::DrawLuck(QPainter& painter, const engine::Estimate& luck, const QRectF& row) const {
    double largest = 0.5;
    for (const Colour colour : ColoursOf(report_))
        largest = std::max(largest, std::abs(report_.sums[engine::SeatOf(colour)].own.luck.value));
    const QRectF groove(barLeft, row.top() + 5, barWidth, row.height() - 10);
    painter.fillRect(groove, palette::RuledPaper.darker(108));
    const double length = barWidth / 2 * luck.value / largest;
    const QRectF bar = QRectF(groove.center().x(), groove.top(), length, groove.height()).normalized();
    painter.fillRect(bar, luck.value < 0 ? QColor(0x8a, 0x62, 0x3a) : palette::Brass.darker(110));
    painter.setPen(QPen(palette::Line, 1.4));
    painter.drawLine(QPointF(groove.center().x(), row.top() + 2),
                     QPointF(groove.center().x(), row.bottom() - 2));
}

void GamePage::DrawSums(QPainter& painter, Colour colour, double top) const {
    const auto& own = report_.sums[engine::SeatOf(colour)].own;
    const QRectF row(edge, top, contentWidth, rowHeight);
    decoration::DrawPixmap(painter, QStringLiteral("piece_%1").arg(colour), {edge, top - 1, 22, 22},
                           services_);
    painter.setPen(palette::Ink);
    DrawLine(painter, {edge + 30, top, barLeft - edge - 36, rowHeight},
             NameText(report_.settings, colour), bold);
    DrawLuck(painter, own.luck, row);
    painter.setPen(palette::Ink);
    DrawLine(painter, {luckLeft, top, costLeft - luckLeft - 8, rowHeight}, LuckText(own.luck), plain);
    if (!IsPerson(report_, colour)) return;
    DrawLine(painter, {costLeft, top, edge + contentWidth - costLeft, rowHeight}, CostText(own.cost),
             plain);
}

void GamePage::DrawLists(QPainter& painter) const {
    painter.setPen(palette::Ink);
    DrawLine(painter, {edge, listsTop, costliestLeft - 10, headingHeight}, "Las tiradas con más suerte",
             bold);
    const double left = edge + costliestLeft, width = contentWidth - costliestLeft;
    DrawLine(painter, {left, listsTop, width, headingHeight}, "Las decisiones más caras (de cada 100)",
             bold);
    painter.setPen(palette::FaintInk);
    const double first = listsTop + headingHeight;
    if (luckiest_.front()->isHidden())
        DrawLine(painter, {edge, first, costliestLeft - 10, 19}, NoLuckText(report_), plain);
    if (costliest_.front()->isHidden())
        DrawLine(painter, {left, first, width, 19}, NoCostsText(report_), plain);
}

void GamePage::paintEvent(QPaintEvent*) {
    if (report_.worths.empty()) return;
    LayoutPainter painter(this, services_);
    double top = RowsTop();
    const double head = top - headingHeight;
    painter.setPen(palette::FaintInk);
    DrawLine(painter, {barLeft, head, costLeft - barLeft - 8, headingHeight},
             "lo que sus tiradas suben y bajan, sumado", plain);
    painter.setPen(palette::Ink);
    DrawLine(painter, {edge, head, barLeft - edge, headingHeight}, "Suerte", bold);
    if (HasPersons(report_))
        DrawLine(painter, {costLeft, head, edge + contentWidth - costLeft, headingHeight},
                 "Perdido al elegir", bold);
    for (const Colour colour : ColoursOf(report_)) {
        DrawSums(painter, colour, top);
        top += rowHeight;
    }
    DrawLists(painter);
}

}  // namespace zorva
