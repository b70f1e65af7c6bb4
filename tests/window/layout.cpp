// Prints as JSON where the program places everything on a screen of that many device pixels, all in
// pixels of the layout: zorva-layout WIDTH HEIGHT

#include "app/Layout.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>
#include <cstdlib>

#include "app/RecorderStrip.h"

namespace {

using namespace zorva;

QJsonArray Json(Point point) {
    return {point.x, point.y};
}

QJsonArray Json(const Box& box) {
    return {box.x, box.y, box.width, box.height};
}

/// The answers for `first` to `last`, in a list.
template <typename Answer>
QJsonArray List(Short first, Short last, Answer answer) {
    QJsonArray list;
    for (Short number = first; number <= last; ++number) list.append(answer(number));
    return list;
}

Point KeyCentre(const Layout& layout, RecorderKey key) {
    const Point centre = RecorderStrip::KeyBox(key).Centre();
    return {ToShort(layout.Recorder.x + centre.x), ToShort(layout.Recorder.y + centre.y)};
}

QJsonObject Json(const Layout& layout) {
    const auto slotsOf = [&](Short square) {
        return List(1, 4, [&](Short slot) { return Json(layout.SlotPosition(square, slot)); });
    };
    const auto boxOf = [&](Short colour) {
        return List(1, 4, [&](Short piece) { return Json(layout.BoxPosition(colour, piece)); });
    };
    return {{"unit", layout.Unit},
            {"top", layout.DeviceTop},
            {"width", layout.ScreenWidth},
            {"height", layout.ScreenHeight},
            {"cell", layout.Cell},
            {"board_extent", layout.BoardExtent},
            {"piece_size", layout.PieceSize},
            {"squares", List(1, 100, slotsOf)},
            {"boxes", List(1, 4, boxOf)},
            {"houses", List(1, 4, [&](Short colour) { return Json(layout.House(colour)); })},
            {"trays", List(1, 4, [&](Short colour) { return Json(layout.DieBox(colour)); })},
            {"buttons", List(0, 5, [&](Short index) { return Json(layout.Button[index].Centre()); })},
            {"keys", List(0, 5, [&](Short key) { return Json(KeyCentre(layout, RecorderKey{key})); })},
            {"chances", Json(layout.Chances.Centre())},
            {"log", Json(layout.LogPaper)}};
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const Layout layout = LayoutFor(std::atoi(argv[1]), std::atoi(argv[2]));
    std::puts(QJsonDocument(Json(layout)).toJson().constData());
}
