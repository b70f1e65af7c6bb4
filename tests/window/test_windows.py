"""The windows behind the menu and the board as a window, used with a real mouse and keyboard."""

import itertools

from board import difference
from driver import WindowTest
from inifile import COLOURS, COMPUTER, ON, PERSON, PIECES, Settings, game_at
from layout import Layout

POSITIONS = {1: [76, 76, 20, 40], 2: [84, 0, 84, 25], 3: [92, 92, 0, 60], 4: [100, 0, 100, 57]}
WINDOWS = {"help": ("F1", "Ayuda de la aplicación"), "settings": ("F3", "Personalizar la aplicación"),
           "history": ("F4", "Histórico de partidas")}
SETTINGS_TITLE = WINDOWS["settings"][1]
PERSON_IS_YELLOW = (PERSON, COMPUTER, COMPUTER, COMPUTER)


class MenuWindows(WindowTest):
    def setUp(self):
        super().setUp()
        self.before = game_at(POSITIONS, turn=1)
        self.start(Settings(types=PERSON_IS_YELLOW, pause=ON), self.before)

    def test_each_opens_waits_and_goes(self):
        for button, (key, title) in WINDOWS.items():
            for open_it, name, leave in ((self.click_button, button, "Escape"), (self.display.key, key, "alt+F4")):
                open_it(name)
                self.wait_for_message(title)
                self.click_board()
                self.settle()
                self.answer(title, key=leave)
                self.wait_for_board()
                self.assertEqual(self.game().moves, self.before.moves, "the game went on behind " + title)
        self.play_moves(1)

    def test_a_colour_turned_over_to_the_computer_moves(self):
        self.click_board()
        self.settle()
        self.assertEqual(self.game().moves, self.before.moves, "nobody waited for the person")
        self.display.key("F3")
        self.wait_for_message(SETTINGS_TITLE)
        # From yellow's state over its name and its level to its kind of player.
        self.display.key("Tab", "Tab", "Tab", "space")
        self.assertEqual(self.game().moves, self.before.moves, "moved before the window was left")
        self.answer(SETTINGS_TITLE, key="Escape")
        self.wait_for_moves(self.before.moves + 1)
        self.assertEqual(self.program.settings().types, (COMPUTER,) * 4)


class BoardAsWindow(WindowTest):
    screen = (1600, 1000)

    def open_window(self, positions, **settings):
        self.start(Settings(pause=ON, **settings), game_at(positions, turn=1))
        self.display.key("F11")
        self.board = self.wait_until(lambda: (now := self.display.active_window()) and now.width == 1200 and now,
                                     "a window of three quarters of the screen")

    def resize(self, *size):
        self.display.resize(self.board, *size)
        self.wait_until(lambda: self.display.place(self.board)[2:] == size, "a window of %d x %d" % size)

    def board_as_drawn(self):
        """Finds the game's pieces on their squares, and returns what is seen of the window."""
        self.wait_until(lambda: (now := self.display.active_window()) and now.id == self.board.id, "the board on top")
        self.settle()
        left, top, width, height = self.display.place(self.board)
        self.layout = Layout(width, height, left, top)
        picture, game = self.settled_picture(), self.game()
        positions = {colour: [game.piece(colour, piece) for piece in PIECES] for colour in COLOURS}
        self.assertEqual(difference(picture, self.layout, positions), "")
        return picture.part(left, top, width, height)

    def test_it_follows_its_size_in_the_middle_of_a_walk(self):
        self.open_window({1: [76, 76, 76, 6], 2: [84, 84, 84, 24], 3: [92, 92, 92, 40], 4: [100, 100, 100, 57]},
                         types=(COMPUTER,) * 4, speed=75)
        sizes = itertools.cycle(((900, 500), (1300, 640), (700, 900)))
        for size in ((640, 480), (1500, 900)):
            moves = self.game().moves
            self.display.key("space")
            while self.game().moves == moves:
                self.resize(*next(sizes))
            self.resize(*size)
            as_drawn = self.board_as_drawn()
            self.display.key("F11")
            self.wait_for_board()
            self.display.key("F11")
            self.wait_until(lambda: self.display.place(self.board)[2:] == size, "the window's last size")
            self.assertEqual(self.board_as_drawn(), as_drawn, "as if it had always been so large")
        self.display.resize(self.board, 500, 300)
        self.wait_until(lambda: self.display.place(self.board)[2:] == (640, 480), "the smallest window")

    def test_a_drag_ends_when_the_window_changes(self):
        self.open_window(POSITIONS, types=PERSON_IS_YELLOW)
        self.resize(1024, 768)
        self.display.key("F10")
        before = self.file_stamp()
        for act in (lambda: self.display.minimise(self.board) or self.program.spawn().wait(),
                    lambda: self.resize(800, 600), lambda: self.display.key("F11")):
            as_drawn = self.board_as_drawn()
            self.display.act("mousemove %d %d" % self.layout.device(self.layout.square(20)), "mousedown 1",
                             "mousemove %d %d" % self.layout.device(self.layout.house(1)))
            self.wait_until(lambda: not self.display.picture().part(*self.display.place(self.board)) == as_drawn,
                            "the drag")
            act()
            self.board_as_drawn()
            self.display.act("mouseup 1")
        self.assertEqual(self.file_stamp(), before)


class Chances(WindowTest):
    """The window of chances lies beside the board, where there is room, and the game goes on."""
    screen = (1366, 768)

    def test_the_game_goes_on_beside_it(self):
        before = game_at(POSITIONS, turn=1)
        self.start(Settings(pause=ON, speed=100), before)
        self.display.key("F7")
        window = self.wait_for_message("Probabilidades")
        self.assertGreater(window.x, self.layout.device((self.layout.board_extent - 20, 0))[0], "covers the board")
        self.click_board()
        self.wait_for_moves(before.moves + 1)
        self.wait_for_board()
        self.assertTrue(self.display.is_mapped(window), "closed by a click on the board")
        self.display.key("space")
        self.wait_for_moves(before.moves + 2)
        self.display.key("F7")
        self.wait_until(lambda: not self.display.is_mapped(window), "the end of the window")
        self.click(self.layout.chances)
        self.wait_for_message("Probabilidades")
        self.display.key("2", "Escape")
        self.wait_for_board()
        self.settle()  # nothing is computed behind it
