"""What mouse and keyboard do on the board: advise, shift by hand, and what happens to input that comes early."""

import time

from driver import ABANDON_TITLE, WindowTest, message_button
from inifile import COMPUTER, OFF, ON, PERSON, Settings, game_at

YELLOW, BLUE, RED, GREEN = 1, 2, 3, 4
PERSON_IS_YELLOW = (PERSON, COMPUTER, COMPUTER, COMPUTER)

# Yellow has two pieces home and two that can walk, whatever is thrown.
TWO_TO_CHOOSE = {YELLOW: [76, 76, 20, 40]}
# One piece for each colour to move, out of reach of all others for two throws, sixes (12) included.
APART = {YELLOW: [76, 76, 76, 6], BLUE: [84, 84, 84, 24], RED: [92, 92, 92, 40], GREEN: [100, 100, 100, 57]}


class BoardTest(WindowTest):
    def begin(self, positions, **settings):
        self.before = game_at(positions, turn=YELLOW)
        self.start(Settings(**{"pause": ON, **settings}), self.before)

    def look_same(self, one, other, square):
        """Whether the same is drawn within a piece's size of a square."""
        (x, y), size = self.layout.square(square), self.layout.piece_size
        box = (x - size, y - size, 2 * size, 2 * size)
        return self.part(one, box) == self.part(other, box)

    def assert_nothing_happens(self, act, what):
        before, stamp = self.settled_picture(), self.file_stamp()
        act()
        self.assertTrue(self.settled_picture().same_as(before), what)
        self.assertEqual(self.file_stamp(), stamp, what)


class Advice(BoardTest):
    def test_it_shows_what_a_key_plays(self):
        self.begin(TWO_TO_CHOOSE, types=PERSON_IS_YELLOW)
        self.play_moves(1)  # leaves advice behind that is no longer good
        asks = (lambda: self.display.key("F5"), lambda: self.click_button("advice"))
        for ask in asks:
            self.assert_nothing_happens(ask, "advice before the throw")
        for tutor, ask in ((OFF, asks[0]), (OFF, asks[1]), (ON, self.rest_pointer)):
            self.program.kill()
            self.begin(TWO_TO_CHOOSE, types=PERSON_IS_YELLOW, tutor=tutor)
            before = self.settled_picture()
            self.click_board()
            self.wait_until(lambda: not any(self.look_same(before, self.display.picture(), square)
                                            for square in (20, 40)), "the movable pieces to stand out")
            ready = before if tutor == ON else self.settled_picture()
            ask()
            self.wait_until(lambda: not self.display.picture().same_as(ready), "the advice")
            advised = self.settled_picture()
            self.display.key("Return")
            played = self.wait_for_moves(self.before.moves + 1).records[self.before.moves]
            for square in (played.start, played.to):
                self.assertFalse(self.look_same(ready, advised, square), square)


class ShiftingByHand(BoardTest):
    def test_a_drag_that_is_lost_ends_where_it_began(self):
        self.begin(APART, types=PERSON_IS_YELLOW)
        self.click_board(button=3)
        still, board_window = self.settled_picture(), self.display.active_window().id
        start, end = (self.layout.device(self.layout.square(square)) for square in (6, 12))
        for lose in ("windowminimize " + board_window, "key Escape", "mousedown 3"):
            self.display.act("mousemove %d %d" % start, "mousedown 1", "mousemove %d %d" % end)
            self.wait_until(lambda: not self.look_same(still, self.display.picture(), 6), "the drag")
            self.display.act(lose)
            self.settle()
            self.display.act("mouseup 3", "mouseup 1", "windowactivate " + board_window)
            self.wait_for_board()
            self.assertTrue(self.settled_picture().same_as(still), lose)
        self.drag(self.layout.square(6), self.layout.square(12))
        self.assertEqual(self.wait_for_moves(self.before.moves + 1).records[-1].to, 12)

    def test_keys_carry_the_marked_piece_along_its_way(self):
        self.begin(APART, types=PERSON_IS_YELLOW)
        still = self.settled_picture()
        self.display.key("F10", "Tab", "Menu")
        self.assertTrue(self.settled_picture().same_as(still), "manual mode is over")
        self.display.key("Menu", "Tab")
        marked = self.settled_picture()
        self.display.key("Return", "Next", "Escape")
        self.assertTrue(self.settled_picture().same_as(marked), "the piece is back and the board is seen")
        self.display.key("Return", "Next")
        self.wait_until(lambda: not self.look_same(marked, self.display.picture(), 16), "the piece above its square")
        self.display.key("Home", "Next", "Next", "space")
        self.assertEqual(self.wait_for_moves(self.before.moves + 1).records[-1].to, 25)


class EarlyInput(BoardTest):
    def test_a_click_during_a_walk_is_not_lost(self):
        self.begin(APART, speed=50)
        longest_pause = 0.5
        self.settle(longest_pause)
        still = self.settled_picture()
        self.click_board()
        self.wait_until(lambda: not self.display.picture().same_as(still), "the throw")
        with self.held():
            self.click_board()
            self.assertEqual(self.game().moves, self.before.moves, "the first walk was over already")
        self.wait_for_moves(self.before.moves + 2)
        self.settle(longest_pause)
        self.assertEqual(self.game().moves, self.before.moves + 2, "a third throw without a click")

    def test_a_click_begins_and_ends_on_the_board(self):
        self.begin(APART)
        x, y, width, height = self.layout.log
        log, house = (x + width // 2, y + height // 2), self.layout.house(3)
        panel = [sum(each) / 2 for each in zip(self.layout.button("help"), self.layout.button("new game"))]

        def press_and_release(start, end):
            self.point_at(start)
            self.display.act("mousedown 1")
            self.point_at(end)
            self.settle()  # or the screen may report the release where the button was pressed
            self.display.act("mouseup 1")

        for places in ((house, log), (log, house), (house, self.layout.recorder_key("back"))):
            self.assert_nothing_happens(lambda: press_and_release(*places), places)
        self.point_at(house)
        self.display.act("mousedown 1", "key F2")
        self.wait_for_message(ABANDON_TITLE)
        self.display.act("mouseup 1")
        self.answer(ABANDON_TITLE, "no")
        self.wait_for_board()
        for control in (self.layout.button("advice"), self.layout.recorder_key("back"), log, panel):
            self.assert_nothing_happens(lambda: self.click(control), control)

    def test_input_before_a_message_does_not_answer_it(self):
        self.begin(APART, speed=0)
        with self.held():
            self.display.key("F2", "space", "Return")
        window = self.wait_for_message(ABANDON_TITLE)
        self.settle()
        self.assertEqual(self.title(), ABANDON_TITLE, "answered by an earlier key")
        self.answer(ABANDON_TITLE, "no")
        with self.held():
            self.click_button("new game")
            self.display.click(*message_button(window, "yes"))
        self.wait_for_message(ABANDON_TITLE)
        self.settle()
        self.assertEqual(self.title(), ABANDON_TITLE, "answered by an earlier click")

    def test_a_held_key_throws_once(self):
        self.begin(APART)
        self.display.act("keydown space")
        self.wait_for_moves(self.before.moves + 1)
        time.sleep(1)  # the screen repeats a key that is held for 0.66 seconds
        self.display.act("keyup space")
        self.settle()
        self.assertEqual(self.game().moves, self.before.moves + 1, "a key that repeats itself")
