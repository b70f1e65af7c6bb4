"""A small writer of SVG files, limited to what Qt's renderer paints faithfully.

That is SVG Tiny 1.2: plain #rrggbb colours with separate opacities, and gradients with explicit centre and
radius, but no filters, masks, clip paths, patterns or reused symbols. Soft shadows are therefore piles of
translucent shapes.
"""

import math


def num(value):
    """A coordinate with at most two decimals, without trailing zeros."""
    text = f"{value:.2f}".rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def mix(first, second, share):
    """The colour that lies `share` (0..1) of the way from one #rrggbb to another."""
    a, b = (tuple(int(c[i:i + 2], 16) for i in (1, 3, 5)) for c in (first, second))
    return "#" + "".join(f"{round(x + (y - x) * share):02x}" for x, y in zip(a, b))


def points(pairs, closed=True):
    """Path data of straight lines through the points."""
    return "M" + "L".join(f"{num(x)} {num(y)}" for x, y in pairs) + ("Z" if closed else "")


def star(cx, cy, outer, inner, tips, turn=0.0):
    """Path data of a star whose first tip points up, turned by `turn` degrees."""
    corners = []
    for i in range(2 * tips):
        angle = math.radians(180 * i / tips - 90 + turn)
        radius = inner if i % 2 else outer
        corners.append((cx + radius * math.cos(angle), cy + radius * math.sin(angle)))
    return points(corners)


class Drawing:
    """An SVG file while it is drawn. The shapes are kept in painting order."""

    def __init__(self, view_box, note):
        self.view_box = view_box
        self.note = note
        self.gradients = {}
        self.shapes = []

    # Gradients. Each call returns the value for fill= or stroke=. Equal gradients are stored once.

    def linear(self, x1, y1, x2, y2, *stops):
        return self._gradient("linear", f'x1="{num(x1)}" y1="{num(y1)}" x2="{num(x2)}" y2="{num(y2)}"', stops)

    def radial(self, cx, cy, r, *stops):
        return self._gradient("radial", f'cx="{num(cx)}" cy="{num(cy)}" r="{num(r)}"', stops)

    def _gradient(self, kind, place, stops):
        # A stop is (offset, colour) or (offset, colour, opacity).
        inner = "".join(
            f'<stop offset="{num(s[0])}" stop-color="{s[1]}"'
            + (f' stop-opacity="{num(s[2])}"' if len(s) > 2 else "") + "/>" for s in stops)
        text = f'{kind}Gradient gradientUnits="userSpaceOnUse" {place}>{inner}</{kind}Gradient>'
        name = self.gradients.setdefault(text, f"g{len(self.gradients) + 1}")
        return f"url(#{name})"

    # Shapes. Keywords become attributes, with - for _. Without `fill` a shape is not filled.

    def _add(self, tag, attributes, style):
        style.setdefault("fill", "none")
        words = [f'{k}="{num(v)}"' for k, v in attributes if v is not None]
        words += [f'{k.replace("_", "-")}="{num(v) if isinstance(v, (int, float)) else v}"' for k, v in style.items()]
        self.shapes.append(f"<{tag} {' '.join(words)}/>")

    def rect(self, x, y, width, height, rx=None, **style):
        self._add("rect", [("x", x), ("y", y), ("width", width), ("height", height), ("rx", rx), ("ry", rx)], style)

    def circle(self, cx, cy, r, **style):
        self._add("circle", [("cx", cx), ("cy", cy), ("r", r)], style)

    def ellipse(self, cx, cy, rx, ry, **style):
        self._add("ellipse", [("cx", cx), ("cy", cy), ("rx", rx), ("ry", ry)], style)

    def path(self, data, **style):
        self._add("path", [], {"d": data, **style})

    def line(self, x1, y1, x2, y2, **style):
        self.path(points([(x1, y1), (x2, y2)], closed=False), **style)

    def open_group(self, transform):
        self.shapes.append(f'<g transform="{transform}">')

    def close_group(self):
        self.shapes.append("</g>")

    # Soft shadows and lights.

    def soft_rect(self, x, y, width, height, rx, blur, opacity, layers=6, colour="#000000"):
        """A blurred rectangle: nested ones whose opacities add up towards the middle."""
        for i in range(layers):
            grow = blur * (1 - 2 * i / (layers - 1))
            self.rect(x - grow, y - grow, width + 2 * grow, height + 2 * grow, max(rx + grow, 0.5),
                      fill=colour, fill_opacity=1 - (1 - opacity) ** (1 / layers))

    def soft_disc(self, cx, cy, r, blur, opacity, colour="#000000"):
        """A blurred disc, by a gradient that fades smoothly."""
        outer = r + blur
        stops = [(0, colour, opacity), ((r - blur) / outer, colour, opacity)]
        for share, left in ((0.25, 0.84), (0.5, 0.5), (0.75, 0.16), (1, 0)):
            stops.append(((r - blur + 2 * blur * share) / outer, colour, opacity * left))
        self.circle(cx, cy, outer, fill=self.radial(cx, cy, outer, *stops))

    def text(self):
        """The whole file."""
        left, top, width, height = self.view_box
        box = " ".join(num(v) for v in self.view_box)
        lines = [f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
                 f'viewBox="{box}" width="{num(width)}" height="{num(height)}">', f"<!-- {self.note} -->"]
        if self.gradients:
            lines.append("<defs>")
            for text, name in self.gradients.items():
                kind, rest = text.split(" ", 1)
                lines.append(f'<{kind} id="{name}" {rest}')
            lines.append("</defs>")
        return "\n".join(lines + self.shapes + ["</svg>", ""])
