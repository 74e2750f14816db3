#!/usr/bin/env python3
"""A monkey plays: random scripts for the pilot, some of them on damaged stores.

    monkey.py GLIMRA-PILOT [--seed SEED] [--commands COUNT]

The pilot should be built with sanitizers. The test fails on a crash, a fault in the game, a hang, or a
record that does not hold or play the same game again, and keeps the script and the store in monkey-found.
"""
import argparse
import contextlib
import itertools
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "support"))
from names import expand  # noqa: E402, it is found by the line above

SCRIPT_COMMANDS, HANG_SECONDS, RECORDED_SHARE = 400, 60, 0.2
KEYS = [8, 9, 13, 27, 37, 38, 39, 40, 46, 65, 75, 81, 112, 193, 194, 195, 196, 254]
MENU = ["IDM_NEW_GAME", "IDM_BUTTONS", "IDM_GAME_OPTIONS", "IDM_ABANDON_GAME", "IDM_SHOW_HIGH_SCORES", "IDM_ABOUT"]
TEXTS = ["Ann", "", "  ", "Hällo # Ω", "x" * 60, "\U0001F600", "\"\\"]
MARK = "key 253 up"  # nothing comes of it, and it is recorded: a moment for a picture
NUMBERS = [0, 1, -1, 2, 6, 7, 10, 255, 25, 2**31 - 1, -2**31, 999, 9999, 10**9]
ENDING = re.compile("close|hibernate|81")
# Errors that are not faults: the window or item that a random command needs is not there at the moment.
REFUSED = re.compile(r"pilot: line \d+: (menu|open|click|select|done|tap)?:?.*(has ended|no |did not open|not on).*")


class Script:
    """One run of the pilot. Its windows are listed after each move, so that the next one can aim at them."""

    def __init__(self, pilot, folder, dice, store, record):
        self.dice, self.folder, self.record = dice, folder, record
        self.written, self.commands, self.ended, self.windows, self.marks = [], 0, False, [], 0
        (folder / "store").mkdir()
        if store is not None:
            (folder / "store/registry.reg").write_bytes(store)
        clock = dice.choice([1000, 2**31 - 9000, 2**32 - 9000, dice.randrange(2**32)])
        self.options = ["--clock", str(clock)] + ["--landscape"] * (dice.random() < 0.2)
        record_options = ["--record", "record"] if record else []
        with open(folder / "errors", "w", encoding="utf-8") as errors:
            self.process = subprocess.Popen([pilot, "--store", "store", *self.options, *record_options], cwd=folder,
                                            text=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=errors)
        self.hung = threading.Timer(HANG_SECONDS, self.process.kill)
        self.hung.start()
        self.write("check")
        if record:
            self.write("trace first")

    def write(self, *commands):
        commands = [expand(command) for command in commands]
        self.written += commands
        print(*commands, sep="\n", file=self.process.stdin)

    def move(self):
        """Sends a few commands and reads the list of windows. Returns False when the pilot has stopped."""
        if self.ended and self.record:
            return False  # a record ends with the program
        commands = self.aimed()
        if commands and self.dice.random() < 0.6:
            commands = [self.dice.choice(commands)]
        else:  # those that may end the program come last
            commands = sorted((self.command() for _ in range(self.dice.randrange(1, 9))),
                              key=lambda command: bool(ENDING.search(command)))
        try:
            if self.ended:
                self.write("restart")
                self.ended = False
            if self.record and self.dice.random() < 0.1:
                self.marks += 1
                self.write(MARK, f"shot first{self.marks}.png")
            self.write(*commands, *["tree"] * (not ENDING.search(commands[-1])), "echo looked")
            self.commands += len(commands)
            self.process.stdin.flush()
        except BrokenPipeError:
            return False
        self.windows = []
        for line in self.process.stdout:
            if line == "looked\n":
                return True
            if line.startswith("exit "):
                self.ended = True
            elif " rect=" in line:
                self.windows.append(line)
        return False

    def command(self):
        dice = self.dice
        key, x, y = dice.choice(KEYS), dice.randrange(240), dice.randrange(240)
        wait = dice.choice([0, 1, 24, 25, 26, 100, 500, 3000, 20000])
        rare = ["hibernate", "help", "minimize", "restore", "away", "back", f"turn {dice.choice([0, 1, 2, 4])}",
                "tree", "objects", "sounds", "echo x", "shot shot.png", "state state", f"jump {wait * 7}", "close",
                "trace second", "trace off"]
        common = [f"wait {wait}", f"press {key} {dice.choice([0, 25, 60, 300])}", f"press {dice.choice([37, 39, 40])}",
                  "press 38", f"key {key} {dice.choice(['up', 'down', 'down ctrl', 'down ctrl+shift'])}",
                  f"tap {x} {y}", f"stylus {dice.choice(['down', 'move', 'up'])} {x} {dice.randrange(320)}",
                  f"chord {key}", f"type {dice.choice(TEXTS)}", f"text {dice.randrange(1, 65536)}", "dismiss"]
        if self.record:
            rare = [command for command in rare if not command.startswith(("trace", "close"))]
        elif dice.random() < 0.01:
            return "restart"
        return dice.choice(rare if dice.random() < 0.1 else common)

    def aimed(self):
        """Commands for the windows of the last list, if they are still there."""
        active = next((i for i, line in enumerate(self.windows) if " active" in line), None)
        if active is None:
            return []
        if self.windows[active].startswith("GLIMRAPPC"):
            return [f"menu {self.dice.choice(MENU)}", f"open {self.dice.randrange(2)}", "menu IDM_NEW_GAME"]
        commands = ["done"] if "rect=0,26,240,320" in self.windows[active] else ["press 13"]
        for line in self.windows[active + 1:]:
            if not line.startswith(" "):
                break
            number = int(re.search(r"id=(-?\d+)", line)[1])
            if number > 0 and "disabled" not in line and "hidden" not in line:
                choose = "ComboBox" in line
                commands.append(f"select {number} {self.dice.randrange(6)}" if choose else f"click {number}")
        return commands

    def finish(self):
        """Ends the script and returns what went wrong, or nothing."""
        with contextlib.suppress(BrokenPipeError):
            self.write("state first.state" if self.record else "close")
            self.process.stdin.close()
        self.process.stdout.read()
        status = self.process.wait()
        hung = not self.hung.is_alive()
        self.hung.cancel()
        errors = (self.folder / "errors").read_text(encoding="utf-8")
        if hung:
            return "it hangs"
        stopped = status == 2 and REFUSED.fullmatch(errors.strip().splitlines()[-1])
        return "" if status == 0 or stopped else f"status {status}: {errors}"


