#include "app/Fonts.h"

#include <QStringList>
#include <algorithm>

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

QFont DisplayFont(double pixelSize, const QString& text) {
    if (std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); }))
        return TextFont(pixelSize, QFont::Bold);
    QFont font = Sized(QStringList{"Vollkorn", "Lato", "DejaVu Sans"}, pixelSize);
    font.setWeight(QFont::Bold);
    return font;
}

}  // namespace zorva
