"""What the screen reader says to a player who plays by keyboard and does not see the board."""

import os
import re
import signal
from collections import namedtuple
from pathlib import Path

from driver import CONTINUE_TITLE, DRAW_TITLE, END_TITLE, SIXES_TITLE, START_TITLE, WindowTest
from inifile import (COLOURS, COMPUTER, GOAL_SQUARE, NAMES, OFF, ON, PERSON, PIECES, Settings, from_bytes, game_at,
                     to_bytes)
from reader import Reader

SLOWLY = "ZORVA_SLOWLY" in os.environ
TAPE = from_bytes((Path(__file__).parent.parent / "data/games/game15/expected.INI").read_bytes())[1]
# With these dice three pieces are captured here, two arrive, and one goes back for a third six.
NEARLY_OVER = {1: [76, 76, 60, 52], 2: [84, 84, 53, 57], 3: [92, 92, 55, 8], 4: [100, 100, 58, 49]}
DICE = "1288"

ANA = 1
PLAYERS = dict(zip(COLOURS, ("Ana (Amarillo)", *NAMES[1:])))
SAFE = (5, 12, 17, 22, 29, 34, 39, 46, 51, 56, 63, 68)
LAST_BEFORE_COLUMN = 68  # on Ana's way
KEY = "Pulse una tecla."
THIRD_SIX = "Este jugador ha sacado un 6 por tercera vez"
SENT_BACK = THIRD_SIX + " y la ficha que ha movido en la jugada anterior vuelve al cuadro de espera."
NONE_MOVED = THIRD_SIX + ". Como en el turno anterior no pudo mover, no vuelve ninguna ficha al cuadro de espera."
SAVED = (THIRD_SIX + ". Como la ficha que ha movido en la jugada anterior ha llegado a casa no vuelve al cuadro de "
                     "espera.")
Told = namedtuple("Told", "sentence number")  # the number of the record, if it may be summed up with others


def place(colour, square):
    column = square - GOAL_SQUARE[colour] + 8
    return ("el cuadro de espera" if square == 0 else "la casilla %d" % square if square <= 68 else
            "la meta" if column == 8 else "la casilla %d de su columna" % column)


def to(colour, square):
    return ("a " + place(colour, square)).replace("a el", "al")


def way(colour, start, end):
    verb = "va" if start and end else "sale" if end else "vuelve"
    return verb + (" de %s " % place(colour, start) if start else " ").replace("de el", "del") + to(colour, end)


def offer(colour):
    return PLAYERS[colour] + (", el ordenador" if colour != ANA else "") + ": puede tirar el dado."


def split(text):
    return re.split(r"(?<=\.) ", re.sub(r"\s+", " ", text))


