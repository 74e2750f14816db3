#!/usr/bin/env python3
"""Ends the desktop game from outside, in every way, and takes away what it stands on.

ends_test.py [ROUNDS] GLIMRA GLIMRA-PILOT
"""
import os
import random
import shutil
import signal
import socket
import subprocess
import sys
import time
import unittest
from unittest import mock

import store
from desktop import GAME_MENU, GLIMRA, PLAY, SCALE, DesktopTest, Picture, eventually, start_display, xdotool

ROUNDS = int(sys.argv.pop(1)) if sys.argv[1:] and sys.argv[1].isdigit() else 1


class EndsTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.server = start_display(self.addCleanup)

    def play(self, *options, **how):
        """A game with a piece dropped, so that it differs from what was stored at its beginning."""
        game = self.start(*options, **how)
        eventually(lambda: Picture(game.window, SCALE).pixels[0][0] != (0, 0, 0), "the title page is shown")
        self.click(game, PLAY)
        eventually(lambda: (self.folder / "store/registry.reg").exists() and
                   store.field(store.read_block(self.folder / "store"), "requestedState") == store.PLAYING, "it begins")
        xdotool("key", "Up", "sleep", 0.3)
        return game

    def expect_kept(self, game):
        self.assertEqual(game.wait(20), 0)
        self.assertRegex(game.stderr.read(), r"\A(the display is gone.*\n)?\Z")
        block = store.read_block(self.folder / "store")
        self.assertEqual([store.field(block, name) for name in ("requestedState", "state")], [store.PLAYING, store.PAUSED])
        self.assertGreater(store.field(block, "score"), 0)
        (self.folder / "store/registry.reg").unlink()

    def test_requests_do_not_get_into_each_others_way(self):
        game = self.play()
        for _ in range(20 * ROUNDS):  # others ask for the window
            time.sleep(random.uniform(0, 0.02))
            for _ in range(3):
                game.send_signal(signal.SIGURG)
        time.sleep(0.3)
        self.assertIsNone(game.poll(), "none of them ends it")
        for number in range(10 * ROUNDS):
            game = game or self.play()
            time.sleep(random.uniform(0, 0.02))
            for each in (signal.SIGURG, signal.SIGTERM)[::random.choice((1, -1))]:
                game.send_signal(each)
            self.expect_kept(game)
            game = None

    def test_a_game_that_cannot_be_kept_says_so_in_its_title(self):
        game = self.play()
        title = lambda: xdotool("getwindowname", game.window)
        folder = self.folder / "store"
        shutil.rmtree(folder)
        folder.write_text("in the way")
        xdotool("key", "Escape", "sleep", 0.3)
        self.click(game, GAME_MENU)
        eventually(lambda: {"not", "kept:", "store:"} <= set(title()), "a failed save is shown")
        folder.unlink()
        xdotool("key", "Escape", "sleep", 0.3)
        self.click(game, (120, 150))
        xdotool("sleep", 0.3)
        self.click(game, GAME_MENU)
        eventually(lambda: title() == ["Glimra"], "until one has worked")
        self.assertEqual(folder.stat().st_mode & 0o777, 0o700)
        again = subprocess.run([GLIMRA, "--store", "store"], cwd=self.folder, timeout=20)
        self.assertEqual((again.returncode, game.poll()), (0, None), "it is still the only one")
        store.read_block(folder)
        self.assertRegex(game.stderr.readline(), "not kept: store: Not a directory")

    def test_a_sound_system_that_hangs_holds_nothing_up(self):
        address = str(self.folder / "pulse")
        with socket.socket(socket.AF_UNIX) as silent, mock.patch.dict(
                os.environ, PULSE_SERVER=f"unix:{address}", SDL_AUDIODRIVER="pulseaudio"):
            silent.bind(address)
            silent.listen()
            game = self.play()
            silent.settimeout(20)
            with silent.accept()[0]:  # it was asked, and gets no answer
                game.send_signal(signal.SIGTERM)
                self.expect_kept(game)

    def test_a_display_with_ten_bits_a_colour_shows_the_game(self):
        self.server = start_display(self.addCleanup, depth=30)
        self.play().kill()

    def test_it_stands_on_little(self):
        """No picture can be saved, nobody reads what it says, or there are no streams at all."""
        for streams, folder in (([], "gone"), ([2], "gone"), ([0, 1, 2], "kept")):
            there = self.folder / folder
            there.mkdir(exist_ok=True)
            before = lambda: [os.close(number) for number in streams if len(streams) > 1]
            how = {"stderr": None, "stdout": None} if len(streams) > 1 else {}
            game = self.play(str(self.folder / "store"), cwd=there, preexec_fn=before, **how)
            if folder == "gone":
                there.rmdir()
            if streams == [2]:
                game.stderr.close()
            for _ in range(2):
                xdotool("key", "F12", "sleep", 0.2)
            self.assertEqual(len(list(there.glob("Glimra *.png"))), 2 if folder == "kept" else 0)
            game.send_signal(signal.SIGTERM)
            self.assertEqual(game.wait(20), 0)
            if not streams:
                self.assertRegex(game.stderr.read(), r"\A(the picture is not saved: .*Glimra .*: No such file.*\n){2}\Z")
            (self.folder / "store/registry.reg").unlink()


unittest.main()
