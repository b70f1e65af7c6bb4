#!/usr/bin/env python3
"""Makes the recordings of the game, the same bytes every time.

    make_sounds.py            writes assets/sounds/01.wav and the others, and the table in its README.md
    make_sounds.py --check    names the files that differ from what it would write; status 1 if any does
    make_sounds.py --measure  prints the table alone
"""

import argparse
import struct
import sys
from math import sqrt
from pathlib import Path

sys.dont_write_bytecode = True

from sounds import measure  # noqa: E402
from sounds.recordings import RECORDINGS  # noqa: E402
from sounds.signals import PI, RATE, cosine, decibels, high_pass, samples  # noqa: E402

FOLDER = Path(__file__).resolve().parent.parent / "assets" / "sounds"
LOUDNESS = -19.0
CEILING = decibels(-3.1)
KNEE = 0.6 * CEILING
FADE_IN = 0.0006
FADE_OUT = 0.012


def limited(value):
    """Bends a value above the knee towards the ceiling, which none ever reaches."""
    size = abs(value)
    if size <= KNEE:
        return value
    over = (size - KNEE) / (CEILING - KNEE)
    size = KNEE + (CEILING - KNEE) * over / (1 + over)
    return size if value > 0 else -size


def faded(signal):
    """The signal with a short fade-in and fade-out, so that neither end clicks."""
    result = list(signal)
    for seconds, first, way in ((FADE_IN, 0, 1), (FADE_OUT, len(result) - 1, -1)):
        count = samples(seconds)
        for i in range(count):
            result[first + way * i] *= 0.5 - 0.5 * cosine(PI * i / count)
    return result


def finished(recording):
    """The recording as signed 16-bit samples at its loudness. The limiter takes some of the gain back, so
    the gain is found in six rounds."""
    signal = faded(high_pass(recording.samples(), 45))
    wanted = decibels(LOUDNESS - recording.soft + 0.691)
    gain, result = 1.0, signal
    for _ in range(6):
        gain *= wanted / sqrt(measure.loudest_power(result))
        result = [limited(gain * value) for value in signal]
    return [int(value * 32767 + 32768.5) - 32768 for value in result]


def wave_file(numbers):
    """The bytes of a WAV file with one channel of these 16-bit samples."""
    data = struct.pack("<%dh" % len(numbers), *numbers)
    layout = struct.pack("<IHHIIHH", 16, 1, 1, RATE, 2 * RATE, 2, 16)
    return (b"RIFF" + struct.pack("<I", 36 + len(data)) + b"WAVEfmt " + layout
            + b"data" + struct.pack("<I", len(data)) + data)


class Measured:
    """The figures of one recording in the table."""

    def __init__(self, recording, numbers):
        signal = [number / 32768 for number in numbers]
        frames = measure.spectra(signal)
        self.recording = recording
        self.length = len(signal) / RATE
        self.body = measure.body(signal)
        self.peak = measure.in_decibels(measure.peak(signal))
        self.loudness = measure.loudness(signal)
        self.centroid = measure.centroid(frames)
        self.portrait = measure.portrait(frames)

    def nearest(self, others):
        """The likeness of the most similar other recording, and its id."""
        return max((measure.likeness(self.portrait, other.portrait), other.recording.sound)
                   for other in others if other is not self)


HEADING = """\
| Id | Heard when | Length s | Body s | Peak dBFS | Loudness dB | Colour Hz | Most like |
|---:|---|---:|---:|---:|---:|---:|---|
"""


def table(all_measured):
    text = HEADING
    for one in all_measured:
        like, other = one.nearest(all_measured)
        text += "| %d | %s | %.2f | %.2f | %.1f | %.1f | %.0f | %d (%.2f) |\n" % (
            one.recording.sound, one.recording.heard, one.length, one.body, one.peak, one.loudness,
            one.centroid, other, like)
    return text


def readme_with(new_table):
    """The text of the folder's README.md with a new table between its two marks."""
    text = (FOLDER / "README.md").read_text(encoding="utf-8")
    before, rest = text.split("<!-- table -->\n")
    return before + "<!-- table -->\n" + new_table + "<!-- end -->\n" + rest.split("<!-- end -->\n")[1]


def main():
    parser = argparse.ArgumentParser(description="Makes the recordings of the game.")
    choice = parser.add_mutually_exclusive_group()
    choice.add_argument("--check", action="store_true", help="compare with the files, write nothing")
    choice.add_argument("--measure", action="store_true", help="print the table, write nothing")
    wanted = parser.parse_args()

    made = {recording: finished(recording) for recording in RECORDINGS}
    measured = table([Measured(recording, numbers) for recording, numbers in made.items()])
    if wanted.measure:
        print(measured, end="")
        return 0
    files = {FOLDER / ("%02d.wav" % r.sound): wave_file(numbers) for r, numbers in made.items()}
    files[FOLDER / "README.md"] = readme_with(measured).encode("utf-8")
    if not wanted.check:
        for path, content in files.items():
            path.write_bytes(content)
        return 0
    stale = [path.name for path, content in files.items()
             if not path.exists() or path.read_bytes() != content]
    for name in stale:
        print("%s is not what make_sounds.py writes" % name, file=sys.stderr)
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main())
