#!/usr/bin/env python3
"""Ends the game in every way, starts it again, and damages its store.

store_test.py GLIMRA-PILOT
"""
import os
import sys
import unittest

import store
from store import ENDING, OVER, PAUSED, PLAYING, RUNNING, TITLE

PILOT = os.path.abspath(sys.argv.pop(1))
GAME = "menu IDM_NEW_GAME\nwait 1500\npress 37\nwait 60\npress 38\nwait 700\npress 194\nwait 300\n"
WELL_AND_PIECE, RESULTS = slice(36, 576), slice(604, 656)


class StoreTest(store.FolderTest):
    def setUp(self):
        super().setUp()
        self.store = self.folder / "s"

    def play(self, script, *options):
        return store.play(PILOT, script, "--store", "s", *options, folder=self.folder)

    def game(self, **fields):
        self.play(GAME + "state state\nkill\n")
        return store.changed(self.read("state"), requestedState=PLAYING, **fields)

    def test_a_game_comes_back(self):
        for end, state in [("chord 81", PAUSED), ("close", PAUSED), ("away\nkill", PAUSED), ("hibernate", RUNNING),
                           ("open 0\nclose", PAUSED), ("menu IDM_ABANDON_GAME\nclose", PAUSED),
                           ("menu IDM_ABOUT\nhibernate", PAUSED)]:
            with self.subTest(end):
                store.write_block(self.store, self.game(state=PAUSED))
                self.play(f"tap 120 150\nwait 100\nstate before\n{end}\n")
                stored = store.read_block(self.store)
                self.assertEqual([store.field(stored, name) for name in ("requestedState", "state")], [PLAYING, state])
                output, _ = self.play("state after\nshot 1.png\nmenu IDM_NEW_GAME\nmenu IDM_GAME_OPTIONS\n"
                                      "menu IDM_ABANDON_GAME\nclick IDNO\nwait 100\nshot 2.png\n"
                                      "tap 120 150\nwait 50\nstate resumed\n")
                self.assertEqual(output[:2], store.expand("grayed IDM_NEW_GAME\ngrayed IDM_GAME_OPTIONS").splitlines())
                for part in (WELL_AND_PIECE, RESULTS):
                    self.assertEqual(self.read("before")[part], self.read("after")[part])
                self.assertEqual(store.field(self.read("after"), "state"), PAUSED)
                self.assertEqual(store.field(self.read("resumed"), "state"), RUNNING)
                self.assertEqual(self.read("1.png"), self.read("2.png"), "it was drawn at once")

    def test_an_ending_game_ends(self):
        """At its deadline: at once, later, or after 3 seconds when the stored deadline is further ahead."""
        ready = self.game(state=ENDING, score=900)
        for deadline, asked in [(8000, [1, 1, 1]), (10000, [0, 1, 1]), (2_000_000_000, [0, 0, 1])]:
            store.write_block(self.store, store.changed(ready, deadline=deadline))
            output, _ = self.play("tree\necho\nwait 1500\ntree\necho\nwait 1600\ntree\naway\nback\ntype eve\nclose\n",
                                  "--clock", "9000")
            parts = "\n".join(output).split("\n\n")
            self.assertEqual([int("New High Score" in part) for part in parts], asked)
            self.assertEqual(store.field(store.read_block(self.store), "state"), OVER)
            self.play("type eve\nclick IDOK\nclose\n")  # asked again
            block = store.read_block(self.store)
            self.assertEqual(store.scores(block, 0)[7], ("Eve", 900, 0, 0))
            self.assertEqual(store.field(block, "requestedState"), TITLE)

    def test_what_cannot_be_used_is_named_and_kept(self):
        self.play("state fresh\nclose\n")
        good, fresh = self.game(), self.read("fresh")
        file = self.store / "registry.reg"
        for block, version, reason in [(good, 2, "version is 2"), (good[:-1], 3, "2495 bytes"),
                                       (good + b"0", 3, "2497 bytes"), (b"", 3, "0 bytes"),
                                       (store.changed(good, x=11), 3, "outside of the well")]:
            store.write_block(self.store, block, version, '"app.rejected"=hex:01\n"app.rejected.1"=hex:02\n')
            _, errors = self.play("state state\nclose\n")
            self.assertRegex(errors, rf"\A.*{reason}.*app.rejected.*\n\Z")
            self.assertEqual(self.read("state"), fresh)
            values = store.read(file)[store.KEY]
            self.assertEqual(store.binary(values["app.rejected"]), block)
            self.assertEqual((values["app.rejected.1"], values["app.rejected.2"]), ("hex:02", "hex:01"))
        file.write_text("nonsense")
        _, errors = self.play("close\n")
        self.assertRegex(errors, r"\Aregistry.reg line 1: .*registry.reg.bad\n\Z")
        self.assertEqual((self.store / "registry.reg.bad").read_text(), "nonsense")
        self.assertEqual(store.field(store.read_block(self.store), "requestedState"), TITLE)


unittest.main()
