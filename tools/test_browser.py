#!/usr/bin/python3
"""Plays the game in a real web browser, as players do when ./play finds no screen.

    tools/test_browser.py PROGRAM     # PROGRAM is the built zorva32, with its manual beside it

Needs what ./play installs for the browser, and chromium, chromium-driver and python3-selenium. Takes about
a minute. If it fails it leaves a screenshot, browser.png, in the current folder.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/window"))

import inifile  # noqa: E402
from layout import Layout  # noqa: E402

SCREEN = (1280, 960)
PATIENCE = 60

# JavaScript: the mean colour of a part of the screen, as the page shows it.
MEAN = """
const canvas = document.querySelector('#noVNC_container canvas');
if (!canvas) return null;
const [x, y, w, h] = arguments;
const data = canvas.getContext('2d').getImageData(x, y, w, h).data;
let sum = [0, 0, 0];
for (let i = 0; i < data.length; i += 4) for (let c = 0; c < 3; ++c) sum[c] += data[i + c];
return sum.map(s => s * 4 / data.length);
"""


def await_true(condition, what):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = condition()
        if answer:
            return answer
        time.sleep(0.3)
    raise AssertionError(what + ": not within %d seconds" % PATIENCE)


class Page:
    """The page with the game in a browser. Points are in layout pixels."""

    def __init__(self, address, password):
        options = webdriver.ChromeOptions()
        for word in ("--headless=new", "--no-sandbox", "--disable-gpu", "--window-size=1400,1000"):
            options.add_argument(word)
        options.binary_location = "/usr/bin/chromium"
        self.browser = webdriver.Chrome(options=options)
        self.layout = Layout(*SCREEN)
        self.browser.get(address)
        field = self.browser.find_element(By.ID, "noVNC_password_input")
        await_true(field.is_displayed, "the question for the password")
        field.send_keys(password, Keys.ENTER)

    def mean(self, point, size=6):
        x, y = self.layout.device(point)
        return self.browser.execute_script(MEAN, x - size // 2, y - size // 2, size, size)

    # True if each house has its colour.
    def shows_board(self):
        seen = [self.mean(self.layout.house(colour)) for colour in (1, 2, 3, 4)]
        if None in seen:
            return False
        yellow, blue, red, green = seen
        return (min(yellow[:2]) > 100 > yellow[2] and blue[2] > 90 > blue[0]
                and red[0] > 70 > red[1] and green[1] > 45 > green[0])

    def click(self, point):
        canvas = self.browser.find_element(By.CSS_SELECTOR, "#noVNC_container canvas")
        x, y = self.layout.device(point)
        share = canvas.rect["width"] / SCREEN[0]
        ActionChains(self.browser).move_to_element_with_offset(
            canvas, round((x - SCREEN[0] / 2) * share), round((y - SCREEN[1] / 2) * share)).click().perform()

    def key(self, key):
        ActionChains(self.browser).send_keys(key).perform()


def game(folder):
    try:
        return inifile.from_bytes((folder / "ZORVA32.INI").read_bytes())[1]
    except FileNotFoundError:
        return None


def play(page, folder):
    await_true(lambda: any(page.mean((400, 300)) or ()), "a picture")
    page.key(" ")  # the title
    await_true(lambda: page.shows_board() and (page.key(" ") or True), "the board")
    print("the board is seen")
    middle = (page.layout.width / 2, page.layout.height / 2)

    def moves():
        now = game(folder)
        return now.moves if now and now.in_progress else 0

    page.click(page.layout.button("new game"))
    await_true(lambda: page.key(" ") or moves() >= 1, "a game")
    before = moves()
    await_true(lambda: page.click(page.layout.house(3)) or moves() >= before + 2, "two moves more")
    print("a game is played with clicks")
    page.key(Keys.ESCAPE)
    await_true(lambda: not page.shows_board(), "the hidden window")
    # The button "Volver" is a little to the lower left of the middle.
    await_true(lambda: page.click((middle[0] - 36, middle[1] + 32)) or page.shows_board(), "the window again")
    print("the hidden window comes back")


def main(program):
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        binary = shutil.copy2(program, folder)
        server = subprocess.Popen([ROOT / "tools/serve-browser", binary], stdout=subprocess.PIPE, text=True,
                                  env=dict(os.environ, ZORVA_SCREEN="%dx%d" % SCREEN))
        page = None
        try:
            address = re.search(r"http://127\.0\.0\.1:\S+", server.stdout.readline()).group()
            password = server.stdout.readline().split()[-1]
            page = Page(address, password)
            play(page, folder)
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
