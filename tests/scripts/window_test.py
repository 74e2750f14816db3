#!/usr/bin/env python3
"""Plays the desktop game in its window, on a display in memory, with a real keyboard's and mouse's events.

window_test.py GLIMRA GLIMRA-PILOT
"""
import ctypes
import os
import pathlib
import random
import signal
import subprocess
import time
import unittest

import store
from desktop import (CELL, GAME_MENU, GLIMRA, HEIGHT, HOLD, OK_BUTTON, PILOT, PLAY, QUEUE, SCALE, TOOLS_MENU, VALUES, WELL,
                     WIDTH, DesktopTest, Picture, eventually, xdotool)


class WindowTest(DesktopTest):
    def test_a_game_is_played(self):
        game = self.start()
        self.begin_game(game)
        xdotool("keydown", "Left")
        time.sleep(1.2)
        xdotool("keyup", "Left")
        time.sleep(0.2)
        picture = Picture(game.window, SCALE)
        row = WIDTH * SCALE * 3
        for y in range(HEIGHT * SCALE):  # every pixel is a square
            line = picture.large[y * row:][:row]
            self.assertEqual(line, b"".join(bytes(c) * SCALE for c in picture.pixels[y // SCALE]))

        piece = picture.pieces((*WELL[:3], WELL[1] + 8 * CELL))
        self.assertGreaterEqual(len(piece), 2 * CELL, "a piece is falling")
        self.assertEqual(min(x for x, _ in piece) // CELL, WELL[0] // CELL, "it was moved to the wall")
        bottom = (WELL[0], WELL[3] - 4 * CELL, *WELL[2:])
        self.assertLess(len(picture.pieces(bottom)), CELL, "nothing lies at the bottom")
        bright = sum(max(colour) - min(colour) > 100 for _, _, colour in picture.part(*bottom))
        self.assertGreater(bright, 60, "but the ghost's outline")
        rows = sorted({y for _, y in picture.pieces(QUEUE)})
        self.assertEqual(len(picture.pieces(QUEUE)), 6 * 4 * CELL, "six pieces of four cells come next")
        self.assertEqual(sum(b - a > 1 for a, b in zip(rows, rows[1:])), 5, "one below the other")
        self.assertEqual(picture.pieces(HOLD), [])
        for value in VALUES:
            white = sum(colour == (255, 255, 255) for _, _, colour in picture.part(*value))
            self.assertGreater(white, 10, f"a value stands in {value}")

        xdotool("key", "c")
        eventually(lambda: len(Picture(game.window, SCALE).pieces(HOLD)) > CELL, "C holds the piece")
        xdotool("key", "Escape")
        eventually(lambda: not Picture(game.window, SCALE).pieces(QUEUE), "Esc pauses, which hides the pieces")
        xdotool("key", "F12")
        eventually(lambda: list(self.folder.glob("Glimra *.png")), "F12 saves a screenshot")
        xdotool("key", "ctrl+q")
        self.assertEqual(game.wait(20), 0)
        self.assertIn('"app"=hex:03,', (self.folder / "store/registry.reg").read_text())

    def test_a_name_is_typed_and_listed(self):
        store.play(PILOT, "menu IDM_NEW_GAME\nwait 100\nstate game\n", folder=self.folder)
        lost = store.changed((self.folder / "game").read_bytes(), state=store.OVER, score=900)
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

    def test_a_key_is_given_to_an_action(self):
        script = "menu IDM_NEW_GAME\nwait 400\nmenu IDM_BUTTONS\n"
        store.play(PILOT, "menu IDM_NEW_GAME\nwait 400\nclose\n", "--store", "store", folder=self.folder)
        before = store.read_block(self.folder / "store")
        game = self.start()
        for point in (TOOLS_MENU, (110, 256)):
            self.click(game, point)
        self.expect(game, script)
        self.click(game, (50, 216))
        self.expect(game, script + "click IDC_ACTION_0+7\n")
        xdotool("key", "a")
        self.expect(game, script + "click IDC_ACTION_0+7\npress 65\n")
        self.click(game, OK_BUTTON)
        for point in (GAME_MENU, (60, 281)):
            self.click(game, point)
        self.expect(game, "menu IDM_NEW_GAME\nwait 400\nmenu IDM_SHOW_HIGH_SCORES\n")
        xdotool("key", "Escape")
        self.expect(game, "menu IDM_NEW_GAME\nwait 400\nopen 0\ndismiss\n")
        self.click(game, WELL[:2])
        eventually(lambda: Picture(game.window, SCALE).pieces(QUEUE), "the game goes on")
        xdotool("key", "a")
        time.sleep(0.5)
        xdotool("key", "ctrl+q")
        self.assertEqual(game.wait(20), 0)
        after = store.read_block(self.folder / "store")
        self.assertEqual(store.keys(after)[7], ord("A"))
        self.assertNotEqual(store.field(after, "rotation"), store.field(before, "rotation"))

    def test_a_keyboard_is_a_stylus(self):
        game = self.start("store", "--record", "record")
        self.expect(game, "")
        xdotool("keydown", "Menu", "key", *["Left"] * 4, "key", *["Down"] * 8)
        dark_before_light = lambda p: (p[167][115], p[168][116]) == ((0, 0, 0), (255, 255, 255))
        eventually(lambda: dark_before_light(Picture(game.window, SCALE).pixels), "a pen's tip is at the pixel")
        xdotool("key", "space", "keyup", "Menu")
        self.expect(game, "tap 116 168\n")
        xdotool("key", "ctrl+q")
        self.assertEqual(game.wait(20), 0)
        written = [line for line in (self.folder / "record").read_text().splitlines() if line[0] in "ks"]
        self.assertEqual(written[:3], ["stylus down 116 168", "stylus up 116 168", "key 195 down ctrl"], "no arrow")

    def test_a_recorded_game_can_be_played_again(self):
        for record in ("one", "two"):  # the second begins with the store that the first left
            dice = random.Random(record)
            game = self.start("store", "--record", record)
            if record == "one":
                self.begin_game(game)
            else:
                self.click(game, (120, 150))  # the game goes on
            for i in range(50):
                if i % 20 == 10:  # a menu, closed by Esc, leaves the game paused
                    self.click(game, GAME_MENU)
                    xdotool("key", "Escape", "sleep", 0.2, "key", "Escape")
                key = dice.choice(["Left", "Right", "Up", "Down", "z", "x", "c"])
                xdotool("keydown", key, "sleep", dice.choice([0.01, 0.03, 0.2]), "keyup", key, "sleep", 0.05)
            xdotool("key", "Escape")
            time.sleep(0.5)
            shown = Picture(game.window, SCALE).pixels
            xdotool("key", "ctrl+q")
            self.assertEqual(game.wait(20), 0)

            check = subprocess.run([PILOT, "--check", record], cwd=self.folder, capture_output=True, text=True)
            self.assertEqual((check.returncode, check.stdout.splitlines()[1:]), (0, ["holds"]), "one game")
            script = self.folder / record
            before, control = script.read_text().rsplit("key 195 down", 1)
            script.write_text(f"{before}shot again.png\nkey 195 down{control}")
            subprocess.run([PILOT, "--store", "again", record], check=True, cwd=self.folder)
            self.assertTrue(Picture(self.folder / "again.png", 1).pixels == shown)
            saved, again = ((self.folder / name / "registry.reg").read_bytes() for name in ("store", "again"))
            self.assertEqual(saved, again)

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
            xdotool("key", "ctrl+q")
            self.assertEqual(game.wait(20), 0)

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
