"""Measures a recording: peak, loudness, colour, and likeness to another recording."""

from math import log10

from sounds.signals import PI, RATE, SINES, TABLE_SIZE, cosine, decibels, samples, sine

SILENCE = -120.0
# Seconds over which the ear judges the loudness of a short sound.
WINDOW = 0.125


def in_decibels(amplitude):
    return 20 * log10(amplitude) if amplitude > 1e-6 else SILENCE


def peak(signal):
    return max(abs(v) for v in signal)


def biquad(signal, b, a):
    x1 = x2 = y1 = y2 = 0.0
    result = []
    for x in signal:
        y = b[0] * x + b[1] * x1 + b[2] * x2 - a[0] * y1 - a[1] * y2
        x1, x2, y1, y2 = x, x1, y, y1
        result.append(y)
    return result


def k_weighted(signal):
    """The signal filtered as the ear hears it (ITU-R BS.1770): frequencies above 1.7 kHz are raised, as the
    head does, and the lowest are taken out."""
    k = sine(PI * 1681.974450955533 / RATE) / cosine(PI * 1681.974450955533 / RATE)
    q, high, middle = 0.7071752369554196, decibels(3.999843853973347), decibels(1.998551301)
    whole = 1 + k / q + k * k
    shelf = [(high + middle * k / q + k * k) / whole, 2 * (k * k - high) / whole,
             (high - middle * k / q + k * k) / whole]
    back = [2 * (k * k - 1) / whole, (1 - k / q + k * k) / whole]
    k = sine(PI * 38.13547087602444 / RATE) / cosine(PI * 38.13547087602444 / RATE)
    q = 0.5003270373238773
    whole = 1 + k / q + k * k
    cut = [2 * (k * k - 1) / whole, (1 - k / q + k * k) / whole]
    return biquad(biquad(signal, shelf, back), [1.0, -2.0, 1.0], cut)


def loudest_power(signal):
    """The highest mean square of the filtered signal in any window of an eighth of a second."""
    count = samples(WINDOW)
    squares = [v * v for v in k_weighted(signal)]
    total = best = 0.0
    for i, value in enumerate(squares):
        total += value - (squares[i - count] if i >= count else 0.0)
        best = max(best, total)
    return best / count


def loudness(signal):
    power = loudest_power(signal)
    return -0.691 + 10 * log10(power) if power > 0 else SILENCE


def transform(values):
    """The spectrum of 2^n complex values (fast Fourier transform)."""
    count = len(values)
    if count == 1:
        return values
    even, odd = transform(values[0::2]), transform(values[1::2])
    half, step = count // 2, TABLE_SIZE // count
    quarter = TABLE_SIZE // 4
    turned = [odd[i] * complex(SINES[(i * step + quarter) % TABLE_SIZE], -SINES[i * step])
              for i in range(half)]
    return [e + t for e, t in zip(even, turned)] + [e - t for e, t in zip(even, turned)]


FRAME = 1024
HOP = 512
EDGES = [100 * 1.26 ** k for k in range(22)]
HILL = [0.5 - 0.5 * cosine(2 * PI * i / FRAME) for i in range(FRAME)]


def spectra(signal):
    """The power of each frequency, in overlapping frames of 23 ms that start every 12 ms."""
    padded = [0.0] * HOP + list(signal) + [0.0] * FRAME
    result = []
    for start in range(0, len(signal) + HOP, HOP):
        frame = transform([complex(padded[start + i] * HILL[i]) for i in range(FRAME)])
        result.append([abs(v) ** 2 for v in frame[:FRAME // 2]])
    return result


def centroid(frames):
    """The mean frequency in Hz, weighted by power: low is dull, high is bright."""
    total = weighted = 0.0
    for frame in frames:
        for i, power in enumerate(frame):
            total += power
            weighted += power * i * RATE / FRAME
    return weighted / total


def portrait(frames):
    """For each frame the power of every third-octave band, compressed about as the ear does."""
    result = []
    for frame in frames:
        bands = [0.0] * len(EDGES)
        for i, power in enumerate(frame):
            f = i * RATE / FRAME
            for k in range(len(EDGES) - 1, -1, -1):
                if f >= EDGES[k]:
                    bands[k] += power
                    break
        result.append([power ** 0.3 for power in bands])
    return result


def likeness(one, other):
    """How like two portraits are: 1 for equal ones, 0 when they share no band at any time."""
    product = sum(a * b for f, g in zip(one, other) for a, b in zip(f, g))
    square = sum(a * a for f in one for a in f) * sum(b * b for g in other for b in g)
    return product / square ** 0.5


def body(signal):
    """The seconds in which the first nine tenths of the energy are heard."""
    whole = sum(v * v for v in signal)
    reached = 0.0
    for i, v in enumerate(signal):
        reached += v * v
        if reached >= 0.9 * whole:
            return i / RATE
    return len(signal) / RATE
