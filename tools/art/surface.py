"""The table top: planks of dark walnut, oiled, lit from the top left."""

import random

from .svg import Drawing, mix, num

WIDTH, HEIGHT = 1920, 1080
PLANKS = ((0, 168), (168, 196), (364, 172), (536, 208), (744, 160), (904, 176))
DARK, BODY, LIGHT = "#321c0f", "#4a2d19", "#5e3b22"


def draw():
    table = Drawing((0, 0, WIDTH, HEIGHT), "The table top. Drawn by tools/make_art.py.")
    chance = random.Random(1492)
    for top, height in PLANKS:
        _plank(table, chance, top, height)
    # One lamp hangs over all that lies on the table.
    lamp = table.radial(960, 480, 1300, (0, "#ffcd82", 0.34), (0.45, "#ffc478", 0.24), (0.75, "#c07838", 0.12),
                        (1, "#000000", 0.3))
    table.rect(0, 0, WIDTH, HEIGHT, fill=lamp)
    return table


def _plank(table, chance, top, height):
    body = mix(BODY, chance.choice((DARK, LIGHT)), chance.uniform(0.05, 0.4))
    stops = [(0, mix(body, DARK, 0.5)), (0.03, body)]
    stops += [(0.12 + 0.16 * i, mix(body, chance.choice((DARK, LIGHT)), chance.uniform(0, 0.3))) for i in range(5)]
    stops += [(0.97, body), (1, mix(body, "#000000", 0.35))]
    table.rect(0, top, WIDTH, height, fill=table.linear(0, top, 0, top + height, *stops))
    _figure(table, chance, body, top, height)
    _fibres(table, chance, body, top, height)
    table.rect(0, top, WIDTH, 1.2, fill=mix(body, "#000000", 0.75))
    table.rect(0, top + 1.2, WIDTH, 0.8, fill=mix(body, "#ffcf9a", 0.1))


def _figure(table, chance, body, top, height):
    # The cathedral pattern of a flat-sawn plank: long tongues within one another.
    tip, foot = chance.uniform(300, 1600), chance.choice((-200, WIDTH + 200))
    middle = top + height * chance.uniform(0.4, 0.6)
    for ring in range(7, 0, -1):
        spread = height * 0.055 * ring
        nose = tip + (90 * ring if foot < tip else -90 * ring)
        sway = chance.uniform(-5, 5)
        data = (f"M{num(foot)} {num(middle - spread)}C{num((foot + nose) / 2)} {num(middle - spread - sway)} "
                f"{num(nose)} {num(middle - spread * 0.7)} {num(nose)} {num(middle + sway)}"
                f"C{num(nose)} {num(middle + spread * 0.7)} {num((foot + nose) / 2)} {num(middle + spread - sway)} "
                f"{num(foot)} {num(middle + spread)}Z")
        table.path(data, fill=mix(body, DARK if ring % 2 else LIGHT, 0.12 + 0.02 * ring))


def _fibres(table, chance, body, top, height):
    # One element each: Qt's renderer takes several times as long for many strokes in one path.
    for tone, share in 6 * ((DARK, 0.55), (LIGHT, 0.4)):
        x, length = chance.uniform(-100, WIDTH - 100), chance.uniform(200, 800)
        y, drift = top + chance.uniform(5, height - 5), chance.uniform(-3, 3)
        table.path(f"M{num(x)} {num(y)}C{num(x + length / 3)} {num(y + drift)} {num(x + 2 * length / 3)} "
                   f"{num(y - drift)} {num(x + length)} {num(y + drift / 2)}",
                   stroke=mix(body, tone, share), stroke_width=chance.choice((0.8, 1.1, 1.6)))
