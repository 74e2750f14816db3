"""The desktop game in its window, on a display in memory: for tests that play it with a real keyboard and mouse.

The last words of their command line are GLIMRA GLIMRA-PILOT.
"""
import os
import subprocess
import sys
import time

import store

PILOT, GLIMRA = os.path.abspath(sys.argv.pop()), os.path.abspath(sys.argv.pop())
SCALE = 3
WIDTH, HEIGHT = 240, 320
# Screen pixels, left, top, right, bottom: the page begins below the title bar.
WELL, QUEUE, HOLD = (22, 37, 132, 257), (168, 36, 214, 186), (168, 209, 197, 240)
PLAY, GAME_MENU = (120, 241), (25, 307)
# The colours on the diagonal of each piece's cells.
PIECES = {(74, 85, 222), (198, 117, 0), (74, 190, 0), (206, 199, 24), (206, 32, 33), (206, 0, 198), (0, 158, 231)}
CELL = 11


class Picture:
    """The handheld's screen, from a PNG file or, enlarged, from a window."""

    def __init__(self, source, scale):
        command = ["import", "-window", source] if scale > 1 else ["convert", source]
        raw = subprocess.run([*command, "-depth", "8", "rgb:-"], check=True, capture_output=True).stdout
        row = WIDTH * scale * 3
        assert len(raw) == row * HEIGHT * scale, "the window has the size of the screen, enlarged"
        self.pixels = [[tuple(raw[at:at + 3]) for at in range(y * scale * row, (y * scale + 1) * row, scale * 3)]
                       for y in range(HEIGHT)]

    def pieces(self, area):
        left, top, right, bottom = area
        return [(x, y) for y in range(top, bottom) for x in range(left, right) if self.pixels[y][x] in PIECES]


def eventually(condition, message, seconds=20):
    deadline = time.monotonic() + seconds
    while not (result := condition()):
        assert time.monotonic() < deadline, message
        time.sleep(0.05)
    return result


def xdotool(*words):
    return subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, text=True,
                          timeout=20).stdout.split()


def focus_window(game):
    search = ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(game.pid), "--name", "^Glimra$"]
    game.window, = eventually(lambda: subprocess.run(search, capture_output=True, text=True).stdout.split(),
                              "a window opens")
    xdotool("windowfocus", "--sync", game.window)


def start_display(add_cleanup, depth=24):
    """A display's server, for all that is started from now on."""
    reader, writer = os.pipe()
    # Without -noreset the server restarts when its last client leaves, and refuses others meanwhile.
    options = ["-noreset", "-screen", "0", f"1280x1024x{depth}", "-nolisten", "tcp"]
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), *options], pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    os.environ["DISPLAY"] = ":" + os.read(reader, 20).decode().strip()
    os.environ["ASAN_OPTIONS"] = "detect_leaks=0"  # the display's libraries leak at their end
    os.environ["SDL_MOUSE_FOCUS_CLICKTHROUGH"] = "1"  # SDL drops a click that comes with the focus
    add_cleanup(server.wait)
    add_cleanup(server.terminate)
    return server


class DesktopTest(store.FolderTest):
    """Plays on a display in memory."""

    @classmethod
    def setUpClass(cls):
        start_display(cls.addClassCleanup)

    def start(self, store="store", *options, scale=("--scale", str(SCALE)), **how):
        home = {"HOME": str(self.folder), "PATH": f"{self.folder}:{os.environ['PATH']}"}
        game = subprocess.Popen([GLIMRA, "--store", store, *scale, *options], text=True,
                                **{"cwd": self.folder, "stderr": subprocess.PIPE, "env": {**os.environ, **home}, **how})
        self.addCleanup(game.stderr.close if game.stderr else int)
        self.addCleanup(game.wait)
        self.addCleanup(game.kill)
        focus_window(game)
        return game

    def click(self, game, point):
        xdotool("mousemove", "--window", game.window, *(SCALE * c + 1 for c in point), "click", 1)

    def expect(self, game, script, *options):
        """The window comes to show, pixel for pixel, what the pilot shows after a script."""
        store.play(PILOT, script + "shot expected.png\n", *options, folder=self.folder)
        expected = Picture(self.folder / "expected.png", 1).pixels
        eventually(lambda: Picture(game.window, SCALE).pixels == expected, f"the window shows what follows {script}")

    def begin_game(self, game):
        self.expect(game, "")
        self.click(game, PLAY)
        eventually(lambda: Picture(game.window, SCALE).pieces(QUEUE), "a game begins")
