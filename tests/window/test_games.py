"""Whole games, from the button for a new game to the question about the history."""

import os
import signal

from driver import END_TITLE, HISTORY_TITLE, START_TITLE, WindowTest
from inifile import COLOURS, COMPUTER, GOAL_SQUARE, OFF, ON, PERSON, PIECES, Settings

GAMES = int(os.environ.get("ZORVA_GAMES", "6"))  # in the test of growth
# Two colours meet everything that four meet, in half the time; their names have letters beyond ASCII.
TWO = {"active": (OFF, ON, OFF, ON), "names": ("Ana", "Ñu", "Eva", "Íñigo")}
MAY_GROW = {"Private_Dirty": 1024, "Rss": 1024, "files": 0, "threads": 0}  # memory in KiB


class WholeGames(WindowTest):
    def play_game(self, person, act, answer):
        """Plays a game of a person against a computer to its end, and keeps the result."""
        types = tuple(PERSON if colour == person else COMPUTER for colour in COLOURS)
        self.start(Settings(types=types, pause=ON, **TWO))
        answer("begin")
        self.play_until(lambda: self.title() == END_TITLE, act, answer)
        answer(END_TITLE)
        self.assertFalse(self.program.history.exists(), "written before the question was answered")
        answer(HISTORY_TITLE)
        self.wait_for_board()
        game = self.wait_until(lambda: not self.game().in_progress and self.game(), "the end in the file")
        winner, = [colour for colour in COLOURS if game.home(colour) == 4]
        names = "%-9s%-9s%18s" % (TWO["names"][winner - 1], TWO["names"][5 - winner], "")
        self.assertRegex(self.program.history.read_bytes().decode("cp1252"), r"^20\d{10}" + names + r"\d{3}\r\n$")
        self.assertEqual(game.records, [])

    def test_by_mouse(self):
        picks = []

        def throw_or_pick():
            if len(picks) > 15:  # enough; a key takes the move that is advised
                return self.advances(lambda: self.display.key("Return"))
            if self.advances(self.click_board):
                return True
            game = self.game()
            for piece in PIECES:
                if game.piece(2, piece) != GOAL_SQUARE[2] and not self.title() and \
                        self.advances(lambda: self.click(self.point_of_piece(game, 2, piece))):
                    picks.append(piece)
                    return True
            return False

        def answer(title):
            if title == "begin":
                self.click_button("new game")
            else:
                self.answer(title, "yes" if title in (START_TITLE, HISTORY_TITLE) else "accept")

        self.play_game(2, throw_or_pick, answer)
        self.assertGreater(len(picks), 15, "the person had nothing to pick")

    def test_by_keyboard_alone(self):
        ways = [("Tab", "Return"), ("Left", "Left", "Return"), ("Return",), ("Down", "space")]

        def throw_or_pick():
            ways.append(ways.pop(0))
            return self.advances(lambda: self.display.key(*ways[0]))

        self.play_game(4, throw_or_pick, lambda title: self.display.key("F2") if title == "begin" else
                       self.answer(title, key="Return"))


class ManyGames(WindowTest):
    def resources(self):
        folder = "/proc/%d/" % self.program.process.pid
        with open(folder + "maps") as maps, open(folder + "smaps_rollup") as memory:
            self.assertNotIn(" rwx", maps.read(), "memory is writable and executable")
            values = dict(line.split()[:2] for line in memory.readlines()[1:])
        return {"Private_Dirty": int(values["Private_Dirty:"]), "Rss": int(values["Rss:"]),
                "files": len(os.listdir(folder + "fd")), "threads": len(os.listdir(folder + "task"))}

    def play_one(self):
        before = self.program.history.read_bytes() if self.program.history.exists() else b""
        self.display.key("F2")
        self.play_until(lambda: self.program.history.exists() and self.program.history.read_bytes() != before,
                        lambda: self.advances(lambda: self.display.key("Return")))
        self.wait_for_board()
        self.settle()

    def test_nothing_grows(self):
        signal.alarm(60 + 10 * GAMES)
        self.start(Settings(pause=OFF, **TWO))
        rows = []
        for _ in range(GAMES):
            self.play_one()
            rows.append(self.resources())
        # The first games fill the caches.
        early, late = rows[GAMES // 3:GAMES * 2 // 3], rows[GAMES * 2 // 3:]
        for what, limit in MAY_GROW.items():
            grown = min(row[what] for row in late) - min(row[what] for row in early)
            print("%-14s %6d, grown by %d" % (what, rows[-1][what], grown), flush=True)
            self.assertLessEqual(grown, limit, what)
