#pragma once

#include <QColor>

#include "core/Types.h"

// The colours that the program paints with itself. The board's houses, the pieces and the dice have
// theirs in their drawings.
namespace zorva::palette {

/// The four colours, by number, and the rims in which their squares are inlaid.
inline const QColor Player[] = {{}, {255, 255, 0}, {0, 0, 255}, {255, 0, 0}, {0, 128, 0}};
inline const QColor PlayerRim[] = {{}, {0x96, 0x5a, 0}, {0, 0, 0x60}, {0x70, 0, 0}, {0, 0x38, 0}};
/// Enamelled plates, from above to below, and the ink on them.
inline const QColor Enamel[][2] = {{},
                                   {{0xff, 0xdf, 0x38}, {0xe6, 0xb4, 0x0a}},
                                   {{0x1c, 0x20, 0xb4}, {0x0a, 0x0a, 0x7c}},
                                   {{0xa4, 0x10, 0x0e}, {0x78, 0x06, 0x06}},
                                   {{0x05, 0x5a, 0x0e}, {0x03, 0x40, 0x08}}};
inline const QColor EnamelInk[] = {
    {}, {0x2b, 0x1c, 0x08}, {0xff, 0xf6, 0xe2}, {0xff, 0xf6, 0xe2}, {0xff, 0xf6, 0xe2}};
inline const QColor Line{0x5c, 0x48, 0x38};  ///< between the squares

inline const QColor Paper{0xf6, 0xee, 0xd9};
inline const QColor RuledPaper{0xec, 0xe0, 0xc2};
inline const QColor Ink{0x2b, 0x21, 0x18};
inline const QColor FaintInk{0x6b, 0x56, 0x3c};  ///< of what only explains
inline const QColor Brass{0xd9, 0xb3, 0x65};
inline const QColor Gold{0xd8, 0x9c, 0x22};
inline const QColor Light{0xff, 0xe9, 0xb0};  ///< glows and marks of what is live
inline const QColor Mark{0xff, 0x9d, 0x1e};   ///< pieces that can be picked, and where they go
inline const QColor Wood{0x3a, 0x26, 0x18};
inline const QColor DarkWood{0x22, 0x15, 0x0d};

/// The players' colours in small marks, to be told apart on wood and on paper.
inline const PerColour<QColor> PlayerMark{
    QColor(), {0xe8, 0xb0, 0x06}, {0x45, 0x6c, 0xf2}, {0xe0, 0x35, 0x29}, {0x25, 0x96, 0x45}};

}  // namespace zorva::palette