def replay(pilot, folder, marks):
    """Checks the record, plays it again, and compares traces and pictures. What is traced or shown after the program's
    end is not compared."""
    check = subprocess.run([pilot, "--check", "record"], cwd=folder, capture_output=True, text=True,
                           timeout=HANG_SECONDS)
    if check.returncode != 0 or not check.stdout.endswith("holds\n"):
        return f"the record: --check: status {check.returncode}: {check.stdout}{check.stderr}"
    lines = (folder / "record").read_text().splitlines()
    begin, shots = next(at for at, line in enumerate(lines) if not line.startswith("#")), itertools.count(1)
    script = [*lines[:begin], "trace again"]
    for line in lines[begin:]:
        script += [line, f"shot again{next(shots)}.png"] if line == MARK else [line]
    (folder / "again.pilot").write_text("\n".join([*script, "state again.state"]) + "\n")
    result = subprocess.run([pilot, "again.pilot"], cwd=folder, capture_output=True, text=True, timeout=HANG_SECONDS)
    if result.returncode not in (0, 2) or "differs" in result.stderr:
        return f"the record: status {result.returncode}: {result.stderr}"
    for name in ["", ".state", *(f"{mark}.png" for mark in range(1, marks + 1))]:
        first, again = folder / f"first{name}", folder / f"again{name}"
        if first.exists() and (not again.exists() or first.read_bytes() != again.read_bytes()):
            return f"the record: what is in {first.name} and {again.name} differs"
    return ""


def damaged(store, dice):
    """A store with some fields of its block, or some bytes of its text, changed."""
    written = re.search(rb'"app"=hex:((?:[0-9a-f]{2},(?:\\\n *)?)*[0-9a-f]{2})\n', store)
    if written and dice.random() < 0.7:
        block = bytearray.fromhex(re.sub(rb"[^0-9a-f]", b"", written[1]).decode())
        for _ in range(dice.choice([1, 1, 1, 2, 5])):
            at = dice.randrange(len(block) // 4 + 1) * 4
            value = dice.choice([*NUMBERS, dice.randrange(-2**31, 2**31)])
            block[at:at + 4] = value.to_bytes(4, "little", signed=True)
        return store[:written.start(1)] + block.hex(",").encode() + store[written.end(1):]
    text = bytearray(store)
    for _ in range(dice.choice([1, 3, 30])):
        at = dice.randrange(len(text))
        text[at:at + dice.choice([0, 1, 1, 5])] = dice.choice([b"", b"\0", b"]", b",", b"\\", b"\n", dice.randbytes(3)])
    return bytes(text[:dice.randrange(len(text) + 1)] if dice.random() < 0.2 else text)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("pilot", type=os.path.abspath)
    parser.add_argument("--seed", type=int, default=random.randrange(10**6))
    parser.add_argument("--commands", type=int, default=10000)
    arguments = parser.parse_args()
    print(f"seed {arguments.seed}", flush=True)
    done, number, found, store, begun = 0, 0, 0, None, time.monotonic()
    while done < arguments.commands:
        number += 1
        dice = random.Random(f"{arguments.seed} {number}")
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            start = None if store is None or dice.random() < 0.2 else store
            if start is not None and dice.random() < 0.5:
                start = damaged(start, dice)
            script = Script(arguments.pilot, folder, dice, start, record=dice.random() < RECORDED_SHARE)
            while script.commands < SCRIPT_COMMANDS and script.move():
                pass
            done += script.commands
            problem = script.finish() or (replay(arguments.pilot, folder, script.marks) if script.record else "")
            if problem:
                found += 1
                kept = pathlib.Path("monkey-found") / f"{arguments.seed}-{number}"
                shutil.copytree(folder, kept, dirs_exist_ok=True)
                (kept / "start.reg").write_bytes(start or b"")
                (kept / "script").write_text("\n".join(["# " + " ".join(script.options), *script.written, ""]))
                print(f"script {number}: {problem}\nkept in {kept}", flush=True)
            saved = folder / "store/registry.reg"
            if saved.exists() and not problem:
                store = saved.read_bytes()
    print(f"{done} commands in {number} scripts, {time.monotonic() - begun:.0f} s: {found} faults")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
