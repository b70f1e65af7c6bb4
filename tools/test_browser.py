#!/usr/bin/python3
"""Plays the game in a real web browser, as a player does on whose machine ./play finds no screen.

    tools/test_browser.py PROGRAM     # PROGRAM is the built zorva32, with its manual beside it

Needs what ./play installs for the browser, and chromium, chromium-driver and python3-selenium. Takes about
a minute. If it fails it leaves a screenshot, browser.png, in the current folder.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time
import urllib.request
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

ROOT = Path(__file__).resolve().parent.parent
PATIENCE = 60

# On this screen a pixel of the layout is a pixel of the screen. In each house lies a place without a piece.
SCREEN = (1024, 768)
YELLOW, BLUE, RED, GREEN = (714, 714), (714, 252), (252, 252), (252, 714)
NEW_GAME = (896, 75)
# The button that brings the hidden window back stands a little below the middle.
SHOW_AGAIN = (512, 414)

# The mean colour of a part of the screen, as the page shows it.
MEAN = """
const canvas = document.querySelector('#noVNC_container canvas');
if (!canvas) return [0, 0, 0];
const [x, y, w, h] = arguments;
const data = canvas.getContext('2d').getImageData(x, y, w, h).data;
let sum = [0, 0, 0];
for (let i = 0; i < data.length; i += 4) for (let c = 0; c < 3; ++c) sum[c] += data[i + c];
return sum.map(s => s * 4 / data.length);
"""


def await_true(condition, what):
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(what + ": not within %d seconds" % PATIENCE)
        time.sleep(0.3)


class Page:
    """The game's page in a browser, at points of the screen."""

    def __init__(self, address, password):
        options = webdriver.ChromeOptions()
        for word in ("--headless=new", "--no-sandbox", "--disable-gpu", "--window-size=1400,1000"):
            options.add_argument(word)
        options.binary_location = "/usr/bin/chromium"
        self.browser = webdriver.Chrome(options=options)
        self.browser.get(address)
        assert self.browser.title == "Zorva", self.browser.title
        self.browser.switch_to.frame(0)
        field = self.browser.find_element(By.ID, "noVNC_password_input")
        await_true(field.is_displayed, "the question for the password")
        field.send_keys(password, Keys.ENTER)

    def mean(self, point):
        return self.browser.execute_script(MEAN, point[0] - 3, point[1] - 3, 6, 6)

    def shows_board(self):
        """Whether the houses of the four colours stand where they belong."""
        yellow, blue, red, green = map(self.mean, (YELLOW, BLUE, RED, GREEN))
        return (min(yellow[:2]) > 100 > yellow[2] and blue[2] > 90 > blue[0]
                and red[0] > 70 > red[1] and green[1] > 45 > green[0])

    def click(self, point):
        canvas = self.browser.find_element(By.CSS_SELECTOR, "#noVNC_container canvas")
        share = canvas.rect["width"] / SCREEN[0]
        offset = (round((at - size / 2) * share) for at, size in zip(point, SCREEN))
        ActionChains(self.browser).move_to_element_with_offset(canvas, *offset).click().perform()

    def key(self, key):
        ActionChains(self.browser).send_keys(key).perform()


def play(page, file):
    def moves():
        """The moves of the game in progress: the settings take the first six lines of the file."""
        return file.read_bytes().count(b"\r\n") - 6 if file.exists() else 0

    await_true(lambda: any(page.mean((400, 300))), "a picture")
    page.key(" ")  # the splash window
    await_true(lambda: page.shows_board() and (page.key(" ") or True), "the board")
    print("the board is seen")
    page.click(NEW_GAME)
    await_true(lambda: page.key(" ") or moves() >= 1, "a game")
    before = moves()
    await_true(lambda: page.click(RED) or moves() >= before + 2, "two moves more")
    print("a game is played with clicks")
    page.key(Keys.ESCAPE)
    await_true(lambda: not page.shows_board(), "the hidden window")
    await_true(lambda: page.click(SHOW_AGAIN) or page.shows_board(), "the window again")
    print("the hidden window comes back")


def serve(binary):
    return subprocess.Popen([ROOT / "tools/serve-browser", binary], stdout=subprocess.PIPE, text=True,
                            env=dict(os.environ, ZORVA_SCREEN="%dx%d" % SCREEN))


def check_second_start(binary, told):
    """A second start only says where the game is, and the page stays."""
    second = serve(binary)
    output, _ = second.communicate(timeout=PATIENCE)
    assert second.returncode == 0 and output.splitlines()[1:] == told, output
    with urllib.request.urlopen(told[0].split()[-1]) as page:
        assert b"<title>Zorva</title>" in page.read()
    print("a second start tells the address of the first")


def main(program):
    with tempfile.TemporaryDirectory() as folder:
        binary = shutil.copy2(program, folder)
        server = serve(binary)
        page = None
        try:
            told = [server.stdout.readline().strip() for _ in range(2)]
            check_second_start(binary, told)
            page = Page(*(line.split()[-1] for line in told))
            play(page, Path(folder) / "ZORVA32.INI")
        except Exception:
            if page:
                page.browser.save_screenshot("browser.png")
            raise
        finally:
            if page:
                page.browser.quit()
            server.terminate()
            server.wait(timeout=30)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(sys.argv[1])
