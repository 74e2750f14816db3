#!/usr/bin/env python3
"""Checks records of real games, as they are and with changes.

record_test.py GLIMRA-PILOT
"""
import os
import random
import subprocess
import sys
import unittest

import store

PILOT = os.path.abspath(sys.argv.pop(1))


class RecordTest(store.FolderTest):
    def check(self, text):
        """Status, the lines that were printed, and the error."""
        (self.folder / "checked").write_bytes(text.encode())
        result = subprocess.run([PILOT, "--check", "checked"], cwd=self.folder, capture_output=True, text=True,
                                timeout=60)
        return result.returncode, result.stdout.splitlines(), result.stderr

    def record(self):
        """A game of one cleared row, which is given up, and one to the end."""
        drop = lambda keys: [line for key in keys for line in (f"press {key}", "wait 25")] + ["press 38", "wait 600"]
        first = [*drop([194, 37, 37, 37]), *drop([]), *drop([39, 39, 39])]
        script = ["menu IDM_NEW_GAME", "wait 700", *first, "menu IDM_ABANDON_GAME", "click IDYES", "menu IDM_NEW_GAME",
                  *(drop([]) * 13), "wait 4000", "close", ""]
        store.play(PILOT, "\n".join(script), "--record", "record", folder=self.folder)
        return (self.folder / "record").read_text()

    def test_a_record_holds_and_says_what_was_played(self):
        status, (given_up, game, holds), _ = self.check(self.record())
        self.assertEqual((status, holds), (0, "holds"))
        self.assertRegex(given_up, r"^Marathon from level 0: \d{3} points, 1 rows, level 0, 0:02, abandoned$")
        self.assertRegex(game, r"^Marathon from level 0: \d{3} points, 0 rows, level 0, 0:0\d$")

    def test_no_changed_line_holds(self):
        text, dice, lines_named = self.record(), random.Random(1), 0
        lines = text.splitlines()
        for _ in range(200):
            changed = lines[:]
            at = dice.randrange(len(lines) - 2)
            place = dice.randrange(len(lines[at]))
            replaced = lines[at][:place] + dice.choice("0123456789 xu#") + lines[at][place + 1:]
            changed[at:at + 1] = dice.choice([[replaced]] * 4 + [[], [lines[at]] * 2, [lines[at], "wait 25"]])
            if changed == lines:
                continue
            status, output, error = self.check("\n".join(changed) + "\n")
            with self.subTest(line=at + 1, old=lines[at], new=changed[at]):
                self.assertIn(status, (1, 2))
                if status == 1:
                    self.assertRegex(output[-1], r"^differs at \d+:\d\d\.\d{3}, line \d+")
                    lines_named += "a line before it was changed" in output[-1]
                else:
                    self.assertRegex(error, r"^pilot: checked: line \d+: |it does not begin|has nothing to compare")
        self.assertGreater(lines_named, 0, "some change leaves the game as it was")

    def test_what_cannot_be_checked_is_said(self):
        self.assertEqual((self.check("# record 1\nshot x.png\n")[0], (self.folder / "x.png").exists()), (2, False))
        cut = self.record().rsplit("# digest", 1)[0]
        self.assertEqual(self.check(cut)[1][-1], "holds", "a session that did not end")


unittest.main()
