#include "dialogs/SettingsPage.h"

#include <QLinearGradient>
#include <QPainter>

#include "app/Artwork.h"
#include "app/Palette.h"
#include "app/Sentences.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"
#include "dialogs/NameBox.h"
#include "dialogs/Slider.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

// Where everything is, in layout pixels. A player's controls are measured from the corner of the block.
constexpr double fontSize = 12.5;
constexpr Short blockTop = 48;
constexpr Short blockWidth = 143;
constexpr Short blockHeight = 208;
constexpr Short headerHeight = 28;
constexpr Box nameLabel{8, 82, 51, 20};
constexpr Box nameBox{61, 82, 74, 20};
constexpr Box levelLabel{8, 105, 127, 17};
constexpr Box levelSlider{8, 122, Slider::Width, Slider::Height};
constexpr Box strengthLine{8, 140, 127, 15};
constexpr Point playerState{8, 42};
constexpr Point playerType{8, 167};

constexpr Box commonSheet{17, 266, 590, 104};
constexpr Box speedLabel{418, 322, 150, 17};
constexpr Box speedSlider{418, 341, Slider::Width, Slider::Height};

// The blocks stand side by side, 6 pixels apart.
Point BlockCorner(Colour player) {
    return {ToShort(17 + (player - 1) * (blockWidth + 6)), blockTop};
}

Point InBlock(Colour player, Point at) {
    const Point corner = BlockCorner(player);
    return {ToShort(corner.x + at.x), ToShort(corner.y + at.y)};
}

Box InBlock(Colour player, const Box& box) {
    const Point at = InBlock(player, Point{box.x, box.y});
    return {at.x, at.y, box.width, box.height};
}

// In the order in which they are tried when the mouse is pressed.
std::vector<OptionPlace> OptionPlaces() {
    std::vector<OptionPlace> places{
        {Option::PauseBetweenMoves, 0, {30, 284}, 188}, {Option::Tutor, 0, {224, 284}, 188},
        {Option::PlayOrder, 0, {418, 284}, 180},        {Option::Sound, 0, {30, 330}, 188},
        {Option::ButtonInfo, 0, {224, 330}, 188},
    };
    for (Colour player = 1; player <= ColourCount; ++player) {
        places.push_back({Option::PlayerState, player, InBlock(player, playerState), 128});
        places.push_back({Option::PlayerType, player, InBlock(player, playerType), 128});
    }
    return places;
}

// A player's block: the lit and the shaded end of its header, its paper, and the ink on the header.
struct BlockColours {
    QColor lit, shade, paper, ink;
};

const BlockColours& ColoursOf(Colour player) {
    static const BlockColours colours[] = {
        {},
        {{0xff, 0xee, 0x58}, {0xd9, 0xa8, 0x06}, {0xfd, 0xf6, 0xd4}, palette::Ink},
        {{0x4a, 0x63, 0xf2}, {0x12, 0x1c, 0x8c}, {0xee, 0xee, 0xf0}, {0xfb, 0xf5, 0xe4}},
        {{0xf0, 0x50, 0x3c}, {0x96, 0x10, 0x0c}, {0xfb, 0xec, 0xe0}, {0xfb, 0xf5, 0xe4}},
        {{0x3f, 0xa5, 0x52}, {0x07, 0x4c, 0x1c}, {0xee, 0xf3, 0xe0}, {0xfb, 0xf5, 0xe4}},
    };
    return colours[player];
}

}  // namespace

SettingsPage::SettingsPage(QWidget* window, const Services& services, const Settings& settings)
    : OptionPage(window, services, "Pic_Opciones", settings, OptionPlaces(), fontSize) {
    for (Colour player = 1; player <= ColourCount; ++player) AddPlayer(player);
    AddSpeed();
    OrderFocus();
    SettingsPage::ShowSettings();
}

