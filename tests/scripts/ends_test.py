#!/usr/bin/env python3
"""Ends the desktop game from outside, in every way, and takes away what it stands on.

ends_test.py [ROUNDS] GLIMRA GLIMRA-PILOT
"""
import pathlib
import random
import signal
import subprocess
import sys
import time
import unittest

import store
from desktop import GLIMRA, PLAY, SCALE, DesktopTest, Picture, eventually, start_display, xdotool

ROUNDS = int(sys.argv.pop()) if len(sys.argv) > 1 else 1


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

    def test_a_game_is_kept_however_it_ends(self):
        send = lambda number: lambda game: game.send_signal(number)
        for end in [*map(send, (signal.SIGTERM, signal.SIGINT, signal.SIGHUP)),
                    lambda game: xdotool("windowkill", game.window), lambda game: self.server.kill()] * ROUNDS:
            if self.server.poll() is not None:
                self.server = start_display(self.addCleanup)
            game = self.play()
            time.sleep(random.uniform(0, 0.05))
            end(game)
            self.expect_kept(game)

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


unittest.main()
