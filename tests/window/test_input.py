"""What mouse and keyboard do on the board: throw, pick, advise, shift by hand."""

import time
import unittest

import board
from driver import ABANDON_TITLE, WindowTest
from inifile import COMPUTER, OFF, ON, PERSON, Settings, game_at

YELLOW, BLUE, RED, GREEN = 1, 2, 3, 4
PERSON_IS_YELLOW = (PERSON, COMPUTER, COMPUTER, COMPUTER)

# Yellow has two pieces home and two that can walk, whatever is thrown.
TWO_TO_CHOOSE = {YELLOW: [76, 76, 20, 40], BLUE: [0, 0, 0, 0], RED: [0, 0, 0, 0], GREEN: [0, 0, 0, 0]}


class BoardTest(WindowTest):
    def settled_picture(self):
        """The screen once nothing on it changes any more."""
        self.rest_pointer()
        pictures = [self.display.picture()]

        def is_still():
            time.sleep(0.1)
            pictures.append(self.display.picture())
            return all(self.whole(p) == self.whole(pictures[-1]) for p in pictures[-3:-1])

        self.wait_until(lambda: is_still() and len(pictures) > 3, "a still picture")
        return pictures[-1]

    def whole(self, picture):
        return picture.part(0, 0, picture.width, picture.height)

    def around(self, picture, point):
        """What is drawn at a point of the layout, twice a piece's size around."""
        x, y = self.layout.device(point)
        size = round(2 * self.layout.piece_size * self.layout.unit)
        return picture.part(x - size // 2, y - size // 2, size, size)

    def look_same(self, one, other, point):
        return self.around(one, point) == self.around(other, point)

    def assert_nothing_happens(self, acts, what, seconds=0.4):
        """Does all of it and sees that neither the game nor the picture changes."""
        before, stamp = self.settled_picture(), self.file_stamp()
        for act in acts:
            act()
        self.holds_for(seconds, lambda: self.file_stamp() == stamp, what)
        self.assertEqual(self.whole(self.settled_picture()), self.whole(before), what)

    def throw(self):
        """Throws for a person, and sees the pieces that can be picked stand out."""
        before = self.settled_picture()
        self.click_board()
        places = [self.layout.square(20), self.layout.square(40)]
        self.wait_until(lambda: not any(self.look_same(before, self.display.picture(), place)
                                        for place in places), "the movable pieces to stand out")
        return before


class Picking(BoardTest):
    def setUp(self):
        super().setUp()
        self.before = game_at(TWO_TO_CHOOSE, turn=YELLOW)

    def last_record(self):
        return self.wait_for_moves(self.before.moves + 1).records[self.before.moves]

    def test_only_a_movable_piece_is_picked(self):
        self.start(Settings(types=PERSON_IS_YELLOW, pause=ON), self.before)
        self.throw()
        point = self.layout.square(40)
        edge = (point[0] + self.layout.piece_size // 2 + 3, point[1])
        refused = [lambda: self.click(self.layout.goal(76, 1)),
                   lambda: self.click(self.layout.box(BLUE, 1)),
                   lambda: self.click(point, button=3),
                   lambda: self.click(point, button=2),
                   lambda: self.click(edge),
                   lambda: self.click_board(),
                   lambda: self.display.key("i")]
        self.assert_nothing_happens(refused, "a click on what cannot be picked")
        self.click(point)
        record = self.last_record()
        self.assertEqual((record.mover, record.piece, record.start), (YELLOW, 4, 40))
        self.assertEqual(record.to, 40 + record.count)
        self.assertEqual(record.count, 12 if record.die == 6 else record.die)

    def test_advice_shows_what_a_key_plays(self):
        self.start(Settings(types=PERSON_IS_YELLOW, pause=ON), self.before)
        asks = (lambda: self.display.key("F5"), lambda: self.click_button("advice"))
        self.assert_nothing_happens(asks, "advice before the throw")
        for tutor, ask in ((OFF, asks[0]), (OFF, asks[1]), (ON, self.rest_pointer)):
            self.program.kill()
            self.start(Settings(types=PERSON_IS_YELLOW, pause=ON, tutor=tutor), self.before)
            ready = self.throw()
            if tutor == OFF:
                ready = self.settled_picture()
            ask()
            self.wait_until(lambda: self.whole(self.display.picture()) != self.whole(ready), "the advice")
            advised = self.settled_picture()
            self.display.key("Return")
            played = self.last_record()
            for square in (played.start, played.to):
                self.assertFalse(self.look_same(ready, advised, self.layout.square(square)), square)

    def test_a_piece_is_marked_by_keys_and_played(self):
        for keys, piece in ((["Tab"], 3), (["Tab", "Tab"], 4), (["Left"], 4), (["Right", "Down", "Up"], 3)):
            self.start(Settings(types=PERSON_IS_YELLOW, pause=ON), self.before)
            self.throw()
            self.display.key(*keys, "Return")
            self.assertEqual(self.last_record().piece, piece, keys)
            self.program.kill()


class ShiftingByHand(BoardTest):
    # 17 holds two blue pieces; a green one stands alone on 30, which is not safe.
    POSITIONS = {YELLOW: [76, 76, 76, 20], BLUE: [17, 17, 0, 0], RED: [40, 0, 0, 0], GREEN: [30, 0, 0, 0]}

    def setUp(self):
        super().setUp()
        self.before = game_at(self.POSITIONS, turn=YELLOW)
        self.start(Settings(types=PERSON_IS_YELLOW, pause=ON), self.before)

    def drag_piece(self, colour, piece, point):
        self.drag(self.point_of_piece(self.game(), colour, piece), point)

    def last_shift(self):
        moves = self.moves = getattr(self, "moves", self.before.moves) + 1
        record = self.wait_for_moves(moves).records[-1]
        self.assertEqual((record.manual, record.die, record.count), (1, 0, 0))
        return record.mover, record.following, record.piece, record.start, record.to

    def test_pieces_are_shifted(self):
        shifts = ((YELLOW, 4, 33, 0, 20), (BLUE, 3, 22, YELLOW, 0), (BLUE, 3, 12, YELLOW, 22),
                  (RED, 1, 92, YELLOW, 40), (YELLOW, 4, 30 + 4, 0, 33), (GREEN, 1, 46, YELLOW, 30))
        for colour, piece, to, following, start in shifts:
            self.click_board(button=3)
            self.drag_piece(colour, piece, self.layout.square(to))
            self.assertEqual(self.last_shift(), (colour, following, piece, start, to))
            self.assertEqual(self.game().colour, YELLOW)
        self.click_board(button=3)
        self.drag_piece(GREEN, 1, self.layout.house(GREEN))
        self.assertEqual(self.last_shift(), (GREEN, YELLOW, 1, 46, 0))
        self.wait_until(lambda: not board.difference(self.display.picture(), self.layout,
                                                     self.game().positions), "the pieces in their places")

    def test_refused_shifts_change_nothing(self):
        refused = ((YELLOW, 4, self.layout.square(17), "two pieces stand there"),
                   (YELLOW, 4, self.layout.house(BLUE), "another colour's house"),
                   (YELLOW, 4, self.layout.button("help"), "beside the board"),
                   (YELLOW, 4, self.layout.square(20), "where it stands"),
                   (YELLOW, 1, self.layout.square(20), "from the goal"))
        self.click_board(button=3)
        for colour, piece, to, what in refused:
            self.assert_nothing_happens([lambda: self.drag_piece(colour, piece, to)], what)
        self.drag_piece(YELLOW, 4, self.layout.square(21))
        self.assertEqual(self.last_shift(), (YELLOW, 0, 4, 20, 21))

    def test_keys_and_right_clicks_leave_the_mode_first(self):
        ready = self.settled_picture()
        for leave in (lambda: self.display.key("space"), lambda: self.click_board(button=3)):
            self.click_board(button=3)
            self.wait_until(lambda: self.whole(self.settled_picture()) != self.whole(ready), "manual mode")
            stamp = self.file_stamp()
            self.assert_nothing_happens([lambda: self.click_board(), lambda: self.display.key("ctrl+Home"),
                                         lambda: self.click_recorder("on/off")], "manual mode")
            leave()
            self.wait_until(lambda: self.whole(self.settled_picture()) == self.whole(ready), "its end")
            self.assertEqual(self.file_stamp(), stamp, "leaving manual mode threw the die")
        self.display.key("space")
        self.wait_for_moves(self.before.moves + 1)


class Queueing(BoardTest):
    # One piece for each colour to move, out of reach of all others for two throws, sixes (12) included.
    POSITIONS = {YELLOW: [76, 76, 76, 6], BLUE: [84, 84, 84, 24], RED: [92, 92, 92, 40],
                 GREEN: [100, 100, 100, 57]}

    def test_a_click_during_a_walk_is_not_lost(self):
        before = game_at(self.POSITIONS, turn=YELLOW)
        self.start(Settings(pause=ON, speed=50), before)
        still = self.settled_picture()
        self.click_board()
        self.wait_until(lambda: self.whole(self.display.picture()) != self.whole(still), "the throw")
        self.click_board()
        self.assertEqual(self.game().moves, before.moves, "the first walk was over already")
        self.wait_for_moves(before.moves + 2)
        self.holds_for(0.6, lambda: self.game().moves == before.moves + 2, "a third throw without a click")

    def test_input_before_a_message_does_not_answer_it(self):
        self.start(Settings(pause=ON, speed=0), game_at(self.POSITIONS, turn=YELLOW))
        self.display.key("F2", "space", "Return")
        window = self.wait_for_message(ABANDON_TITLE)
        self.holds_for(0.5, lambda: self.title() == ABANDON_TITLE, "answered by an earlier key")
        yes = (round(window.x + window.width / 2 - 64), window.y + window.height - 38)
        self.answer(ABANDON_TITLE, "no")
        x, y = self.layout.device(self.layout.button("new game"))
        self.display.act("mousemove %d %d" % (x, y), "click 1", "mousemove %d %d" % yes, "click 1")
        self.wait_for_message(ABANDON_TITLE)
        self.holds_for(0.5, lambda: self.title() == ABANDON_TITLE, "answered by an earlier click")


class Keys(BoardTest):
    def test_a_held_key_throws_once(self):
        before = game_at(Queueing.POSITIONS, turn=YELLOW)
        self.start(Settings(pause=ON), before)
        self.display.act("keydown space")
        self.wait_for_moves(before.moves + 1)
        self.holds_for(1.5, lambda: self.game().moves == before.moves + 1, "a key that repeats itself")
        self.display.act("keyup space")

    def test_modifiers_and_machine_keys_do_nothing(self):
        self.start(Settings(pause=ON), game_at(Queueing.POSITIONS, turn=1))
        keys = ("Shift_L", "Alt_L", "Super_L", "Caps_Lock", "Caps_Lock", "ISO_Level3_Shift",
                "XF86AudioRaiseVolume", "i")
        self.assert_nothing_happens([lambda key=key: self.display.key(key) for key in keys], "no key at all")
        self.display.key("F2")
        self.wait_for_message(ABANDON_TITLE)
        self.display.key("alt+F4")
        self.wait_for_board()
        self.assertTrue(self.game().in_progress, "closing the question abandoned the game")

    def test_without_a_game_keys_do_no_harm(self):
        self.start(Settings(pause=ON))
        keys = ("Tab", "Left", "Down", "ctrl+Home", "ctrl+Left", "ctrl+Up", "ctrl+End", "F5", "Prior", "Delete")
        self.assert_nothing_happens([lambda key=key: self.display.key(key) for key in keys], "without a game")
        before = self.settled_picture()
        button = self.layout.button("new game")
        for key in ("space", "Return"):
            self.display.key(key)
            self.wait_until(lambda: not self.look_same(before, self.display.picture(), button), "the glow")
            self.wait_until(lambda: self.look_same(before, self.display.picture(), button), "the glow's end")
        for click in (1, 2, 3):
            self.click(self.layout.square(30), click)
        self.assertEqual(self.whole(self.settled_picture()), self.whole(before))

    def test_escape_and_q_hide_the_window(self):
        self.start(Settings(pause=ON), game_at(Queueing.POSITIONS, turn=YELLOW))
        stamp = self.file_stamp()
        for key in ("Escape", "q", "Q"):
            self.display.key(key)
            self.wait_until(lambda: not self.board_is_active(), "the window to be hidden by " + key)
            self.assertEqual(self.program.spawn().wait(timeout=20), 0, "the second start")
            self.wait_for_board()
        self.assertEqual(self.file_stamp(), stamp)


if __name__ == "__main__":
    unittest.main()