// Tab goes through the players one by one, then through the common options.
void SettingsPage::OrderFocus() {
    std::vector<QWidget*> order;
    for (Colour player = 1; player <= ColourCount; ++player) {
        order.insert(order.end(), {StopOf(Option::PlayerState, player), names_[player], levels_[player],
                                   StopOf(Option::PlayerType, player)});
    }
    for (const Option option : {Option::PauseBetweenMoves, Option::Tutor, Option::PlayOrder,
                                Option::Sound, Option::ButtonInfo}) {
        order.push_back(StopOf(option));
    }
    order.push_back(speed_);
    for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

// Controls take the name of their colour for screen readers, which do not see in whose block they are.
void SettingsPage::AddPlayer(Colour player) {
    const QString colour = QString::fromStdString(DefaultName(player));
    auto* name = new NameBox(this, TheServices(), player);
    Place(name, InBlock(player, nameBox));
    name->Renamed = [this, player](const QString& text) {
        if (Renamed) Renamed(player, text);
    };
    auto* level = new Slider(this, TheServices(), QStringLiteral("Pic_Nivel_%1").arg(player),
                             colour + ": Nivel de juego");
    Place(level, InBlock(player, levelSlider));
    connect(level, &QAbstractSlider::valueChanged, this, [this, player](int value) {
        if (LevelSet) LevelSet(player, ToShort(value));
        Redraw(InBlock(player, levelLabel));  // with the number; the slider draws itself
        ShowStrength(player, ToShort(value));
    });
    names_[player] = name;
    levels_[player] = level;
}

// Says it, too, when the player moves the slider to a level that plays otherwise.
void SettingsPage::ShowStrength(Colour player, Short level) {
    const QString strength = StrengthText(level);
    if (levels_[player]->accessibleDescription() == strength) return;
    levels_[player]->setAccessibleDescription(strength);
    if (levels_[player]->hasFocus()) TheServices().Say(strength + ".");
    Redraw(InBlock(player, strengthLine));
}

void SettingsPage::AddSpeed() {
    speed_ = new Slider(this, TheServices(), "Pic_Velocidad", "Velocidad de juego");
    Place(speed_, speedSlider);
    connect(speed_, &QAbstractSlider::valueChanged, this, [this](int value) {
        if (SpeedSet) SpeedSet(ToShort(value));
        Redraw(speedLabel);
    });
}

// Setting a slider calls LevelSet or SpeedSet with the value that the settings hold already.
void SettingsPage::ShowSettings() {
    for (Colour player = 1; player <= ColourCount; ++player) {
        const bool active = Shown().PlayerActive[player] == 1;
        names_[player]->ShowName(QString::fromStdString(Shown().PlayerName[player]));
        names_[player]->setVisible(active);
        levels_[player]->setValue(Shown().PlayerLevel[player]);
        ShowStrength(player, Shown().PlayerLevel[player]);
        levels_[player]->setVisible(active);
    }
    speed_->setValue(Shown().Speed);
    OptionPage::ShowSettings();
}

bool SettingsPage::IsShown(const OptionPlace& place) const {
    return place.option != Option::PlayerType || Shown().PlayerActive[place.player] == 1;
}

void SettingsPage::DrawPage(QPainter& painter) {
    DrawHeading(painter, "P E R S O N A L I Z A R");
    for (Colour player = 1; player <= ColourCount; ++player) {
        const Point corner = BlockCorner(player);
        if (IsToBeDrawn(painter, {corner.x, corner.y, blockWidth, blockHeight}))
            DrawPlayer(painter, player);
    }
    decoration::DrawSunkenPaper(painter, ToRect(commonSheet));
    DrawSliderLabel(painter, speedLabel, " Velocidad de juego ", Shown().Speed);
}

// Of a player who takes no part only the header and the state are drawn; the state is an option, and the
// page draws options by itself.
void SettingsPage::DrawPlayer(QPainter& painter, Colour player) {
    const Point corner = BlockCorner(player);
    const QRectF block(corner.x, corner.y, blockWidth, blockHeight);
    decoration::DrawSunkenPaper(painter, block, ColoursOf(player).paper);
    DrawHeader(painter, player);
    if (Shown().PlayerActive[player] != 1) return;
    painter.setPen(palette::Ink);
    DrawLine(painter, ToRect(InBlock(player, nameLabel)), "Nombre..:", {fontSize});
    decoration::DrawSunkenFrame(painter, ToRect(InBlock(player, nameBox)));
    DrawSliderLabel(painter, InBlock(player, levelLabel), " Nivel de juego ",
                    Shown().PlayerLevel[player]);
    DrawLine(painter, ToRect(InBlock(player, strengthLine)), StrengthText(Shown().PlayerLevel[player]),
             {11.5, QFont::Normal, true});
}

// The colour's own name and a piece of it: the player may bear any other name.
void SettingsPage::DrawHeader(QPainter& painter, Colour player) {
    const Point corner = BlockCorner(player);
    const BlockColours& colours = ColoursOf(player);
    const QRectF header(corner.x, corner.y, blockWidth, headerHeight);
    QLinearGradient shade(header.topLeft(), header.bottomRight());
    shade.setColorAt(0, colours.lit);
    shade.setColorAt(1, colours.shade);
    painter.fillRect(header, shade);
    painter.fillRect(QRectF(header.left(), header.bottom(), header.width(), 1),
                     palette::Brass.darker(150));
    TheServices().artwork.Paint(painter, QStringLiteral("piece_%1").arg(player),
                                QRectF(header.left() + 4, header.top(), headerHeight, headerHeight));
    painter.setPen(colours.ink);
    DrawLine(painter, header.adjusted(38, 0, -4, 0), QString::fromStdString(DefaultName(player)),
             Headline(16));
}

void SettingsPage::DrawSliderLabel(QPainter& painter, const Box& box, const QString& label,
                                   Short value) {
    painter.setPen(palette::Ink);
    // The label begins with a blank: moved left by it, its first letter stands where other texts begin.
    const QRectF area = ToRect(box);
    DrawLine(painter, area.translated(-WidthOf(" ", {fontSize}), 0), label, {fontSize});
    DrawLine(painter, area, QString::number(value), {fontSize, QFont::Bold}, Qt::AlignRight);
}

}  // namespace zorva