class Story:
    """What a player who sees nothing has to hear of a game, made from its records alone."""

    def __init__(self, game):
        self.game, self.records, self.told = game, game.records, []
        self.is_over = 4 in map(game.home, COLOURS)

    def tell(self, *sentences, number=None):
        self.told += [Told(sentence, number) for text in sentences for sentence in split(text)]

    def tell_from(self, first, choices, pause):
        """`choices` has the records for which the person chose, and among how many pieces."""
        for number, record in enumerate(self.records[first:], first):
            if not record.on_behalf:
                self.tell_turn(number, record.mover, pause, self.is_throw(record))
                self.tell_record(number, record, choices.get(number))
        if not self.is_over:
            self.tell_turn(self.game.moves, self.game.colour, pause, True)
        return self.told

    def is_throw(self, record):
        return record.die and (record.turn_end or record.die != 5)  # not the second piece that a five brings out

    def tell_turn(self, number, colour, pause, is_throw):
        last = self.records[number - 1]
        before = number and last.repeat and (last.following or last.mover)
        if last.repeat == 2 and before not in (0, colour):  # a third six that left no record
            self.tell(*["Repite " + offer(before)] * pause, PLAYERS[before] + " saca 6.")
            self.tell(SIXES_TITLE + " dialog.", SAVED, KEY)
        if is_throw and pause:
            self.tell(("Repite " if before == colour else "Turno de ") + offer(colour))

    def tell_record(self, number, record, choices):
        is_sent_back, is_throw = record.die == 6 and record.repeat == 0, self.is_throw(record)
        if is_throw and (is_sent_back or choices):
            self.tell("%s saca %d." % (PLAYERS[record.mover], record.die))
        if is_sent_back:
            self.tell(SIXES_TITLE + " dialog.", SENT_BACK if record.piece else NONE_MOVED, KEY)
        elif choices:
            count = "" if record.count == record.die else " para contar %d" % record.count
            self.tell("Elija una ficha%s: puede mover %d." % (count, choices))
        is_ordinary = (record.mover != ANA and record.to != GOAL_SQUARE[record.mover] and not self.eaten(number) and
                       (record.to or not record.piece))
        self.tell(self.move(number, record.die and (is_sent_back or choices or not is_throw)),
                  number=number if is_ordinary else None)

    def eaten(self, number):
        after = self.records[number + 1:number + 2]
        return after[0] if after and after[0].on_behalf and not self.records[number].on_behalf else None

    def eats(self, number):
        eaten = self.eaten(number)
        return " y come la ficha %d de %s." % (eaten.piece, PLAYERS[eaten.mover]) if eaten else "."

    def move(self, number, is_throw_known=False):
        record, who = self.records[number], PLAYERS[self.records[number].mover]
        if not record.piece:
            return who + (" no puede contar %d." % record.count if not record.die else " pasa." if is_throw_known else
                          " saca %d y pasa." % record.die)
        count = " cuenta %d" % record.count if not record.die else " saca %d" % record.die
        if record.die and not record.to:
            count += " por tercera vez"
        elif record.die not in (0, record.count):
            count += " y cuenta %d" % record.count
        piece = ("La ficha %d de %s " % (record.piece, who) if is_throw_known or record.on_behalf else
                 "%s%s: la ficha %d " % (who, count, record.piece))
        arrives = record.to == GOAL_SQUARE[record.mover] and not (self.is_over and number + 1 == len(self.records))
        captures = self.eaten(number) and record.to not in SAFE
        return (piece + way(record.mover, record.start, record.to) + self.eats(number) +
                " Gana un premio de %d." % (10 if arrives else 20) * bool(arrives or captures))

    def summed(self, told):
        """The sentence for one or more of these, all of one colour."""
        if len(told) < 2:
            return told[0].sentence if told else None
        records = [self.records[each.number] for each in told]
        who, reached = records[0].mover, {record.piece: record.to for record in records if record.piece}
        pieces = "; ".join("ficha %d %s" % (piece, to(who, reached[piece])) for piece in sorted(reached))
        return PLAYERS[who] + (" hace %d jugadas: %s." % (len(told), pieces) if pieces else
                               " pasa %d veces." % len(told))


