"""What mouse and keyboard do on the board: throw, pick, advise, shift by hand."""

import time
import unittest

import board
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

    def assert_looks(self, wanted, what):
        self.assertTrue(self.settled_picture().same_as(wanted), what)

    def look_same(self, one, other, point):
        """Whether the same is drawn within a piece's size of a point of the layout."""
        size = self.layout.piece_size
        box = (point[0] - size, point[1] - size, 2 * size, 2 * size)
        return self.part(one, box) == self.part(other, box)

    def assert_nothing_happens(self, acts, what):
        """Does all of it and sees that neither the game nor the picture changes."""
        before, stamp = self.settled_picture(), self.file_stamp()
        for act in acts:
            act()
        self.assert_looks(before, what)
        self.assertEqual(self.file_stamp(), stamp, what)

    def begin_and_throw(self, **settings):
        """Throws for a person, and sees the pieces that can be picked stand out; returns the picture before that."""
        self.begin(TWO_TO_CHOOSE, types=PERSON_IS_YELLOW, **settings)
        before = self.settled_picture()
        self.click_board()
        self.wait_until(lambda: not any(self.look_same(before, self.display.picture(), self.layout.square(place))
                                        for place in (20, 40)), "the movable pieces to stand out")
        return before

    def last_record(self):
        return self.wait_for_moves(self.before.moves + 1).records[self.before.moves]


