#!/usr/bin/env python3
"""Plays random games on the program and on the model, and compares every traced record.

    compare.py PILOT [--seeds SEED...]

A seed makes one script: a start anywhere on the clock, then two games, each in some mode from some level, played well,
wildly or hardly at all, to its end. The first field that differs is reported, and the script is kept.
"""

import argparse
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / 'support'))
import model
from names import expand
from model import (CLEARING, ENDING, HARD_DROP, HOLD, KEYS, LEFT, PAUSE, PAUSED, PLAYING, RIGHT, ROTATE_LEFT,
                   ROTATE_RIGHT, RUNNING, SOFT_DROP, TITLE, TITLE_BAR)

# Between them these reach each end of each mode, levels that rise, four rows twice, and each place that a
# turn of each rotation tries. With 0 no game is played.
SEEDS = [0, 8, 13, 16, 28, 30, 33, 72, 77, 98, 110, 117, 142, 147]
CLOCKS = [1000, 2**31 - 20000, 2**32 - 20000]


class Player:
    """Writes a script, and plays each of its commands on the model."""

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.chance = lambda probability: self.random.random() < probability
        self.clock = (self.random.choice(CLOCKS) + self.random.randrange(19000)) % 2**32
        self.app = model.App(self.clock)
        self.script = []
        self.greedy = self.chance(0.5)  # for clears of four rows
        self.corner = 70 + 99 * (seed % 2), 200 + 29 * (seed // 2 % 2)  # of the Play button

    def do(self, command):
        self.script.append(command)
        word, _, rest = command.partition(' ')
        words = [rest] if word == 'type' else rest.split()
        getattr(self.app, word)(*[int(word) if word.isdigit() else word for word in words])

    def wait(self, most, least=1):
        self.do(f'wait {self.random.randrange(least, most)}')

    def press(self, action, *durations):
        self.do(f'press {KEYS[action]} {self.random.choice(durations)}')

    def tap(self, x, y):
        self.do(f'tap {x} {y + TITLE_BAR}')

    def release(self):
        for action in range(8):
            if self.app.buttons.isDown[action]:
                self.do(f'key {KEYS[action]} up')

    def play(self):
        idle = lambda: self.wait(3000)
        for _ in range(2):
            self.choose()
            style = self.random.choice([self.steer, self.steer, self.fumble, idle])
            enough = len(self.app.records) + self.random.choice([400, 1000, 3000])
            while self.app.state == PLAYING and not self.app.asking:
                state, tired = self.app.session.state, len(self.app.records) > enough
                if state == PAUSED:
                    self.tap(100, 100)
                elif self.chance(0.02):
                    self.random.choice([self.pause, self.leave])()
                elif state == ENDING:
                    self.random.choice([self.fumble, idle])()
                elif tired and self.app.session.timeLeft == 0:
                    self.press(HARD_DROP, 26)
                    self.do('wait 26')
                else:
                    style()
            self.release()
            if self.app.asking:
                self.wait(2000)
                if self.chance(0.8):
                    self.do('type ' + self.random.choice(['ada', 'Noor', 'jo van dyk', 'elisabeth m']))
                self.do(expand(self.random.choice(['click IDOK', 'click IDOK', 'click IDCANCEL'])))
        self.do('wait 1000')

    def tapEdges(self):
        """Stays on the title page and taps at the edges of what can be chosen, and beside Play."""
        dice = self.random
        for _ in range(400):
            column, row = dice.randrange(10), dice.randrange(2)
            left, width, top = dice.choice([(15 + 21 * column, 20, 165), (15 + 105 * (column % 2), 104, 115 + 20 * row)])
            self.tap(left + dice.choice([-1, 0, width - 1, width]), top + dice.choice([-1, 0, 18, 19]))
            self.tap(*dice.choice([(69, 215), (170, 215), (120, 199), (120, 230)]))
            self.do('wait 500')

    def choose(self):
        """Starts a game from the title screen, after some random taps and waits."""
        for _ in range(self.random.randrange(4)):
            self.random.choice([lambda: self.wait(12000), self.leave, lambda: self.tap(
                self.random.randrange(240), self.random.randrange(100, 190))])()
        self.press(self.random.randrange(8), 40)
        while self.app.state == TITLE:
            mode, level = self.random.randrange(4), self.random.randrange(10)
            self.tap(60 + 105 * (mode % 2), 120 + 20 * (mode // 2))
            self.tap(25 + 21 * level, 170)
            self.tap(*self.corner)

    def leave(self):
        """Another program comes to the front for a while; no key is held or unread then."""
        self.release()
        self.do('wait 60')
        if not self.app.asking and not any(self.app.buttons.pressedSince):
            self.do('away')
            self.wait(700)
            self.do('back')

    def pause(self):
        """Pauses and resumes, each by the button or by a tap."""
        for _ in range(2):
            if self.chance(0.5):
                self.press(PAUSE, 5, 30, 60)
            else:
                self.tap(self.random.randrange(240), self.random.randrange(268))
            self.wait(400)
            self.press(self.random.randrange(PAUSE), 10)

    def fumble(self):
        """Presses, holds or releases a random button; some presses are shorter than a tick."""
        action = self.random.choice([LEFT, RIGHT, ROTATE_LEFT, ROTATE_RIGHT, SOFT_DROP] * 3 + list(range(8)))
        held = self.app.buttons.isDown[action]
        if held or self.chance(0.25):
            self.do(f'key {KEYS[action]} {"up" if held else "down"}')
        else:
            self.press(action, 3, 10, 25, 40, 120, 600)
        self.wait(70)

    def steer(self):
        """Brings the piece to a good place and drops it, with a random mistake now and then."""
        self.release()
        session = self.app.session
        if session.phase == CLEARING:
            return self.wait(300)
        rotation, x = goodPlace(session, self.greedy)
        while session.state == RUNNING and (session.rotation, session.x) != (rotation, x):
            if self.chance(0.02):
                return self.fumble()
            if session.rotation != rotation:
                back = (session.rotation - rotation) % 4 == 1
                self.press(ROTATE_LEFT if back else ROTATE_RIGHT, 5, 25, 30)
            else:
                self.press(LEFT if x < session.x else RIGHT, 5, 20, 30)
            self.wait(51, 26)
        self.press(*self.random.choice([(HARD_DROP, 10, 26)] * 8 + [(HOLD, 26), (SOFT_DROP, 90, 300)]))
        return self.wait(80, 25)


def goodPlace(session, greedy):
    """The (rotation, x) where the piece, dropped from its height, leaves the best well: low and without holes. A greedy
    player keeps the last column free for four rows while there is room."""
    best = (-1e9, session.rotation, session.x)
    for rotation, x in [(rotation, x) for rotation in range(4) for x in range(-2, 9)]:
        y = session.y
        if not session.fits(x, y, rotation):
            continue
        while session.fits(x, y + 1, rotation):
            y += 1
        cells = {(x + dx, y + dy) for dx, dy in model.CELLS[session.type][rotation]}
        well = cells | session.well.keys()
        full = sum(all((c, r) in well for c in range(10)) for r in range(1, 20))
        tops = [min((r for r in range(20) if (c, r) in well), default=20) for c in range(10)]
        holes = sum((c, r) not in well for c in range(10) for r in range(tops[c], 20))
        bumps = sum(abs(a - b) for a, b in zip(tops[:-1], tops[1:-1]))
        early = greedy and full < 4 and min(tops) > 8 and any(c == 9 for c, _ in cells)
        worth = 20 * full + 5 * sum(tops) - 36 * holes - 2 * bumps - 60 * early
        best = max(best, (worth, rotation, x))
    return best[1:]


def difference(theirs, ours):
    """The first field that differs, with the program's value and the rules' value, if any does."""
    count = ours[model.NAMES.index('count')]
    for name, program, rules in zip(model.NAMES, model.RECORD.unpack(theirs), ours):
        if name.endswith('name'):
            program = program.decode('utf-16-le', 'replace').split('\0')[0]
        if program != rules and not (name[:5] == 'queue' and int(name[6:-1]) >= count):
            if name in ('cells', 'fullRows'):
                at = next(i for i in range(len(rules)) if program[i] != rules[i])
                name, program, rules = f'{name}[{at}]', program[at], rules[at]
            return name, program, rules


def run(pilot, seed, folder):
    """Runs one seed; returns how many records were compared, or exits with the difference."""
    player = Player(seed)
    player.play() if seed else player.tapEdges()
    script = [f'trace {folder}/trace', *player.script, f'state {folder}/state', '']
    (folder / 'script').write_text('\n'.join(script))
    done = subprocess.run([pilot, '--clock', str(player.clock), folder / 'script'], capture_output=True, text=True)
    if done.returncode != 0:
        sys.exit(f'seed {seed}: the pilot ended with {done.returncode}: {done.stderr.strip()}')
    trace = (folder / 'trace').read_bytes() + (folder / 'state').read_bytes()
    records = [trace[at:at + 2496] for at in range(0, len(trace), 2496)]
    expected = player.app.records + [(player.app.clock, player.app.record())]
    for tick, (theirs, (clock, ours)) in enumerate(zip(records, expected)):
        if differs := difference(theirs, ours):
            name, program, rules = differs
            sys.exit(f'seed {seed}, timer message {tick + 1} at {clock} ms: {name} is {program} in the program, {rules} by '
                     f'the rules; {folder}/script, --clock {player.clock}')
    if len(records) != len(expected):
        sys.exit(f'seed {seed}: {len(records) - 1} timer messages, {len(expected) - 1} by the rules')
    return len(records)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('pilot')
    parser.add_argument('--seeds', type=int, nargs='+', default=SEEDS)
    options = parser.parse_args()
    total = 0
    for seed in options.seeds:
        folder = pathlib.Path(tempfile.mkdtemp(prefix='glimra-compare-'))
        total += run(options.pilot, seed, folder)
        shutil.rmtree(folder)
    print(f'{len(options.seeds)} scripts, {total} records, no difference')


if __name__ == '__main__':  # bench/measure.py uses Player
    main()
