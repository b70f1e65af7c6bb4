#include "app/Fonts.h"

#include <QStringList>

namespace zorva {
namespace {

QFont Sized(const QStringList& families, double pixelSize) {
    QFont font;
    font.setFamilies(families);
    font.setPixelSize(qMax(1, qRound(pixelSize)));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}  // namespace

QFont TextFont(double pixelSize, QFont::Weight weight) {
    QFont font = Sized(QStringList{"Lato", "DejaVu Sans"}, pixelSize);
    font.setWeight(weight);
    return font;
}

QFont DisplayFont(double pixelSize) {
    QFont font = Sized(QStringList{"Vollkorn", "Lato", "DejaVu Sans"}, pixelSize);
    font.setWeight(QFont::Bold);
    return font;
}

}  // namespace zorva
