#!/usr/bin/env python3
"""Hours of play in one life of the program, all modes, by the player of the rules' model.

    soak.py GLIMRA-PILOT [--seed SEED] [--hours HOURS]

The game object is looked over after every timer; in the end it is what the rules say, and the
program has not grown.
"""
import argparse
import collections
import pathlib
import subprocess
import sys
import tempfile
import time

sys.path.append(str(pathlib.Path(__file__).parents[1] / "tests/model"))
import compare  # noqa: E402 pylint: disable=wrong-import-position

HOUR = 3600 * 1000
MOST_GROWTH = 256  # KiB


class Soak(compare.Player):
    """Plays on a running pilot what it plays on the model."""

    def __init__(self, pilot, seed, folder):
        super().__init__(seed)
        self.folder, self.played, self.modes = folder, 0, collections.Counter()
        self.process = subprocess.Popen([pilot, "--clock", str(self.clock)], text=True, cwd=folder,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.process.stdin.write("check\n")

    def round(self):
        before = self.app.clock
        self.play()
        self.modes[self.app.session.mode] += 1
        self.played += (self.app.clock - before) % 2**32
        self.process.stdin.write("\n".join([*self.script, "sounds", "state state", "echo round", ""]))
        self.process.stdin.flush()
        for line in self.process.stdout:
            if line == "round\n":
                break
        else:
            sys.exit(f"after {self.played} ms the pilot ended with {self.process.wait()}")
        self.script.clear()
        self.app.records.clear()
        if differs := compare.difference((self.folder / "state").read_bytes(), self.app.record()):
            sys.exit("after {} ms {} is {} in the program, {} by the rules".format(self.played, *differs))

    def memory(self):
        """The program's resident memory, KiB."""
        pid = self.process.pid
        child = pathlib.Path(f"/proc/{pid}/task/{pid}/children").read_text().split()[0]
        status = pathlib.Path(f"/proc/{child}/status").read_text()
        return int(status.split("VmRSS:")[1].split()[0])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("pilot")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--hours", type=float, default=24)
    options = parser.parse_args()
    begun = time.monotonic()
    with tempfile.TemporaryDirectory() as folder:
        soak = Soak(pathlib.Path(options.pilot).resolve(), options.seed, pathlib.Path(folder))
        for _ in range(3):
            soak.round()
        first = soak.memory()
        while soak.played < options.hours * HOUR:
            soak.round()
        last = soak.memory()
        soak.process.stdin.close()
        status = soak.process.wait()
    print(f"seed {options.seed}: {soak.played / HOUR:.2f} hours in {time.monotonic() - begun:.0f} s, games by mode "
          f"{dict(sorted(soak.modes.items()))}, memory {first} KiB at first, {last} KiB at last")
    sys.exit(status or (last - first > MOST_GROWTH and f"it has grown by {last - first} KiB"))


main()
