"""The recordings of the game: one function for each sound, and the table of all sounds."""

from random import Random

from sounds.instruments import (bell, board, brass, castanet, die_hit, marimba, paper, sliding, string)
from sounds.signals import add, in_room, line, shaped, silence


def button_pressed(random):
    """A broad wooden key goes down, and its rim follows."""
    result = silence(0.16)
    add(result, board(random, 330, 0.020, 0.0008), 0.0)
    add(result, board(random, 690, 0.012, 0.0005), 0.026, 0.65)
    return result


def help_page(random):
    """A booklet is taken up and its sheets run past the thumb."""
    result = silence(0.42)
    add(result, board(random, 150, 0.030, 0.0026), 0.0, 0.85)
    sheets = ((0.06, 0.30, 1500), (0.115, 0.45, 1760), (0.165, 0.54, 2020), (0.21, 0.48, 2280),
              (0.27, 0.30, 2540))
    for at, force, height in sheets:
        add(result, paper(random, 0.06, lambda t, height=height: height, 0.008, 0.25), at, force)
    return result


def settings_opened(random):
    """A little drawer slides out and stops."""
    result = silence(0.46)
    add(result, sliding(random, 0.28, 780, 0.20), 0.0, 0.55)
    add(result, board(random, 205, 0.030, 0.0016), 0.265, 0.9)
    add(result, board(random, 560, 0.015, 0.0008), 0.287, 0.35)
    return result


def accepted(random):
    """Two bars, upwards."""
    result = silence(0.50)
    add(result, marimba(random, "G4", 0.10), 0.0, 0.85)
    add(result, marimba(random, "C5", 0.15), 0.085, 1.0)
    return result


def die_ready(random):
    """The die is shaken twice in the leather cup."""
    result = silence(0.24)
    for at, force in ((0.0, 0.7), (0.095, 1.0)):
        add(result, board(random, 262, 0.024, 0.0024), at, force)
        add(result, die_hit(random, 0.30 * force), at + 0.011)
        add(result, die_hit(random, 0.20 * force), at + 0.028)
    return result


def advice(random):
    """A small bell with a second one, a fifth higher, just after it."""
    result = silence(0.60)
    add(result, bell(random, "A5", 0.24), 0.0, 0.9)
    add(result, bell(random, "E6", 0.20), 0.10, 0.55)
    return result


def piece_in_box(random):
    """A wooden disc falls into its tray and rocks once."""
    result = silence(0.20)
    add(result, board(random, 485, 0.017, 0.0008), 0.0)
    add(result, board(random, 172, 0.024, 0.0022), 0.001, 0.6)
    add(result, board(random, 530, 0.012, 0.0007), 0.052, 0.40)
    add(result, board(random, 550, 0.010, 0.0007), 0.083, 0.16)
    return result


def arrived(random):
    """Four bars and a bell run up a chord."""
    result = silence(0.60)
    for k, (note, force) in enumerate((("C5", 0.75), ("E5", 0.8), ("G5", 0.9), ("C6", 1.0))):
        add(result, marimba(random, note, 0.15, 0.0006), 0.075 * k, force)
    add(result, bell(random, "C6", 0.20), 0.225, 0.65)
    return result


def page_turned(random):
    """A sheet is lifted, sweeps over and lies down."""
    result = silence(0.36)
    add(result, paper(random, 0.30, lambda t: 3400 - 9000 * abs(t - 0.16), 0.17, 0.35), 0.0, 1.0)
    add(result, paper(random, 0.10, lambda t: 1100, 0.03, 0.10), 0.245, 0.6)
    return result


def refused(random):
    """Two dull knocks of a knuckle."""
    result = silence(0.30)
    for at, force in ((0.0, 1.0), (0.115, 0.85)):
        add(result, board(random, 148, 0.028, 0.0034, roughness=0.3), at, force)
    return result


def sent_home(random):
    """The captured piece tumbles down five bars and falls into its box."""
    result = silence(0.60)
    for k, note in enumerate(("A5", "F5", "D5", "A#4", "G4")):
        add(result, marimba(random, note, 0.055, 0.0006), 0.062 * k, 1.0 - 0.05 * k)
    add(result, board(random, 165, 0.034, 0.0024), 0.340, 1.15)
    add(result, board(random, 470, 0.014, 0.0009), 0.352, 0.40)
    return result


def declined(random):
    """Two bars, downwards and damped."""
    result = silence(0.38)
    add(result, marimba(random, "D#4", 0.055, 0.0012), 0.0, 1.0)
    add(result, marimba(random, "A#3", 0.075, 0.0014), 0.105, 1.0)
    return result


def step(random):
    """A disc of wood is set down on the board, lightly."""
    result = silence(0.09)
    add(result, board(random, 760, 0.011, 0.0008, roughness=0.2), 0.0)
    add(result, board(random, 230, 0.011, 0.0018), 0.0, 0.30)
    return result


def strum(random, notes, spread, length, at, into, gain=1.0, ring_seconds=1.5):
    for k, note in enumerate(notes):
        add(into, string(random, note, ring_seconds, length), at + spread * k, gain)


CHORDS = {
    "Am": ("A2", "E3", "A3", "C4", "E4"),
    "G": ("G2", "D3", "G3", "B3", "D4", "G4"),
    "F": ("F2", "C3", "F3", "A3", "C4", "F4"),
    "E": ("E2", "B2", "E3", "G#3", "B3", "E4"),
    "A": ("A2", "E3", "A3", "C#4", "E4", "A4"),
}


