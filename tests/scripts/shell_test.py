#!/usr/bin/env python3
"""Goes through menus, dialogs and message boxes with glimra-pilot: their texts, what they change, what is kept.

shell_test.py GLIMRA-PILOT
"""
import os
import sys
import unittest

import store
from store import expand, OVER, PAUSED, PLAYING, RUNNING, TITLE

PILOT = os.path.abspath(sys.argv.pop(1))
GAME = "menu IDM_NEW_GAME\nwait 500\n"
ABANDON = 'box "Abandon Game" "Do you want to abandon the current game?"'
SCORES = 'box "Show high scores" "You cannot display the high score table during a game"'
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

    def expect(self, script, output, fields):
        """What a script prints, and what the game has in fields of its block after it."""
        with self.subTest(script):
            self.assertEqual(self.play(script + "state state\n"), output)
            block = self.read("state")
            self.assertEqual({name: store.field(block, name) for name in fields}, fields)

    def test_commands(self):
        for case in [
                ("menu IDM_ABANDON_GAME\n", [expand("grayed IDM_ABANDON_GAME")], {"appState": TITLE}),
                (GAME + "menu IDM_NEW_GAME\nmenu IDM_GAME_OPTIONS\n",
                 [expand("grayed IDM_NEW_GAME"), expand("grayed IDM_GAME_OPTIONS")],
                 {"appState": PLAYING, "state": PAUSED}),
                (GAME + "menu IDM_ABANDON_GAME\nclick IDNO\nwait 100\n", [ABANDON],
                 {"appState": PLAYING, "state": PAUSED}),
                (GAME + "menu IDM_ABANDON_GAME\ntap 25 307\nclick IDNO\ntap 120 150\n", [ABANDON], {"state": RUNNING}),
                (GAME + "menu IDM_ABANDON_GAME\nclick IDYES\n", [ABANDON], {"appState": TITLE, "page": 0}),
                (GAME + "menu IDM_SHOW_HIGH_SCORES\nclick IDOK\ntap 120 150\n",
                 [SCORES], {"appState": PLAYING, "state": RUNNING}),
                ("menu IDM_SHOW_HIGH_SCORES\nwait 9900\n", [], {"page": 1}),
                ("menu IDM_SHOW_HIGH_SCORES\nwait 100\ntap 180 150\n", [], {"page": 0, "mode": 0}),
                ("open 0\ndismiss\nwait 30000\n", [], {"page": 0}),
                (GAME + "away\nback\nwait 1000\n", [], {"state": PAUSED, "y": -2}),
                (GAME + "menu IDM_ABOUT\npress 27\ndone\nhelp\n", ["exec peghelp.exe file:glimra.htm#Main_Contents"],
                 {"state": PAUSED})]:
            self.expect(*case)

    def test_menus(self):
        """By keys and by the stylus; Abandon Game is grayed. A last tap on Play shows whether a menu is still open."""
        for script, fields in [
                ("open 0\npress 40\npress 13\n", {"appState": PLAYING}),
                ("open 0\npress 40\npress 40\npress 13\n", {"page": 1}),
                ("open 0\npress 38\npress 13\n", {"page": 1}),
                ("open 0\npress 40\npress 40\npress 40\npress 13\n", {"appState": PLAYING}),
                ("open 0\npress 39\npress 13\nselect IDC_QUEUE 1\ndone\n", {"queueLength": 1}),
                ("open 0\npress 37\npress 37\npress 13\n", {"appState": PLAYING}),
                ("open 0\npress 65\npress 27\ntap 120 241\n", {"appState": PLAYING}),
                ("open 0\ntap 60 256\ntap 120 241\n", {"appState": TITLE}),
                ("open 0\ntap 60 256\ntap 120 241\ntap 120 241\n", {"appState": PLAYING}),
                ("stylus down 25 307\nstylus move 60 283\nstylus up 60 283\n", {"page": 1}),
                ("open 0\ntap 80 307\ntap 80 236\nselect IDC_QUEUE 1\ndone\n", {"queueLength": 1}),
                ("open 0\ntap 80 307\ntap 80 307\ntap 120 241\n", {"appState": PLAYING})]:
            self.expect(script, [], fields)

    def test_the_title_page_makes_room_for_the_high_scores(self):
        self.play("wait 10500\nshot a.png\ntap 120 150\nmenu IDM_SHOW_HIGH_SCORES\nshot b.png\n")
        self.assertEqual(self.read("a.png"), self.read("b.png"))

    def test_buttons(self):
        for script, output, changes in [
                ("click IDC_ACTION_0\npress 91\npress 131\npress 65\n", [], {0: 65}),
                ("click IDC_ACTION_0+4\npress 13\nclick IDC_ACTION_0+3\npress 200\n", [], {4: 13, 3: 200}),
                ("click IDC_ACTION_0+5\npress 37\nclick IDYES\n", [CONFLICT], {5: 37, 0: 0}),
                ("click IDC_ACTION_0+5\npress 37\nclick IDNO\n", [CONFLICT], {}),
                ("click IDC_ACTION_0\npress 37\n", [], {}),
                ("click IDC_ACTION_0\naway\nback\npress 66\n", [], {}),
                ("press 32\npress 65\n", [], {0: 65}),
                *((f"click IDC_ACTION_0+7\npress {key}\n", [], {7: key}) for key in (9, 13, 27, 65)),
                *((f"click IDC_ACTION_0+7\npress {key}\nclick IDNO\n", [CONFLICT], {}) for key in (37, 38, 39, 40, 193)),
                ("stylus down 40 60\nstylus move 40 200\nstylus up 40 200\npress 65\n", [], {}),
                ("click IDC_ACTION_0+7\npress 65\nclick IDC_RESET_BUTTONS\n", [], {})]:
            with self.subTest(script):
                lines = self.play("menu IDM_BUTTONS\n" + script + "state s\ntree\ndone\n")
                self.assertEqual([line for line in lines if line.startswith("box")], output)
                self.assertFalse(any("Please press" in line for line in lines), "that page is gone")
                expected = [changes.get(action, key) for action, key in enumerate(DEFAULT_KEYS)]
                self.assertEqual(store.keys(self.read("s")), expected)
        self.play(f"{GAME}menu IDM_BUTTONS\nclick IDC_ACTION_0+7\npress 65\ndone\ntap 120 150\nwait 100\npress 65\n"
                  "wait 50\nstate s\n")
        self.assertEqual(store.field(self.read("s"), "rotation") % 2, 1, "the button that was given turns the piece")
        names = ["<A>", "<Right>", "< >", "<p>", "<Select>", "<Key 200>", "(not assigned)", "<Button C>"]
        presses = "".join(f"click IDC_ACTION_0+{action}\npress {key}\n"
                          for action, key in ((0, 65), (2, 32), (3, 112), (4, 13), (5, 200), (7, 195)))
        tree = self.play(f"menu IDM_BUTTONS\n{presses}click IDYES\ntree\n")
        self.assertEqual([line.split('"')[1] for line in tree if "id=111" in line], names)

    def test_options(self):
        for index, length in enumerate((0, 1, 6)):
            self.play(f"menu IDM_GAME_OPTIONS\nselect IDC_QUEUE {index}\nselect IDC_GHOST 0\ndone\nkill\n",
                      "--store", "s")
            block = store.read_block(self.folder / "s")
            self.assertEqual((store.field(block, "queueLength"), *block[652:655]), (length, 1, 0, 1))
        # The field of the queue lies at (150, 51) and begins with the last of three items.
        scripts = [("tap 150 51\ntap 150 70\n", 0), ("tap 150 51\ntap 150 87\n", 1),
                   ("tap 150 51\ntap 150 200\npress 38\n", 1),  # elsewhere: the list closes
                   ("tap 150 51\ntap 150 150\npress 38\n", 6),  # on another field: that has the focus
                   ("tap 150 51\ntap 150 51\npress 38\n", 1),
                   ("stylus down 150 51\nstylus move 150 70\nstylus up 150 87\n", 1)]
        for keys, length in [([38], 1), ([38, 115, 36], 1), ([38, 115, 36, 13], 0), ([115, 36, 27, 38], 1), ([36, 40], 1),
                             ([36, 35], 6), ([39], 6), ([37, 37, 37], 0), ([115, 38, 38, 13], 0), ([115, 115, 38], 1)]:
            scripts.append(("".join(f"press {key}\n" for key in (9, 9, 9, *keys)), length))  # Tab leads there
        for script, length in scripts:
            self.expect(f"menu IDM_GAME_OPTIONS\n{script}done\n", [], {"queueLength": length})

    def test_names(self):
        for script, fields, table, row in [
                ("type abc defghijklmno\nclick IDOK\n", {"score": 501, "lines": 57, "level": 4}, 0,
                 ("Abc defghij", 501, 57, 4)),
                ("type zoë\npress 13\n", {"score": 501, "lines": 12, "mode": 1}, 1, ("Zoë", 501, 28, 0)),
                ("type eve\nclick IDOK\n", {"score": 1000}, 0, ("Eve", 1000, 0, 0)),  # below an equal score
                ("click IDOK\n", {"score": 501}, 0, LAST_ROW),
                ("type zed\npress 27\n", {"score": 501}, 0, LAST_ROW),
                ("", {"score": 500}, 0, LAST_ROW)]:
            with self.subTest(script):
                self.ended_game(**fields)
                self.play(script + "state s2\nkill\n", "--store", "s")
                block = store.read_block(self.folder / "s")
                self.assertEqual(store.scores(block, table)[7], row)
                self.assertEqual(store.field(self.read("s2"), "appState"), TITLE)

    def test_names_are_edited(self):
        """< > are arrows, { } with Shift, [ ] Home and End, # Delete, ^ Backspace, ~ Tab; the rest is typed."""
        keys = {"<": "37 down", ">": "39 down", "[": "36 down", "]": "35 down", "{": "37 down shift", "}": "39 down shift",
                "#": "46 down", "^": "8 down", "~": "9 down"}
        for typed, name in [
                ("ann bell", "Ann bell"), (" ann", " Ann"), ("abc[x", "XAbc"), ("abc<x", "Abxc"), ("abc<<x]y", "Axbcy"),
                ("abc^^", "A"), ("^abc", "Abc"), ("abc~~~x", "X"), ("abc[#", "bc"), ("abc#", "Abc"),
                ("abc{{x", "Ax"), ("abc[}}^", "c"), ("abc[}}}d", "D"),  # a selection is replaced, and erased
                ("abc{{<x", "Axbc"), ("abc[}}>x", "Abxc")]:  # an arrow goes to the end of a selection
            with self.subTest(typed):
                self.ended_game(score=501)
                self.play("".join(f"key {keys[unit]}\n" if unit in keys else f"text {ord(unit)}\n" for unit in typed) +
                          "click IDOK\nkill\n", "--store", "s")
                self.assertEqual(store.scores(store.read_block(self.folder / "s"), 0)[7][0], name)

    def test_what_is_behind_a_dialog_stands_still(self):
        """While a tick's dialog is open there is no tick; the window behind draws nothing over a menu or a box."""
        self.ended_game(score=900)
        self.play("trace t\nwait 5000\nkey 13 down\ntrace off\n", "--store", "s")
        self.assertEqual(self.read("t"), b"")
        for opened in ("open 0\n", "open 1\n", "menu IDM_ABANDON_GAME\n", "menu IDM_ABOUT\n"):
            self.play(f"{GAME}{opened}wait 25\nshot a.png\nwait 12000\nshot b.png\n")
            self.assertEqual(self.read("a.png"), self.read("b.png"), opened)

    def test_keys_answer_boxes(self):
        """A tap resumes the game once the box is gone."""
        for menu, box, keys, fields in [
                ("ABANDON_GAME", ABANDON, [13], {"appState": TITLE}), ("ABANDON_GAME", ABANDON, [89], {"appState": TITLE}),
                *(("ABANDON_GAME", ABANDON, keys, {"state": RUNNING}) for keys in ([9, 13], [37, 13], [39, 13], [78])),
                ("ABANDON_GAME", ABANDON, [27], {"state": PAUSED}), ("SHOW_HIGH_SCORES", SCORES, [78], {"state": PAUSED}),
                *(("SHOW_HIGH_SCORES", SCORES, keys, {"state": RUNNING}) for keys in ([13], [27]))]:
            presses = "".join(f"press {key}\n" for key in keys)
            self.expect(f"{GAME}menu IDM_{menu}\n{presses}tap 120 40\n", [box], fields)

    def test_orientation(self):
        for options, script, output in [
                (["--landscape"], "click IDCANCEL\n", [PORTRAIT, "exit 0"]),
                (["--landscape"], "press 13\nminimize\n", [PORTRAIT, RETURN]),
                (["--landscape"], "press 89\npress 78\npress 39\npress 13\n", [PORTRAIT, "exit 0"]),
                (["--landscape"], "press 27\n", [PORTRAIT, "exit 0"]),
                (["--landscape"], "click IDOK\nminimize\nclick IDYES\nrestore\n"
                 "click IDOK\nminimize\nclick IDNO\nrestore\nminimize\n", [PORTRAIT, RETURN, PORTRAIT, RETURN]),
                ([], "turn 4\naway\nback\nclick IDCANCEL\n", [PORTRAIT, "exit 0"]),
                ([], "turn 1\naway\nback\nclick IDOK\nminimize\n", [PORTRAIT, RETURN]),
                ([], "minimize\nrestore\n", [])]:
            with self.subTest(script):
                self.assertEqual(self.play(script, *options), output)


unittest.main()
