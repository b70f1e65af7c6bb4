"""The program's icon: the board's four colours in a wooden frame, with a die in the middle."""

from .dice import draw_body, draw_pip
from .palette import BRASS, BRASS_DARK, BRASS_LIGHT, MAHOGANY, MAHOGANY_DARK, MAHOGANY_LIGHT, TONES
from .svg import Drawing, mix, points


def draw():
    icon = Drawing((0, 0, 128, 128), "The program's icon. Drawn by tools/make_art.py.")
    icon.soft_rect(8, 10, 114, 114, 22, 4, 0.45, layers=8)
    icon.rect(5, 4, 116, 116, 24, fill="#1c0d06")
    icon.rect(6.5, 5.5, 113, 113, 22.5,
              fill=icon.linear(6, 5, 119, 118, (0, MAHOGANY_LIGHT), (0.5, MAHOGANY), (1, MAHOGANY_DARK)))
    metal = icon.linear(10, 10, 115, 115, (0, BRASS_LIGHT), (0.35, BRASS), (0.6, BRASS_LIGHT), (1, BRASS_DARK))
    icon.rect(12, 11, 102, 102, 17, fill="#1c0d06")
    icon.rect(13, 12, 100, 100, 16, fill=metal)
    icon.rect(15.4, 14.4, 95.2, 95.2, 13.6, fill="#2a1a10")
    _triangles(icon, 63, 62, 46.4)
    icon.soft_rect(39, 40, 55, 55, 10, 3.6, 0.6, layers=10)
    draw_body(icon, 34, 33, 58)
    for dx, dy in ((-1, -1), (1, -1), (0, 0), (-1, 1), (1, 1)):
        draw_pip(icon, 63 + 16 * dx, 62 + 16 * dy, 6.8)
    return icon


def _triangles(icon, cx, cy, half):
    # Yellow below, blue right, red above, green left, as on the board; rounded at the outer corners.
    r = 10
    for colour, (ux, uy) in {1: (0, 1), 2: (1, 0), 3: (0, -1), 4: (-1, 0)}.items():
        vx, vy = -uy, ux
        def at(along, across):
            return cx + along * ux + across * vx, cy + along * uy + across * vy
        corners = [at(0, 0), at(half - r * 0.3, half - r * 0.3), at(half, half - r), at(half, -half + r),
                   at(half - r * 0.3, -half + r * 0.3)]
        tones = TONES[colour]
        shade = icon.linear(cx - half, cy - half, cx + half, cy + half, (0, mix(tones.base, tones.light, 0.5)),
                            (0.5, tones.base), (1, mix(tones.base, tones.deep, 0.3)))
        icon.path(points(corners), fill=shade)
    for sx, sy in ((1, 1), (1, -1)):
        end = half - 3
        icon.line(cx - sx * end, cy - sy * end, cx + sx * end, cy + sy * end, stroke="#2a1a10", stroke_width=1.6)


def draw_small():
    """The icon for 16 to 24 pixels: without frame and shadow; at 16 all edges lie on whole pixels."""
    icon = Drawing((0, 0, 16, 16), "The program's icon for 16 to 24 pixels. Drawn by tools/make_art.py.")
    icon.rect(0, 0, 16, 16, 3.5, fill="#1c0d06")
    for colour, corners in {3: ((1, 1), (15, 1), (8, 8)), 2: ((15, 1), (15, 15), (8, 8)),
                            1: ((15, 15), (1, 15), (8, 8)), 4: ((1, 15), (1, 1), (8, 8))}.items():
        icon.path(points(corners), fill=TONES[colour].base)
    icon.rect(3, 3, 10, 10, 1.5, fill="#fffdf5")
    for x, y in ((4, 4), (10, 4), (7, 7), (4, 10), (10, 10)):
        icon.rect(x, y, 2, 2, 0.6, fill="#1c0d06")
    return icon