class PlayedUnseen(WindowTest):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.reader = Reader(cls.display)
        cls.addClassCleanup(cls.reader.close)

    def heard(self):
        """The sentences since the last call, without the name of the board."""
        return [sentence for text in self.reader.take() if text != "Tablero panel." for sentence in split(text)]

    def hear(self, *keys, sentences=0):
        """What is said after these keys until all rests, at least so many sentences."""
        self.display.key(*keys)
        said = []
        self.wait_until(lambda: said.extend(self.heard()) or len(said) >= sentences, "all sentences after %s" % (keys,))
        self.settle()
        return said + self.heard()

    def assert_hears(self, texts, *keys):
        due = split(" ".join(texts))
        self.assertEqual(self.hear(*keys, sentences=len(due)), due)

    def begin(self, game=None, **settings):
        settings = Settings(types=(PERSON, COMPUTER, COMPUTER, COMPUTER), names=("Ana", *NAMES[1:]), levels=(100,) * 4,
                            **settings)
        self.program.environment["ZORVA_DICE"] = DICE
        self.program.ini.write_bytes(to_bytes(settings, game))
        self.start_with_message(None)
        self.display.key("i")  # does nothing but break off the words of welcome
        if game:
            self.close_message(CONTINUE_TITLE, [])
        self.wait_for_board()

    def close_message(self, title, said):
        """Adds what is said until the message has been read out; then a key closes it."""
        self.wait_for_message(title)
        self.wait_until(lambda: said.extend(self.heard()) or "tecla" in " ".join(said[-2:]), "all words of " + title)
        self.answer(title, key="Return")

    def draw(self):
        """Hears the draw and returns the colour that begins."""
        self.close_message(START_TITLE, [])
        contenders = COLOURS
        while len(contenders) > 1:
            said = []
            self.close_message(DRAW_TITLE, said)
            faces = {colour: int(sentence[-2]) for colour, sentence in zip(contenders, said)}
            throws = ["%s saca %d." % (PLAYERS[colour], face) for colour, face in faces.items()]
            contenders = [colour for colour in contenders if faces[colour] == max(faces.values())]
            result = ("Hay empate y se va a desempatar." if len(contenders) > 1 else
                      "Sale %s." % PLAYERS[contenders[0]].split()[0])
            self.assertEqual(said, [*throws, DRAW_TITLE + " dialog.", result, KEY])
        return contenders[0]

    def play(self, game=None, **settings):
        """Plays to the end and compares what was said with the records."""
        self.begin(game, **settings)
        self.said, self.choices, starts = [], {}, None
        if not game:
            self.display.key("F2")
            starts = self.draw()
        self.play_until(lambda: self.title() == END_TITLE, self.take_turn,
                        lambda title: self.close_message(title, self.said))
        end = self.game()
        self.close_message(END_TITLE, self.said)
        self.assertIn(starts, (None, end.records[0].mover))
        winner, = (name.split()[0] for colour, name in PLAYERS.items() if end.home(colour) == 4)
        self.assertRegex(" ".join(self.said[-3:]), END_TITLE + r" dialog\. .*Ha ganado la partida %s\. " % winner + KEY)
        self.assert_told(Story(end), self.said[:-3], game.moves if game else 0, settings["pause"] == ON)

    def asks(self):
        self.said += self.heard()
        return self.said and self.said[-1].startswith("Elija")

    def take_turn(self):
        self.said += self.hear()
        before = self.game()
        if 4 in map(before.home, COLOURS):
            if self.title() != END_TITLE:
                self.display.key("i")  # or the message would wait until all has been said
            return self.wait_for_message(END_TITLE)
        if self.asks():
            self.choose(before)
        else:  # a key that does nothing breaks off what is said, for which a message would wait
            is_throw_due = self.said and self.said[-1].endswith("puede tirar el dado.")
            self.said += self.hear("Return" if is_throw_due else "i")
        self.comes_before_rest(lambda: self.title() or self.game().moves > before.moves or self.asks(), rest=2)
        return not self.title()

    def choose(self, before):
        """Hears what each piece could do, takes the one advised or the one marked last, and finds that it did that."""
        number, count = before.moves, int(re.findall(r"(?:contar|saca) (\d+)", " ".join(self.said))[-1])
        marks = self.hear(*["Tab"] * 5, sentences=5)
        self.assertEqual(marks, [self.claim(before, int(mark[6]), count) for mark in marks])
        self.choices[number] = len(set(marks))
        advice = number % 2 and self.hear("F5", sentences=1)
        self.said += self.hear("space" if advice else "Return")
        story = Story(self.game())
        moved = story.records[number]
        if advice:
            told = way(ANA, moved.start, moved.to) + story.eats(number)
            self.assertEqual(advice, ["Consejo: la ficha %d %s" % (moved.piece, told)])
        else:
            self.assertEqual(moved.piece, int(marks[-1][6]))

    def claim(self, game, piece, count):
        """What one of Ana's pieces has to say when it is marked."""
        start = game.piece(ANA, piece)
        end = start + count if start else 5
        if start <= LAST_BEFORE_COLUMN < end:
            end += GOAL_SQUARE[ANA] - 8 - LAST_BEFORE_COLUMN
        there = [(colour, other) for colour in COLOURS for other in PIECES if game.piece(colour, other) == end]
        eats = ""
        if len(there) == 1 and there[0][0] != ANA and end not in SAFE:
            eats = " y come la ficha %d de %s" % (there[0][1], PLAYERS[there[0][0]])
        stands = ("en " + place(ANA, start)).replace("en la casilla", "casilla")
        return "Ficha %d, %s: %s %s%s." % (piece, stands, "va" if start else "sale", to(ANA, end), eats)

    def assert_told(self, story, said, first, pause):
        """That each sentence was said in its order and nothing else. Where the game was faster than the voice, the
        moves of a colour may have become one sentence."""
        left = story.tell_from(first, self.choices, pause)
        for index, sentence in enumerate(said):
            fixed = next((place for place, told in enumerate(left) if told.number is None), len(left))
            ways = [left[:1]]
            for colour in COLOURS:
                told = [each for each in left[:fixed] if story.records[each.number].mover == colour]
                ways += [told[:count] for count in range(1, len(told) + 1)]
            told = next((told for told in ways if story.summed(told) == sentence), None)
            self.assertIsNotNone(told, "%s was said, due is %s" % (said[index:index + 4], left[:4]))
            left = [each for each in left if not any(each is one for one in told)]
        self.assertEqual(left, [], "this was not said")

    def test_the_end_of_a_game(self):
        self.play(game_at(NEARLY_OVER, turn=ANA), pause=ON)
        for event in (THIRD_SIX, "Ana (Amarillo) no puede contar 10.", " y come la ficha ", " y pasa.", "Elija"):
            self.assertIn(event, " ".join(self.said))

    def test_a_whole_game(self):
        signal.alarm(3600)
        self.play(pause=ON if SLOWLY else OFF, speed=50 if SLOWLY else 100)

    def test_the_recorder(self):
        self.begin(TAPE, pause=ON)
        self.hear(sentences=1)
        story, numbered, back = Story(TAPE), [], []
        turns = ["Turno de %s." % PLAYERS[record.following or record.mover] for record in TAPE.records]
        turns.append("Turno de %s." % PLAYERS[TAPE.colour])
        for number, record in enumerate(TAPE.records):
            numbered.append("Jugada %d. %s" % (number + 1, story.move(number)))
            moved_back = ": la ficha %d de %s está otra vez en %s" % (record.piece, PLAYERS[record.mover],
                                                                      place(record.mover, record.start))
            back.append("Deshecha la jugada %d%s." % (number + 1, moved_back if record.piece else ""))
        last = [text for text, record in zip(numbered, TAPE.records) if not record.on_behalf][-6:]
        self.assert_hears(last, "F9")
        self.assert_hears(["Grabadora encendida. Control y las flechas recorren las jugadas; control e Inicio la "
                           "apaga."], "ctrl+Home")
        for first in range(TAPE.moves, TAPE.moves - 40, -10):
            texts = ["%s %s" % (back[number], turns[number]) for number in range(first - 1, first - 11, -1)]
            self.assert_hears(texts, *["ctrl+Left"] * 10)
        for first in range(TAPE.moves - 40, TAPE.moves, 10):
            texts = ["%s %s" % (numbered[number], turns[number + 1]) for number in range(first, first + 10)]
            self.assert_hears(texts, *["ctrl+Right"] * 10)

    def test_windows_and_manual_mode(self):
        history = b"".join(b"202611%02d1230Ana      Azul                       250\r\n" % day for day in range(1, 10))
        self.program.history.write_bytes(history)
        self.begin(game_at(NEARLY_OVER, turn=ANA), pause=ON)
        self.hear(sentences=1)
        pieces = "".join(" %s: fichas 1 y 2 en la meta; ficha 3 en la casilla %d; ficha 4 en la casilla %d." %
                         (PLAYERS[colour], *squares[2:]) for colour, squares in NEARLY_OVER.items())
        shift = "La ficha 3 de Ana (Amarillo) se pone a mano en la casilla 61."
        offer = "Turno de Ana (Amarillo): puede tirar el dado."
        for key, said in (
                ("F8", re.escape(offer + pieces)), ("F1", "Manual label."), ("Down", "Bienvenidos al parchís"),
                ("Tab", "Enlace: "), ("Return", r"\d+\. "), ("Escape", None), ("F3", "Amarillo: Estado.* Activado."),
                ("Tab", "Nombre"), ("Tab", "slider 100"), ("Tab", "Amarillo: Tipo de juego.* Manual."),
                ("space", "Automático."), ("space", "Manual."), ("Escape", None),
                ("F4", "Página 1: partidas 1 a 8 de 9. 09-11-2026.* 02-11-2026"),
                ("Next", "^Página 2: partida 9 de 9. 01-11-2026, 12:30. Ganador: Ana. Perdedores: Azul. "
                         "Puntos: 2.50.$"), ("Escape", None),
                ("F10", "Modo manual."), ("Tab", "^Ficha 3 de Ana .Amarillo., casilla 60.$"), ("Return", "levantada"),
                ("Right", "^Casilla 61: libre.$"), ("Return", "^" + re.escape(shift + " " + offer) + "$")):
            texts = []
            self.display.key(key)
            if not said:
                self.wait_for_board()
                continue
            self.wait_until(lambda: texts.extend(self.heard()) or re.search(said, " ".join(texts)),
                            "%r after %s" % (said, key))
        self.assertEqual(self.game().piece(ANA, 3), 61)