class Picking(BoardTest):
    def test_only_a_movable_piece_is_picked(self):
        self.begin_and_throw()
        point = self.layout.square(40)
        edge = (point[0] + self.layout.piece_size // 2 + 3, point[1])
        refused = [lambda: self.click(self.layout.slot(76, 1)), lambda: self.click(self.layout.box(BLUE, 1)),
                   lambda: self.click(point, button=3), lambda: self.click(point, button=2),
                   lambda: self.click(edge), self.click_board, lambda: self.display.key("i")]
        self.assert_nothing_happens(refused, "a click on what cannot be picked")
        self.click(point)
        record = self.last_record()
        self.assertEqual((record.mover, record.piece, record.start), (YELLOW, 4, 40))
        self.assertEqual(record.to, 40 + record.count)
        self.assertEqual(record.count, 12 if record.die == 6 else record.die)

    def test_advice_shows_what_a_key_plays(self):
        self.begin(TWO_TO_CHOOSE, types=PERSON_IS_YELLOW)
        self.play_moves(1)  # leaves advice behind that is no longer good
        asks = (lambda: self.display.key("F5"), lambda: self.click_button("advice"))
        self.assert_nothing_happens(asks, "advice before the throw")
        for tutor, ask in ((OFF, asks[0]), (OFF, asks[1]), (ON, self.rest_pointer)):
            self.program.kill()
            before = self.begin_and_throw(tutor=tutor)
            ready = before if tutor == ON else self.settled_picture()
            ask()
            self.wait_until(lambda: not self.display.picture().same_as(ready), "the advice")
            advised = self.settled_picture()
            self.display.key("Return")
            played = self.last_record()
            for square in (played.start, played.to):
                self.assertFalse(self.look_same(ready, advised, self.layout.square(square)), square)

    def test_a_piece_is_marked_by_keys_and_played(self):
        for keys, piece in ((["Tab"], 3), (["Tab", "Tab"], 4), (["Left"], 4), (["Right", "Down", "Up"], 3)):
            self.begin_and_throw()
            self.display.key(*keys, "Return")
            self.assertEqual(self.last_record().piece, piece, keys)
            self.program.kill()


class ShiftingByHand(BoardTest):
    # 17 holds two blue pieces; a green one stands alone on 30, which is not safe.
    POSITIONS = {YELLOW: [76, 76, 76, 20], BLUE: [17, 17, 0, 0], RED: [40, 0, 0, 0], GREEN: [30, 0, 0, 0]}

    def setUp(self):
        super().setUp()
        self.begin(self.POSITIONS, types=PERSON_IS_YELLOW)
        self.moves = self.before.moves
        self.without_banner = self.banner()

    def banner(self):
        """What is seen above the recorder, where a banner tells of the manual mode."""
        x, y = self.layout.recorder_key("on/off")
        return self.part(self.settled_picture(), (x - 50, y - 52, 100, 22))

    def enter_mode(self):
        self.click_board(button=3)
        self.assertNotEqual(self.banner(), self.without_banner, "the banner of the manual mode")

    def drag_piece(self, colour, piece, point):
        self.drag(self.point_of_piece(self.game(), colour, piece), point)

    def assert_shift(self, *wanted):
        self.moves += 1
        record = self.wait_for_moves(self.moves).records[-1]
        self.assertEqual((record.mover, record.following, record.piece, record.start, record.to), wanted)
        self.assertEqual((record.manual, record.die, record.count), (1, 0, 0))
        self.assertEqual(self.game().colour, YELLOW)
        self.assertEqual(self.banner(), self.without_banner, "the banner stayed after the shift")

    def test_pieces_are_shifted(self):
        shifts = ((YELLOW, 4, 20, 33), (BLUE, 3, 0, 22), (BLUE, 3, 22, 12), (RED, 1, 40, 92), (YELLOW, 4, 33, 34),
                  (GREEN, 1, 30, 46), (GREEN, 1, 46, 0))
        for colour, piece, start, to in shifts:
            self.enter_mode()
            self.drag_piece(colour, piece, self.layout.square(to) if to else self.layout.house(colour))
            self.assert_shift(colour, 0 if colour == YELLOW else YELLOW, piece, start, to)
        self.wait_until(lambda: not board.difference(self.display.picture(), self.layout, self.game().positions),
                        "the pieces in their places")

    def test_refused_shifts_change_nothing(self):
        refused = ((YELLOW, 4, self.layout.square(17), "two pieces stand there"),
                   (YELLOW, 4, self.layout.house(BLUE), "another colour's house"),
                   (YELLOW, 4, self.layout.button("help"), "beside the board"),
                   (YELLOW, 4, self.layout.square(20), "where it stands"),
                   (YELLOW, 1, self.layout.square(20), "from the goal"))
        self.enter_mode()
        for colour, piece, to, what in refused:
            self.assert_nothing_happens([lambda: self.drag_piece(colour, piece, to)], what)
        self.drag_piece(YELLOW, 4, self.layout.square(21))
        self.assert_shift(YELLOW, 0, 4, 20, 21)
        # Without manual mode this is a click, which throws.
        self.drag_piece(YELLOW, 4, self.layout.square(22))
        self.display.key("Return")
        self.assertEqual(self.wait_for_moves(self.moves + 1).records[self.moves].manual, 0)

    def test_keys_and_right_clicks_leave_the_mode_first(self):
        ready, stamp = self.settled_picture(), self.file_stamp()
        for leave in (lambda: self.display.key("space"), lambda: self.click_board(button=3)):
            self.enter_mode()
            self.assert_nothing_happens([self.click_board, lambda: self.display.key("ctrl+Home"),
                                         lambda: self.click_recorder("on/off")], "manual mode")
            leave()
            self.assert_looks(ready, "something of the manual mode stayed")
            self.assertEqual(self.file_stamp(), stamp, "leaving manual mode threw the die")
        self.display.key("space")
        self.last_record()


class Queueing(BoardTest):
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


class Keys(BoardTest):
    def test_a_held_key_throws_once(self):
        self.begin(APART)
        self.display.act("keydown space")
        self.wait_for_moves(self.before.moves + 1)
        time.sleep(1)  # the screen repeats a key that is held for 0.66 seconds
        self.display.act("keyup space")
        self.settle()
        self.assertEqual(self.game().moves, self.before.moves + 1, "a key that repeats itself")

    def test_without_a_game_keys_do_no_harm(self):
        self.start(Settings(pause=ON))
        keys = ("Tab", "Left", "ctrl+Home", "ctrl+Left", "ctrl+Up", "ctrl+End", "F5", "Shift_L", "Super_L", "i")
        self.assert_nothing_happens([lambda: self.display.key(*keys)], "without a game")
        before, button = self.settled_picture(), self.layout.button("new game")
        for key in ("space", "Return"):
            self.display.key(key)
            self.wait_until(lambda: not self.look_same(before, self.display.picture(), button), "the glow")
            self.wait_until(lambda: self.look_same(before, self.display.picture(), button), "the glow's end")
        for click in (1, 2, 3):
            self.click(self.layout.square(30), click)
        self.assert_looks(before, "clicks without a game")


if __name__ == "__main__":
    unittest.main()
