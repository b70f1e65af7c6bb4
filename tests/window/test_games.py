"""Whole games, from the button for a new game to the question about the history."""

import os
import signal

from driver import CONTINUE_TITLE, END_TITLE, HISTORY_TITLE, START_TITLE, WindowTest
from inifile import COLOURS, COMPUTER, GOAL_SQUARE, OFF, ON, PERSON, PIECES, Settings

GAMES = int(os.environ.get("ZORVA_GAMES", "6"))  # in the test of growth
# Two colours meet everything that four meet, in half the time; their names have letters beyond ASCII.
TWO = {"active": (OFF, ON, OFF, ON), "names": ("Ana", "Ñu", "Eva", "Íñigo")}
MAY_GROW = {"Private_Dirty": 1024, "Rss": 1024, "files": 0, "threads": 0}  # memory in KiB


class WholeGame(WindowTest):
    def throw_or_pick(self):
        """By mouse until enough pieces were picked; then by all keys that throw or pick."""
        if 4 in map(self.game().home, COLOURS):  # the file has the won position before the message opens
            return self.wait_for_message(END_TITLE)
        if len(self.picks) > 15:
            self.ways.append(self.ways.pop(0))
            return self.advances(lambda: self.display.key(*self.ways[0]))
        if self.advances(self.click_board):
            return True
        game = self.game()
        for piece in PIECES:
            if game.piece(2, piece) != GOAL_SQUARE[2] and not self.title() and \
                    self.advances(lambda: self.click(self.point_of_piece(game, 2, piece))):
                self.picks.append(piece)
                return True
        return False

    def test_a_person_against_a_computer(self):
        self.picks, self.ways = [], [("Tab", "Return"), ("Left", "Left", "Return"), ("Return",), ("Down", "space")]
        self.start(Settings(types=(COMPUTER, PERSON, COMPUTER, COMPUTER), pause=ON, **TWO))
        self.click_button("new game")
        self.play_until(lambda: self.title() == END_TITLE, self.throw_or_pick,
                        lambda title: self.answer(title, "yes" if title == START_TITLE else "accept"))
        self.assertGreater(len(self.picks), 15, "the person had nothing to pick")
        self.answer(END_TITLE)
        self.wait_for_message(HISTORY_TITLE)
        self.program.process.send_signal(signal.SIGTERM)  # the session ends before the answer
        self.assertEqual(self.wait_for_end(), 0)
        self.start_with_message(CONTINUE_TITLE)
        self.answer(END_TITLE)
        self.assertFalse(self.program.history.exists(), "written before the question was answered")
        self.answer(HISTORY_TITLE, "yes")
        self.wait_for_board()
        game = self.wait_until(lambda: not self.game().in_progress and self.game(), "the end in the file")
        winner, = [colour for colour in COLOURS if game.home(colour) == 4]
        names = "%-9s%-9s%18s" % (TWO["names"][winner - 1], TWO["names"][5 - winner], "")
        self.assertRegex(self.program.history.read_bytes().decode("cp1252"), r"^20\d{10}" + names + r"\d{3}\r\n$")
        self.assertEqual(game.records, [])


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
