"""How an image looks to players who cannot tell some colours apart.

The matrices are those of Machado, Oliveira and Fernandes (2009) for the complete deficiency. They apply to linear
light, so the stored values are converted before and after.
"""

DEFICIENCIES = {
    "protanopia": ((0.152286, 1.052583, -0.204868), (0.114503, 0.786281, 0.099216), (-0.003882, -0.048116, 1.051998)),
    "deuteranopia": ((0.367322, 0.860646, -0.227968), (0.280085, 0.672501, 0.047413), (-0.011820, 0.042940, 0.968881)),
    "tritanopia": ((1.255528, -0.076749, -0.178779), (-0.078411, 0.930809, 0.147602), (0.004733, 0.691367, 0.303900)),
}


def _linear(value):
    value /= 255
    return value / 12.92 if value <= 0.04045 else ((value + 0.055) / 1.055) ** 2.4


def _stored(value):
    value = min(max(value, 0.0), 1.0)
    return round(255 * (12.92 * value if value <= 0.0031308 else 1.055 * value ** (1 / 2.4) - 0.055))


_LINEAR = [_linear(value) for value in range(256)]


def colour_seen_by(kind, colour):
    """The colour (red, green, blue; 0 to 255 each) that such a player sees."""
    light = [_LINEAR[value] for value in colour]
    return tuple(_stored(sum(share * part for share, part in zip(row, light))) for row in DEFICIENCIES[kind])


def seen_by(kind, picture):
    """A copy of a screenshot with the colours that such a player sees."""
    known = {}
    data = bytearray(picture._data)
    for at in range(picture.start, picture.start + picture.height * picture.row_bytes, 4):
        pixel = bytes(data[at:at + 3])
        if pixel not in known:
            known[pixel] = bytes(reversed(colour_seen_by(kind, tuple(reversed(pixel)))))
        data[at:at + 3] = known[pixel]
    return type(picture)(bytes(data))
