"""ZORVA32.INI: the settings, and the game in progress, as the tests write and read them."""

import functools
from collections import namedtuple
from dataclasses import astuple, dataclass, field

COLOURS = PIECES = (1, 2, 3, 4)
GOAL_SQUARE = {1: 76, 2: 84, 3: 92, 4: 100}
COMPUTER, PERSON = 1, 2
ON, OFF = 1, 2
NAMES = ("Amarillo", "Azul", "Rojo", "Verde")


@dataclass
class Settings:
    """What a player may choose, in the order of the file. Tuples hold the four colours."""

    names: tuple = NAMES
    levels: tuple = (50, 50, 50, 50)
    types: tuple = (COMPUTER,) * 4
    active: tuple = (ON,) * 4
    pause: int = OFF
    tutor: int = OFF
    order: int = 2
    sound: int = ON
    button_info: int = ON
    six_all_out: int = 2
    leave_all_in_box: int = 1
    five_all_in_box: int = 1
    five_some_in_box: int = 1
    speed: int = 100


# One move, its fields in the order of the file.
Record = namedtuple("Record", "mover following die count piece start to repeat manual on_behalf turn_end",
                    defaults=(0,) * 10)
RECORD_FORMAT = "%d%d%d%2d%d%3d%3d%d%d%d%d"
RECORD_CELLS = (0, 1, 2, 3, 5, 6, 9, 12, 13, 14, 15, 16)


@dataclass
class Game:
    """A game as it stands at the beginning of a turn."""

    in_progress: int = 0
    colour: int = 0
    sixes: int = 0
    positions: dict = field(default_factory=lambda: {colour: [0] * 4 for colour in COLOURS})
    slots: dict = field(default_factory=dict)  # square -> the three piece codes on it
    records: list = field(default_factory=list)

    @property
    def moves(self):
        return len(self.records)

    def piece(self, colour, piece):
        return self.positions[colour][piece - 1]

    def home(self, colour):
        return self.positions[colour].count(GOAL_SQUARE[colour])

    def slot_of(self, colour, piece):
        codes = self.slots.get(self.piece(colour, piece), ())
        return codes.index(colour * 10 + piece) + 1 if colour * 10 + piece in codes else 4


def throw_behind(game, moves):
    """Who threw what for the last of that many moves. A bonus and a captured piece's return have no throw of their
    own, and a move by hand has none at all."""
    for record in reversed(game.records[:moves]):
        if record.die or record.manual:
            return {record.mover: record.die} if record.die else {}
    return {}


def game_at(positions, turn):
    """A game in which the pieces were put down by hand, one after the other. `positions` maps a colour to
    the squares of its four pieces; `turn` is the colour that throws next."""
    game = Game(in_progress=-1, colour=turn)
    for colour, squares in positions.items():
        for piece, square in zip(PIECES, squares):
            if square:
                slots = game.slots.setdefault(square, [0, 0, 0])
                slots[slots.index(0)] = colour * 10 + piece
                game.positions[colour][piece - 1] = square
                following = 0 if colour == turn else turn
                game.records.append(Record(colour, following, piece=piece, to=square, manual=1, turn_end=1))
    return game


def positions_after(game, moves):
    positions = Game().positions
    for record in game.records[:moves]:
        if record.piece:
            positions[record.mover][record.piece - 1] = record.to
    return positions


def to_bytes(settings, game=None):
    game = game or Game()
    columns = astuple(settings)
    lines = []
    for colour, (name, *choices) in zip(COLOURS, zip(*columns[:4])):
        squares = game.positions[colour]
        lines.append((squares.count(0), game.home(colour), *squares, '"%s"' % name, *choices))
    count = game.moves + 1 if game.in_progress else 0
    lines.append(('"%s"' % "".join("%2d%2d%2d" % tuple(game.slots.get(s, (0, 0, 0))) for s in range(1, 101)),))
    lines.append((game.in_progress, count, game.colour, -1, game.sixes, *columns[4:]))
    lines += [('"%s"' % (RECORD_FORMAT % record),) for record in game.records]
    return "".join(",".join(map(str, line)) + "\r\n" for line in lines).encode("cp1252")


@functools.lru_cache(maxsize=1)  # the tests look at the same file many times
def from_bytes(data):
    lines = data.decode("cp1252").replace('"', "").split("\r\n")
    rows = [line.split(",") for line in lines[:4]]
    numbers = [int(value) for value in lines[5].split(",")]
    codes = [int(lines[4][i:i + 2]) for i in range(0, 600, 2)]
    game = Game(numbers[0], numbers[2], numbers[4])
    game.positions = {colour: [int(value) for value in row[2:6]] for colour, row in zip(COLOURS, rows)}
    game.slots = {i // 3 + 1: codes[i:i + 3] for i in range(0, 300, 3) if any(codes[i:i + 3])}
    game.records = [Record(*(int(line[a:b]) for a, b in zip(RECORD_CELLS, RECORD_CELLS[1:])))
                    for line in lines[6:] if line]
    columns = zip(*((row[6], *map(int, row[7:])) for row in rows))
    return Settings(*columns, *numbers[5:]), game
