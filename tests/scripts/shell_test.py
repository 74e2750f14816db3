#!/usr/bin/env python3
"""Goes through menus, dialogs and message boxes with glimra-pilot: their texts, what they change, what is kept.

shell_test.py GLIMRA-PILOT
"""
import os
import sys
import unittest

import store
from store import OVER, PAUSED, PLAYING, RUNNING, TITLE

PILOT = os.path.abspath(sys.argv.pop(1))
GAME = "menu 40008\nwait 500\n"
ABANDON = 'box "Abandon Game" "Do you want to abandon the current game?"'
PORTRAIT = ('box "Glimra" "This program is designed to run in portrait mode. Tap Ok to switch to portrait mode or '
            'Cancel to close this program."')
RETURN = 'box "Glimra" "Would you like to return to your previous orientation settings?"'
CONFLICT = 'box "Button already assigned" "This button is already assigned Do you want to re-assign this control?"'
DEFAULT_KEYS = [37, 39, 38, 40, 193, 194, 195, 196]
LAST_ROW = ("Nimsa", 500, 10, 1)


class ShellTest(store.FolderTest):
    def play(self, script, *options):
        output, errors = store.play(PILOT, script, *options, folder=self.folder)
        self.assertEqual(errors, "")
        return output

    def ended_game(self, **fields):
        """A store that holds a game at its end."""
        self.play(GAME + "state game\n")
        store.write_block(self.folder / "s", store.changed(self.read("game"), state=OVER, **fields))

    def test_commands(self):
        for script, output, fields in [
                ("menu 40014\n", ["grayed 40014"], {"appState": TITLE}),
                (GAME + "menu 40008\nmenu 40010\n", ["grayed 40008", "grayed 40010"],
                 {"appState": PLAYING, "state": PAUSED}),
                (GAME + "menu 40014\nclick 7\nwait 100\n", [ABANDON], {"appState": PLAYING, "state": PAUSED}),
                (GAME + "menu 40014\nclick 6\n", [ABANDON], {"appState": TITLE, "page": 0}),
                (GAME + "menu 40016\nclick 1\ntap 120 150\n",
                 ['box "Show high scores" "You cannot display the high score table during a game"'],
                 {"appState": PLAYING, "state": RUNNING}),
                ("menu 40016\nwait 9900\n", [], {"page": 1}),
                ("menu 40016\nwait 100\ntap 180 150\n", [], {"page": 0, "mode": 0}),
                ("open 0\ndismiss\nwait 30000\n", [], {"page": 0}),
                (GAME + "away\nback\nwait 1000\n", [], {"state": PAUSED, "y": -2}),
                (GAME + "menu 40017\npress 27\ndone\nhelp\n", ["exec peghelp.exe file:glimra.htm#Main_Contents"],
                 {"state": PAUSED})]:
            with self.subTest(script):
                self.assertEqual(self.play(script + "state s\n"), output)
                block = self.read("s")
                self.assertEqual({name: store.field(block, name) for name in fields}, fields)

    def test_buttons(self):
        for script, output, changes in [
                ("click 1100\npress 91\npress 131\npress 65\n", [], {0: 65}),
                ("click 1104\npress 13\nclick 1103\npress 200\n", [], {4: 13, 3: 200}),
                ("click 1105\npress 37\nclick 6\n", [CONFLICT], {5: 37, 0: 0}),
                ("click 1105\npress 37\nclick 7\n", [CONFLICT], {}),
                ("click 1100\npress 37\n", [], {}),
                ("click 1100\naway\nback\npress 66\n", [], {}),
                ("click 1107\npress 65\nclick 1011\n", [], {})]:
            with self.subTest(script):
                lines = self.play("menu 40009\n" + script + "state s\ntree\ndone\n")
                self.assertEqual([line for line in lines if line.startswith("box")], output)
                self.assertFalse(any("Please press" in line for line in lines), "that page is gone")
                expected = [changes.get(action, key) for action, key in enumerate(DEFAULT_KEYS)]
                self.assertEqual(store.keys(self.read("s")), expected)
        names = ["<A>", "<Right>", "< >", "<p>", "<Select>", "<Key 200>", "(not assigned)", "<Button C>"]
        tree = self.play("menu 40009\nclick 1100\npress 65\nclick 1102\npress 32\nclick 1103\npress 112\nclick 1104\n"
                         "press 13\nclick 1105\npress 200\nclick 1107\npress 195\nclick 6\ntree\n")
        self.assertEqual([line.split('"')[1] for line in tree if "id=111" in line], names)

    def test_options(self):
        for index, length in enumerate((0, 1, 6)):
            self.play(f"menu 40010\nselect 1006 {index}\nselect 1003 0\ndone\nkill\n", "--store", "s")
            block = store.read_block(self.folder / "s")
            self.assertEqual((store.field(block, "queueLength"), *block[652:655]), (length, 1, 0, 1))

    def test_names(self):
        for script, fields, table, row in [
                ("type abc defghijklmno\nclick 1\n", {"score": 501, "lines": 57, "level": 4}, 0,
                 ("Abc defghij", 501, 57, 4)),
                ("type zoë\npress 13\n", {"score": 501, "lines": 12, "mode": 1}, 1, ("Zoë", 501, 28, 0)),
                ("click 1\n", {"score": 501}, 0, LAST_ROW),
                ("type zed\npress 27\n", {"score": 501}, 0, LAST_ROW),
                ("", {"score": 500}, 0, LAST_ROW)]:
            with self.subTest(script):
                self.ended_game(**fields)
                self.play(script + "state s2\nkill\n", "--store", "s")
                block = store.read_block(self.folder / "s")
                self.assertEqual(store.scores(block, table)[7], row)
                self.assertEqual(store.field(self.read("s2"), "appState"), TITLE)

    def test_what_is_behind_a_dialog_stands_still(self):
        """While a tick's dialog is open there is no tick; the window behind draws nothing over a menu or a box."""
        self.ended_game(score=900)
        self.play("trace t\nwait 5000\nkey 13 down\ntrace off\n", "--store", "s")
        self.assertEqual(self.read("t"), b"")
        for opened in ("open 0\n", "open 1\n", "menu 40014\n", "menu 40017\n"):
            self.play(f"{GAME}{opened}wait 25\nshot a.png\nwait 12000\nshot b.png\n")
            self.assertEqual(self.read("a.png"), self.read("b.png"), opened)

    def test_orientation(self):
        for options, script, output in [
                (["--landscape"], "click 2\n", [PORTRAIT, "exit 0"]),
                (["--landscape"], "click 1\nminimize\nclick 6\nrestore\nclick 1\nminimize\nclick 7\nrestore\n"
                 "minimize\n", [PORTRAIT, RETURN, PORTRAIT, RETURN]),
                ([], "turn 4\naway\nback\nclick 2\n", [PORTRAIT, "exit 0"]),
                ([], "turn 1\naway\nback\nclick 1\nminimize\n", [PORTRAIT, RETURN]),
                ([], "minimize\nrestore\n", [])]:
            with self.subTest(script):
                self.assertEqual(self.play(script, *options), output)


unittest.main()
