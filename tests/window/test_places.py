"""Every piece is drawn where the layout has it, on screens of many sizes."""

import unittest

import board
from driver import WindowTest
from inifile import ON, Settings, game_at

# The four kinds of runs, corners, ends of arms, columns, two on a square, three at home, boxes.
POSITIONS = ({1: [6, 8, 68, 72], 2: [77, 17, 16, 0], 3: [34, 34, 91, 92], 4: [93, 12, 12, 1]},
             {1: [76, 76, 76, 0], 2: [9, 25, 22, 22], 3: [42, 42, 26, 46], 4: [51, 51, 59, 60]},
             {1: [5, 5, 52, 67], 2: [84, 84, 84, 29], 3: [39, 46, 85, 33], 4: [100, 100, 99, 43]})


class Places(WindowTest):
    def check_positions(self):
        for positions in POSITIONS:
            self.start(Settings(pause=ON), game_at(positions, turn=1))
            self.wait_until(lambda: not self.difference(positions),
                            "the pieces of %s in their places" % positions, 5)
            self.program.kill()
            self.wait_until(lambda: not self.display.active_window(), "the window's end")

    def difference(self, positions):
        return board.difference(self.display.picture(), self.layout, positions)


def place_test(size):
    class PlacesOfSize(Places):
        screen = size

        def test_pieces(self):
            self.check_positions()

    PlacesOfSize.__name__ = PlacesOfSize.__qualname__ = "On%dx%d" % size
    return PlacesOfSize


def load_tests(loader, tests, pattern):
    sizes = ((640, 480), (800, 600), (1024, 600), (1024, 768), (1280, 720), (1080, 1920), (1920, 1080))
    return unittest.TestSuite(place_test(size)("test_pieces") for size in sizes)


if __name__ == "__main__":
    unittest.main()
