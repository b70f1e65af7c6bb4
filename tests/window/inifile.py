"""ZORVA32.INI: the settings, and the game in progress, as the tests write and read them."""

from dataclasses import dataclass, field

from layout import COLOURS, GOAL_SQUARE, PIECES

COMPUTER, PERSON = 1, 2
ON, OFF = 1, 2
NAMES = ("Amarillo", "Azul", "Rojo", "Verde")
SAFE_SQUARES = (5, 12, 17, 22, 29, 34, 39, 46, 51, 56, 63, 68)


@dataclass
class Settings:
    """Everything a player may choose. Lists hold the four colours in their order."""

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

    def numbers(self):
        return (self.pause, self.tutor, self.order, self.sound, self.button_info, self.six_all_out,
                self.leave_all_in_box, self.five_all_in_box, self.five_some_in_box, self.speed)


@dataclass(frozen=True)
class Record:
    """One move, its fields in the order of the file."""

    mover: int
    following: int = 0
    die: int = 0
    count: int = 0
    piece: int = 0
    start: int = 0
    to: int = 0
    repeat: int = 0
    manual: int = 0
    on_behalf: int = 0
    turn_end: int = 0

    def line(self):
        return "%d%d%d%2d%d%3d%3d%d%d%d%d" % tuple(vars(self).values())

    @staticmethod
    def of(line):
        cells = (0, 1, 2, 3, 5, 6, 9, 12, 13, 14, 15, 16)
        return Record(*(int(line[a:b]) for a, b in zip(cells, cells[1:])))

    def bonus_due(self):
        """The squares that the mover may count after this move without a throw."""
        if self.piece == 0 or self.manual:
            return 0
        if self.on_behalf:
            return 0 if self.start in SAFE_SQUARES else 20
        return 10 if self.to == GOAL_SQUARE[self.mover] else 0


def empty_positions():
    return {colour: [0, 0, 0, 0] for colour in COLOURS}


@dataclass
class Game:
    """A game as it stands at the beginning of a turn."""

    in_progress: int = 0
    colour: int = 0
    sixes: int = 0
    positions: dict = field(default_factory=empty_positions)
    slots: dict = field(default_factory=dict)  # square -> the three codes on it
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

    def bonus_due(self):
        return self.records[-1].bonus_due() if self.records else 0


def game_at(positions, turn):
    """A game in which the pieces were put there by hand, one after the other. `positions` maps a
    colour to the squares of its four pieces; `turn` is the colour that throws next."""
    game = Game(in_progress=-1, colour=turn)
    for colour, squares in positions.items():
        for piece, square in zip(PIECES, squares):
            if square == 0:
                continue
            slots = game.slots.setdefault(square, [0, 0, 0])
            slots[slots.index(0)] = colour * 10 + piece
            game.positions[colour][piece - 1] = square
            following = 0 if colour == turn else turn
            game.records.append(Record(colour, following, piece=piece, to=square, manual=1, turn_end=1))
    return game


def positions_after(game, moves):
    """Where the pieces stand after that many moves of the game, as its records tell."""
    positions = empty_positions()
    for record in game.records[:moves]:
        if record.piece:
            positions[record.mover][record.piece - 1] = record.to
    return positions


def to_bytes(settings, game=None):
    game = game or Game()
    lines = []
    for colour in COLOURS:
        squares = game.positions[colour]
        index = colour - 1
        name = settings.names[index]
        numbers = (settings.levels[index], settings.types[index], settings.active[index])
        fields = [squares.count(0), game.home(colour), *squares, '"%s"' % name, *numbers]
        lines.append(",".join(map(str, fields)))
    board = "".join("%2d%2d%2d" % tuple(game.slots.get(s, (0, 0, 0))) for s in range(1, 101))
    lines.append('"%s"' % board)
    count = game.moves + 1 if game.in_progress else 0
    turn = (game.in_progress, count, game.colour, -1, game.sixes)
    lines.append(",".join(map(str, turn + settings.numbers())))
    lines += ['"%s"' % record.line() for record in game.records]
    return "".join(line + "\r\n" for line in lines).encode("cp1252")


def from_bytes(data):
    """The settings and the game of a file that the program wrote."""
    lines = data.decode("cp1252").split("\r\n")
    game = Game()
    rows = [line.split(",") for line in lines[:4]]
    for colour, row in zip(COLOURS, rows):
        game.positions[colour] = [int(value) for value in row[2:6]]
    codes = lines[4].strip('"')
    for square in range(1, 101):
        cell = codes[(square - 1) * 6:square * 6]
        if cell.strip(" 0"):
            game.slots[square] = [int(cell[i:i + 2]) for i in (0, 2, 4)]
    numbers = [int(value) for value in lines[5].split(",")]
    game.in_progress, _, game.colour, _, game.sixes = numbers[:5]
    game.records = [Record.of(line.strip('"')) for line in lines[6:] if line]
    columns = list(zip(*((row[6].strip('"'), *map(int, row[7:10])) for row in rows)))
    return Settings(*columns, *numbers[5:]), game
