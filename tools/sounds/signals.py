"""Signals, which are lists of samples, 44100 a second, and the operations on them.

Sine and exponential are computed here from the four basic operations, which give the same bits on every
machine, as square roots do. The functions of a mathematics library may differ in the last bit from machine
to machine, and the recordings must not.
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
    """The factor that changes an amplitude by `db` decibels."""
    return exponential(db * 0.11512925464970229)


SINES = [sine(2 * PI * i / TABLE_SIZE) for i in range(TABLE_SIZE + 1)]


def wave(phase):
    """The sine of a phase in turns (1 is a full circle), not negative; read from a table."""
    at = (phase - int(phase)) * TABLE_SIZE
    left = int(at)
    return SINES[left] + (SINES[left + 1] - SINES[left]) * (at - left)


def samples(seconds):
    """The number of samples in so many seconds."""
    return int(seconds * RATE + 0.5)


def silence(seconds):
    return [0.0] * samples(seconds)


def add(into, signal, at=0.0, gain=1.0):
    """Adds a signal to `into` from `at` seconds on and returns `into`; drops what would exceed its end."""
    start = samples(at)
    for i in range(min(len(signal), len(into) - start)):
        into[start + i] += gain * signal[i]
    return into


def normal(signal):
    """The signal scaled to a peak of 1, so that gains can be compared."""
    highest = max(abs(value) for value in signal)
    return [value / highest for value in signal]


def ring(push, frequency, decay, length):
    """One mode of a body: it vibrates at `frequency` Hz while it is pushed and afterwards, and falls to
    1/e in `decay` seconds."""
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
    """Weakens the frequencies above `frequency` gently (one pole)."""
    keep = exponential(-2 * PI * frequency / RATE)
    result, last = [], 0.0
    for value in signal:
        last = value + keep * (last - value)
        result.append(last)
    return result


def high_pass(signal, frequency):
    """Weakens the frequencies below `frequency` gently."""
    return [value - low for value, low in zip(signal, low_pass(signal, frequency))]


def band(signal, frequency_at, width):
    """Lets a moving band through: its middle is `frequency_at(t)` Hz at `t` seconds, its width the part
    `width` of that."""
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
    """The signal times an envelope: `gain_at(t)` is its gain at `t` seconds."""
    return [value * gain_at(i / RATE) for i, value in enumerate(signal)]


def line(points):
    """An envelope of straight lines through points of (seconds, value)."""
    def value(t):
        for (t0, v0), (t1, v1) in zip(points, points[1:]):
            if t < t1:
                return v0 + (v1 - v0) * max(0.0, t - t0) / (t1 - t0)
        return points[-1][1]
    return value


def swell(length, top):
    """An envelope that rises smoothly from 0 to 1 at `top` seconds and falls to 0 at `length`."""
    def value(t):
        if t >= length:
            return 0.0
        part = t / top if t < top else (length - t) / (length - top)
        return part * part * (3 - 2 * part)
    return value


# The first echoes of a small furnished room: (seconds, gain). All sounds share them and so belong together.
ROOM = ((0.0053, 0.20), (0.0089, 0.16), (0.0137, 0.13), (0.0193, 0.09), (0.0291, 0.06))


def in_room(signal, gain=1.0):
    """The signal with its echoes, which are duller than itself; `gain` scales the echoes."""
    dull = low_pass(low_pass(signal, 2600), 2600)
    result = list(signal)
    for delay, part in ROOM:
        add(result, dull, delay, gain * part)
    return result