def guitar(random, result):
    """The way down from A minor to E, a roll on E, and home to A major."""
    for at, chord in ((0.0, "Am"), (0.30, "G"), (0.60, "F")):
        strum(random, CHORDS[chord], 0.011, 0.46, at, result, 0.8, 1.6)
    for at, force in ((0.90, 1.0), (1.05, 0.55), (1.10, 0.6), (1.15, 0.7), (1.20, 0.9), (1.35, 0.8)):
        strum(random, CHORDS["E"], 0.006, 0.34, at, result, 0.8 * force, 1.4)
    strum(random, CHORDS["A"], 0.014, 1.45, 1.50, result, 1.0, 4.5)


TUNE = ((0.0, "E5", 0.28), (0.30, "D5", 0.28), (0.60, "C5", 0.13), (0.75, "D5", 0.07),
        (0.825, "C5", 0.07), (0.90, "B4", 0.42), (1.35, "D5", 0.14), (1.50, "C#5", 1.12))


def fanfare(random):
    """A Spanish close for guitar, trumpet and castanets."""
    result = silence(2.95)
    guitar(random, result)
    for at, note, length in TUNE:
        add(result, brass(note, length + 0.03), at, 0.50)
    add(result, brass("E5", 1.15), 1.50, 0.34)
    add(result, brass("A5", 1.15), 1.50, 0.28)
    for at in (0.0, 0.15, 0.30, 0.45, 0.60, 0.75, 0.90, 1.05, 1.10, 1.15, 1.20, 1.35, 1.50):
        add(result, castanet(random), at, 0.55 if at in (0.0, 0.30, 0.60, 0.90, 1.50) else 0.35)
    return shaped(result, line(((0.0, 1.0), (2.3, 1.0), (2.95, 0.0))))


def piece_moved(random):
    """A piece is pushed over the board with a finger and let go."""
    result = silence(0.24)
    add(result, sliding(random, 0.125, 1300, 0.085), 0.0, 0.55)
    add(result, board(random, 410, 0.019, 0.0011), 0.118, 0.9)
    return result


def key_click(random):
    """A key of the recorder: down on its contact, and the spring."""
    result = silence(0.07)
    add(result, board(random, 1250, 0.0042, 0.0004, roughness=0.2), 0.0, 1.0)
    add(result, board(random, 2100, 0.0030, 0.0003, roughness=0.2), 0.021, 0.55)
    return result


def die_hits(random, length, hits):
    result = silence(length)
    for at, force in hits:
        add(result, die_hit(random, force), at)
    return result


def die_rattles(random):
    """The die leaves the cup and tumbles: many hits close together."""
    hits = [(0.0, 1.0)]
    while hits[-1][0] < 0.17:
        hits.append((hits[-1][0] + 0.019 + 0.012 * random.random(), 0.55 + 0.35 * random.random()))
    return die_hits(random, 0.26, hits)


def die_bounces(random):
    """Three leaps over the table, each shorter."""
    leaps = ((0.0, 1.0), (0.088, 0.75), (0.094, 0.3), (0.150, 0.6), (0.197, 0.4))
    return die_hits(random, 0.30, leaps)


def die_rests(random):
    """It falls on a face, trembles faster and faster, and lies."""
    hits, at, gap, force = [], 0.0, 0.066, 1.0
    while gap > 0.007:
        hits.append((at, force))
        at, gap, force = at + gap, gap * 0.80, force * 0.83
    result = die_hits(random, 0.42, hits)
    return add(result, board(random, 196, 0.030, 0.0026), 0.0, 0.5)


class Recording:
    """One sound: its id, when it is heard, the function that makes it, the decibels by which it is softer
    than the others, and the strength of its room."""

    def __init__(self, sound, heard, make, soft=0.0, room=1.0):
        self.sound, self.heard, self.make, self.soft, self.room = sound, heard, make, soft, room

    def samples(self):
        return in_room(self.make(Random(1000 + self.sound)), self.room)


OFTEN = 2.0  # decibels: sounds heard many times a minute are softer
RECORDINGS = (
    Recording(1, "a menu button is pressed", button_pressed),
    Recording(2, "the help or a page of the manual opens", help_page),
    Recording(3, "the settings open", settings_opened),
    Recording(4, "yes; a window is closed", accepted),
    Recording(5, "the die is ready to be thrown", die_ready, OFTEN),
    Recording(6, "the tutor shows its advice", advice),
    Recording(7, "a piece is put into its box or taken out of it", piece_in_box, OFTEN),
    Recording(8, "a piece arrives at its goal", arrived),
    Recording(9, "a page of the history is turned", page_turned),
    Recording(10, "what was asked for is not possible", refused),
    Recording(11, "a piece is sent home: captured, or the third six", sent_home),
    Recording(12, "no", declined),
    Recording(13, "a piece steps on the next square", step, OFTEN),
    Recording(14, "the game has been won", fanfare),
    Recording(15, "a piece is dragged or dropped by hand", piece_moved),
    Recording(16, "a key of the recorder goes down or up", key_click, OFTEN),
    Recording(17, "the die rattles (first and third face)", die_rattles, OFTEN),
    Recording(18, "the die bounces (fifth face)", die_bounces, OFTEN),
    Recording(19, "the die comes to rest (seventh face)", die_rests, OFTEN),
)
