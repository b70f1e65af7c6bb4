"""Signals as plain lists of numbers at 44100 a second, and what is done with them.

Sine and exponential are worked out here with additions and multiplications alone: these are
exact to the last bit on every machine, as square roots are; other functions of a mathematics
library are not, and a recording must come out the same wherever it is made.
"""

RATE = 44100
PI = 3.141592653589793
TABLE_BITS = 12
TABLE_SIZE = 1 << TABLE_BITS


def exponential(x):
    halvings = 0
    while abs(x) > 0.5:
        x /= 2
        halvings += 1
    term = total = 1.0
    for n in range(1, 18):
        term *= x / n
        total += term
    for _ in range(halvings):
        total *= total
    return total


def sine(x):
    x -= 2 * PI * int(x / (2 * PI))
    term = total = x
    for n in range(1, 24):
        term *= -x * x / ((2 * n) * (2 * n + 1))
        total += term
    return total


def cosine(x):
    return sine(x + PI / 2)


def decibels(db):
    """The factor of an amplitude that is so many decibels."""
    return exponential(db * 0.11512925464970229)


SINES = [sine(2 * PI * i / TABLE_SIZE) for i in range(TABLE_SIZE + 1)]


def wave(phase):
    """The sine of a phase counted in whole turns, read from a table."""
    at = (phase - int(phase)) * TABLE_SIZE
    left = int(at)
    return SINES[left] + (SINES[left + 1] - SINES[left]) * (at - left)


def samples(seconds):
    return int(seconds * RATE + 0.5)


def silence(seconds):
    return [0.0] * samples(seconds)


def add(into, signal, at=0.0, gain=1.0):
    """Mixes a signal into another from `at` seconds on; what sticks out at the end is dropped."""
    start = samples(at)
    for i in range(min(len(signal), len(into) - start)):
        into[start + i] += gain * signal[i]
    return into


def normal(signal):
    """The signal with its highest value at 1, so that gains can be compared."""
    highest = max(abs(value) for value in signal)
    return [value / highest for value in signal]


def ring(push, frequency, decay, length):
    """A mode of a body: swings at a frequency while pushed and after, and falls to 1/e in `decay`
    seconds."""
    turn = 2 * PI * frequency / RATE
    radius = exponential(-1 / (decay * RATE))
    first, second, gain = 2 * radius * cosine(turn), -radius * radius, sine(turn)
    count = min(samples(length), len(push) + samples(9 * decay))
    result = [0.0] * samples(length)
    before = last = 0.0
    for i in range(count):
        now = first * last + second * before + (gain * push[i] if i < len(push) else 0.0)
        before, last = last, now
        result[i] = now
    return result


def low_pass(signal, frequency):
    """Takes off what is above a frequency, gently (one pole)."""
    keep = exponential(-2 * PI * frequency / RATE)
    result, last = [], 0.0
    for value in signal:
        last = value + keep * (last - value)
        result.append(last)
    return result


def high_pass(signal, frequency):
    return [value - low for value, low in zip(signal, low_pass(signal, frequency))]


def band(signal, frequency_at, width):
    """Lets through a band whose middle moves: `frequency_at` is given the time in seconds.
    `width` is the band's width as a part of its frequency."""
    low = middle = 0.0
    result = []
    for i, value in enumerate(signal):
        step = 2 * wave(frequency_at(i / RATE) / (2 * RATE))
        low += step * middle
        middle += step * (value - low - width * middle)
        result.append(width * middle)
    return result


def noise(random, seconds):
    return [2 * random.random() - 1 for _ in range(samples(seconds))]


def shaped(signal, gain_at):
    """The signal under an envelope, which is given the time in seconds."""
    return [value * gain_at(i / RATE) for i, value in enumerate(signal)]


def line(points):
    """An envelope through points of (second, value), straight between them."""
    def value(t):
        for (t0, v0), (t1, v1) in zip(points, points[1:]):
            if t < t1:
                return v0 + (v1 - v0) * max(0.0, t - t0) / (t1 - t0)
        return points[-1][1]
    return value


def swell(length, top):
    """A smooth hill that begins and ends at nothing and is highest at `top` seconds."""
    def value(t):
        if t >= length:
            return 0.0
        part = t / top if t < top else (length - t) / (length - top)
        return part * part * (3 - 2 * part)
    return value


# The first echoes of a small furnished room: seconds and gains. They tie the sounds together.
ROOM = ((0.0053, 0.20), (0.0089, 0.16), (0.0137, 0.13), (0.0193, 0.09), (0.0291, 0.06))


def in_room(signal, gain=1.0):
    """The signal and its echoes, each duller than the sound itself."""
    dull = low_pass(low_pass(signal, 2600), 2600)
    result = list(signal)
    for delay, part in ROOM:
        add(result, dull, delay, gain * part)
    return result
