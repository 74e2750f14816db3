#!/usr/bin/env python3
"""Plays the desktop game in its window, on a display in memory, with a real keyboard's and mouse's events.

window_test.py GLIMRA GLIMRA-PILOT
"""
import ctypes
import os
import pathlib
import re
import shutil
import signal
import subprocess
import time
import unittest

import store
from desktop import (CELL, GAME_MENU, GLIMRA, HOLD, PILOT, PLAY, QUEUE, SCALE, WELL, DesktopTest, Picture, eventually,
                     xdotool)


class WindowTest(DesktopTest):
    def quit(self, game):
        xdotool("key", "ctrl+q")
        self.assertEqual(game.wait(20), 0)

    def test_a_game_is_played(self):
        game = self.start()
        self.begin_game(game)
        xdotool("keydown", "Left")
        time.sleep(1.2)
        xdotool("keyup", "Left")
        time.sleep(0.2)
        picture = Picture(game.window, SCALE)
        piece = picture.pieces((*WELL[:3], WELL[1] + 8 * CELL))
        self.assertGreaterEqual(len(piece), 2 * CELL, "a piece is falling")
        self.assertEqual(min(x for x, _ in piece) // CELL, WELL[0] // CELL, "it was moved to the wall")
        self.assertEqual(picture.pieces(HOLD), [])
        xdotool("key", "c")
        eventually(lambda: len(Picture(game.window, SCALE).pieces(HOLD)) > CELL, "C holds the piece")
        xdotool("key", "Escape")
        eventually(lambda: not Picture(game.window, SCALE).pieces(QUEUE), "Esc pauses, which hides the pieces")
        xdotool("key", "F12")
        eventually(lambda: list(self.folder.glob("Glimra *.png")), "F12 saves a screenshot")
        self.quit(game)
        self.assertIn('"app"=hex:03,', (self.folder / "store/registry.reg").read_text())

    def test_a_name_is_typed_and_listed(self):
        store.play(PILOT, "menu IDM_NEW_GAME\nwait 100\nstate game\n", folder=self.folder)
        lost = store.changed(self.read("game"), state=store.OVER, score=900)
        for folder in ("store", "copy"):
            store.write_block(self.folder / folder, lost)
        game = self.start()
        self.expect(game, "", "--store", "copy")
        xdotool("type", "--delay", 40, "pax Zoe")
        xdotool("key", "Return")
        for point in (GAME_MENU, (60, 281)):
            self.click(game, point)
        self.expect(game, "type pax Zoe\nclick IDOK\nmenu IDM_SHOW_HIGH_SCORES\n", "--store", "copy")
        self.assertEqual(store.scores(store.read_block(self.folder / "store"), 0)[7], ("Pax Zoe", 900, 0, 0))
        self.click(game, (120, 100))  # leaves the page of the high scores
        self.click(game, PLAY)
        time.sleep(0.5)
        self.assertTrue(Picture(game.window, SCALE).pieces(QUEUE), "the p has not paused the game")

    def test_a_keyboard_is_a_stylus(self):
        game = self.start("store", "--record", "record")
        self.expect(game, "")
        xdotool("keydown", "Menu", "key", *["Left"] * 4, "key", *["Down"] * 8)
        dark_before_light = lambda p: (p[167][115], p[168][116]) == ((0, 0, 0), (255, 255, 255))
        eventually(lambda: dark_before_light(Picture(game.window, SCALE).pixels), "a pen's tip is at the pixel")
        xdotool("key", "space", "keyup", "Menu")
        self.expect(game, "tap 116 168\n")
        self.quit(game)
        written = [line for line in (self.folder / "record").read_text().splitlines() if line[0] in "ks"]
        self.assertEqual(written[:3], ["stylus down 116 168", "stylus up 116 168", "key 195 down ctrl"], "no arrow")

    def test_the_second_start_brings_the_first_window_back(self):
        first = self.start()
        self.begin_game(first)
        other = self.start("another store")
        self.addCleanup(xdotool, "mousemove", 0, 0)
        above = lambda: xdotool("mousemove", 640, 500, "getmouselocation", "--shell")[3].removeprefix("WINDOW=")
        self.assertEqual(above(), other.window, "both are in the middle of the display")
        again = subprocess.run([GLIMRA, "--store", "store"], cwd=self.folder, timeout=20)
        self.assertEqual(again.returncode, 0)
        eventually(lambda: above() == first.window, "the first window is on top again")
        self.assertEqual((first.poll(), other.poll()), (None, None))
        first.kill()
        first.wait()
        self.start()  # a lock ends with its holder

    def test_help_opens_in_the_browser(self):
        browser = self.folder / "xdg-open"
        browser.write_text('#!/bin/sh\necho "$1" > "$HOME/address"\n')
        browser.chmod(0o755)
        game = self.start()
        self.expect(game, "")
        xdotool("key", "F1")
        address = self.folder / "address"
        page, anchor = eventually(lambda: address.exists() and address.read_text(), "F1 opens the help").split("#")
        self.assertEqual(anchor, "Main_Contents\n")
        self.assertIn('id="Main_Contents"', pathlib.Path(page.removeprefix("file://")).read_text())

    def test_the_window_comes_back_where_it_was(self):
        for scale in (("--scale", "1"), ()):
            game = self.start(scale=scale)
            if scale:
                xdotool("windowsize", "--sync", game.window, 500, 700, "windowmove", "--sync", game.window, 30, 40)
            place = eventually(lambda: "30,40" in (now := xdotool("getwindowgeometry", game.window)) and now, "moved")
            self.assertIn("500x700", place)
            self.quit(game)

    def test_the_screen_stays_on_while_a_game_runs(self):
        saver, server = ctypes.CDLL("libXss.so.1"), ctypes.CDLL("libX11.so.6")
        server.XOpenDisplay.restype = saver.XScreenSaverAllocInfo.restype = ctypes.c_void_p
        display, info = (ctypes.c_void_p(each) for each in (server.XOpenDisplay(None), saver.XScreenSaverAllocInfo()))
        root = ctypes.c_ulong(server.XDefaultRootWindow(display))

        def goes_dark():
            time.sleep(2.5)
            saver.XScreenSaverQueryInfo(display, root, info)
            return ctypes.cast(ctypes.c_void_p(info.value + ctypes.sizeof(root)), ctypes.POINTER(ctypes.c_int))[0] == 1

        server.XSetScreenSaver(display, 1, 0, 1, 1)
        server.XFlush(display)
        self.addCleanup(server.XSetScreenSaver, display, 0, 0, 1, 1)
        game = self.start()
        self.assertTrue(goes_dark(), "on the title page")
        self.begin_game(game)
        self.assertFalse(goes_dark(), "in a game")

    @unittest.skipUnless(shutil.which("sway"), "no sway")
    def test_it_is_sharp_at_every_scale_of_wayland(self):
        run = self.folder / "run"
        run.mkdir()
        (run / "config").write_text("output HEADLESS-1 resolution 2560x2048\nfor_window [title=.*] floating enable\n")
        user = []
        if os.getuid() == 0:  # whom sway does not serve
            self.folder.chmod(0o755)
            os.chown(run, 65534, 65534)
            user = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
        here = {**os.environ, "XDG_RUNTIME_DIR": str(run), "WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman"}
        desktop = subprocess.Popen([*user, "sway", "-c", run / "config"], env=here, stderr=subprocess.DEVNULL)
        self.addCleanup(desktop.wait)
        self.addCleanup(desktop.terminate)
        socket, = eventually(lambda: list(run.glob("sway-ipc*")), "a desktop on Wayland")
        there = {**here, "WAYLAND_DISPLAY": "wayland-1", "SDL_VIDEODRIVER": "wayland", "WAYLAND_DEBUG": "1"}
        for scale in 1, 1.25, 1.5, 2:
            subprocess.run(["swaymsg", "-s", socket, "output", "*", "scale", str(scale)], check=True,
                           stdout=subprocess.DEVNULL)
            with subprocess.Popen([GLIMRA, "--store", self.folder, "--scale", "2"], env=there, text=True,
                                  stderr=subprocess.PIPE) as game:
                buffers = (re.search(r"create_buffer\([^,]+, 0, (\d+), (\d+),", line) for line in game.stderr)
                size = next(filter(None, buffers))
                game.kill()
            self.assertEqual([int(each) for each in size.groups()], [480 * scale, 640 * scale])

    def test_it_sleeps_while_nothing_happens(self):
        game = self.start()
        time.sleep(1.5)
        status = pathlib.Path(f"/proc/{game.pid}/task")
        wakes = lambda: sum(int(line.split()[1]) for s in status.glob("*/status") for line in s.read_text().splitlines()
                            if line.startswith("voluntary"))
        before = wakes()
        time.sleep(2)
        self.assertLess(wakes() - before, 40, "the title page looks at its clock twice a second")
        game.send_signal(signal.SIGTERM)
        self.assertEqual(game.wait(20), 0, "a request to end is the window's close button")

    def test_it_says_what_it_cannot_do(self):
        for options, status in ((["--bogus"], 2), (["--scale", "0"], 2), (["--store"], 2), (["--store", GLIMRA], 1),
                                (["--store", self.folder, "--record", GLIMRA], 1)):
            result = subprocess.run([GLIMRA, *options], capture_output=True, text=True)
            self.assertEqual(result.returncode, status)
            self.assertRegex(result.stderr, r"\Aglimra: .+\n\Z")
        bare = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        result = subprocess.run([GLIMRA, "--store", self.folder], capture_output=True, text=True, env=bare, timeout=20)
        self.assertEqual((result.returncode, result.stderr.count("\n")), (1, 1), result.stderr)


unittest.main()
