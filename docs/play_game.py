#!/usr/bin/env python3
"""Prints a script in which a neat game is played, for the film of docs/make-pictures.

    play_game.py FILM

The game is planned on the model of the rules in tests/model: the right-hand column stays free for four rows at once,
and the piece for them waits in the hold box.
"""
import pathlib
import sys

sys.path.append(str(pathlib.Path(__file__).parents[1] / "tests/model"))
import compare  # noqa: E402 pylint: disable=wrong-import-position
from model import CLEARING, HARD_DROP, HOLD, KEYS, LEFT, RIGHT, ROTATE_LEFT, ROTATE_RIGHT

# Which pieces come depends on the clock. This one, of four hundred, has two clears of four rows, the second just
# before the end, and no hole in the well.
CLOCK, LEVEL, FILM_MS = 1138, 4, 15000
LONG = 0  # the piece of four in a row
TURN_MS, MOVE_MS, LOOK_MS = 75, 50, 150  # between a button and the next


class Player(compare.Player):
    """Knows where it goes as soon as the piece comes, and moves while it turns."""

    def press(self, action, ms=25):
        self.do(f"press {KEYS[action]} {ms}")

    def ready(self):
        """Whether the long piece would complete four rows in the free column."""
        well = self.app.session.well
        return any(all((c, r) in well for c in range(9) for r in range(top, top + 4)) for top in range(17))

    def place(self):
        session = self.app.session
        if session.type == LONG and not self.ready() and not session.holdUsed or (
                session.holdType == LONG and self.ready() and session.type != LONG):
            self.press(HOLD)
            self.do(f"wait {LOOK_MS}")
            return
        rotation, x = compare.goodPlace(session, True)
        while (session.rotation, session.x) != (rotation, x):
            before = session.rotation, session.x
            if session.rotation != rotation:
                back = (session.rotation - rotation) % 4 == 1
                self.press(ROTATE_LEFT if back else ROTATE_RIGHT)
                self.do(f"wait {TURN_MS}")
            if session.x != x:
                self.press(LEFT if x < session.x else RIGHT)
                self.do(f"wait {MOVE_MS}")
            if (session.rotation, session.x) == before:
                break  # there is no way
        self.press(HARD_DROP)
        self.do(f"wait {LOOK_MS}")
        while session.phase == CLEARING:
            self.do("wait 25")

    def play(self):
        self.do("wait 1000")
        self.tap(25 + 21 * LEVEL, 170)
        self.do("wait 500")
        self.tap(120, 215)
        self.do("wait 300")
        while self.app.clock - CLOCK < FILM_MS - 900:
            self.place()
        self.do(f"wait {CLOCK + FILM_MS - self.app.clock}")


player = Player(0)
player.clock, player.app = CLOCK, compare.model.App(CLOCK)
player.play()
print(f"# clock {CLOCK}", f"film {sys.argv[1]} 20", *player.script, sep="\n")
