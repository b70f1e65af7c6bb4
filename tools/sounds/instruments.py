"""The instruments: struck wood, bars, bells, strings, brass, paper.

A struck body is a short push that excites a few modes, the frequencies at which the body vibrates: the
longer the contact, the softer the sound. Each function returns a signal that starts at once and whose
peak is 1, or the force that was asked for.
"""

from math import sqrt

from sounds.signals import (PI, RATE, add, band, cosine, exponential, line, low_pass, noise,
                            normal, ring, samples, shaped, silence, swell, wave)

A4 = 440.0
SEMITONE = 1.0594630943592953
NAMES = {"C": -9, "D": -7, "E": -5, "F": -4, "G": -2, "A": 0, "B": 2}


def pitch(name):
    """The frequency of a note such as "A4" or "C#5"."""
    steps = NAMES[name[0]] + name.count("#") + 12 * (int(name[-1]) - 4)
    result = A4
    for _ in range(abs(steps)):
        result = result * SEMITONE if steps > 0 else result / SEMITONE
    return result


def push(random, contact, roughness=0.0):
    """A push that lasts `contact` seconds, with area 1. `roughness` is the share of noise in it, 0 to 1."""
    count = max(3, samples(contact))
    hill = [(0.5 - 0.5 * cosine(2 * PI * (i + 0.5) / count)) for i in range(count)]
    hill = [h * (1 + roughness * (2 * random.random() - 1)) for h in hill]
    total = sum(hill)
    return [h / total for h in hill]


def struck(touch, modes, length):
    """A body after a push. Each of its modes is (frequency in Hz, seconds to fall to 1/e, gain)."""
    result = silence(length)
    for frequency, decay, gain in modes:
        add(result, ring(touch, frequency, decay, length), gain=gain)
    return normal(result)


# The modes of a small board held at its rim, as multiples of the lowest.
BOARD = (1.0, 1.59, 2.14, 2.65, 3.50, 4.60, 5.98)


def board(random, base, decay, contact, length=0.3, roughness=0.9):
    """A tap on wood. The higher a mode, the weaker and shorter it is. No two taps are alike: each mode is
    shifted at random by up to one percent."""
    modes = []
    for k, ratio in enumerate(BOARD):
        shift = 1 + 0.01 * (2 * random.random() - 1)
        modes.append((base * ratio * shift, decay / (1 + 0.55 * k), 1 / (1 + 0.45 * k)))
    return struck(push(random, contact, roughness), modes, length)


def marimba(random, note, decay=0.16, contact=0.0007, length=0.6):
    """A tuned rosewood bar over its tube, and the knock of the mallet."""
    f = pitch(note)
    modes = ((f, decay, 1.0), (3.93 * f, decay * 0.30, 0.32), (9.1 * f, decay * 0.09, 0.12))
    bar = struck(push(random, contact, 0.3), modes, length)
    return add(bar, board(random, 940, 0.007, 0.0005, roughness=0.8), gain=0.22)


def bell(random, note, decay=0.30, contact=0.0007, length=0.6):
    """A small bell struck with felt. Its first mode is doubled, a little apart, which makes it shimmer."""
    f = pitch(note)
    modes = ((f, decay, 0.6), (1.004 * f, decay, 0.5), (2.0 * f, decay * 0.7, 0.22),
             (2.76 * f, decay * 0.45, 0.20), (5.40 * f, decay * 0.2, 0.10))
    return struck(push(random, contact), modes, length)


def die_hit(random, force, length=0.12):
    """A small hard cube hits a table: the cube clicks, the table sounds lower and longer."""
    turn = 1 + 0.10 * (2 * random.random() - 1)
    cube = ((1870 * turn, 0.0070, 0.90), (2840 * turn, 0.0050, 0.80), (4300 * turn, 0.0030, 0.55))
    table = ((245, 0.020, 0.22), (418 * turn, 0.018, 0.30), (690, 0.013, 0.30), (1120, 0.009, 0.30))
    touch = push(random, 0.00042 - 0.00012 * force, 0.4)
    return [force * v for v in struck(touch, cube + table, length)]


def castanet(random, force=1.0):
    modes = ((1240, 0.012, 0.7), (2150, 0.009, 0.8), (3390, 0.006, 0.4), (620, 0.010, 0.3))
    return [force * v for v in struck(push(random, 0.0005, 0.5), modes, 0.08)]


def paper(random, length, middle, top, grain):
    """A sheet in motion: noise in a band around `middle(t)` Hz, loudest at `top` seconds. The higher
    `grain` is, from 0 to 1, the more single crackles stand out of it."""
    rough = [v if random.random() < 0.03 else (1 - grain) * v for v in noise(random, length)]
    rough = [v * 4 * grain if abs(v) > 1 - grain else v for v in rough]
    return normal(shaped(band(low_pass(rough, 5000), middle, 0.7), swell(length, top)))


def sliding(random, length, frequency, top):
    """Wood slides over wood or felt: dull noise whose strength wavers as a hand does."""
    moments = range(2 + int(length / 0.012))
    sway = line([(0.012 * i, 0.55 + 0.45 * random.random()) for i in moments])
    rough = band(low_pass(noise(random, length), 1600), lambda t: frequency * (1 + 0.5 * t / length), 0.8)
    hill = swell(length, top)
    return normal(shaped(rough, lambda t: sway(t) * hill(t)))


def string(random, note, ring_seconds=1.6, length=2.0, pick=0.17, brightness=2600):
    """A plucked gut string: a burst of noise circulates in a delay loop that dulls and weakens it. The
    loop holds whole samples; an all-pass filter adds the rest of the period."""
    period = RATE / pitch(note)
    count = int(period - 0.6)
    part = period - 0.5 - count
    bend = (1 - part) / (1 + part)
    keep = exponential(-6.91 / (ring_seconds * pitch(note)))
    burst = low_pass(noise(random, count / RATE), brightness)
    skip = max(1, int(pick * count))
    loop = [burst[i] - burst[i - skip] for i in range(count)]
    result = []
    last = last_mean = last_out = 0.0
    for i in range(samples(length)):
        now = loop[i % count]
        mean = 0.5 * (now + last)
        out = bend * (mean - last_out) + last_mean
        last, last_mean, last_out = now, mean, out
        loop[i % count] = keep * out
        result.append(now)
    released = line(((0.0, 1.0), (length - 0.04, 1.0), (length, 0.0)))
    return normal(shaped(low_pass(result, 5000), released))


def brass(note, length):
    """A small trumpet: the louder it plays, the more overtones it has."""
    f = pitch(note)
    envelope = line(((0, 0.0), (0.035, 1.0), (0.10, 0.78), (length * 0.6, 0.62), (length, 0.0)))
    result = []
    phase = 0.0
    for i in range(samples(length)):
        t = i / RATE
        level = envelope(t)
        phase += f * (1 + 0.004 * wave(5.4 * t) * min(1.0, 4 * t)) / RATE
        weight, value = level, 0.0
        for k in range(1, 9):
            value += weight * wave(k * phase) / sqrt(k)
            weight *= 0.42 + 0.33 * level
        result.append(value)
    return normal(low_pass(result, 4200))
