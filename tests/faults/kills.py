#!/usr/bin/env python3
"""Ends the desktop game at random moments: while it starts and recovers a game, and while one is played on a display.

kills.py [--moments N] [--seed N] GLIMRA GLIMRA-PILOT

The next start must have the game, paused. After a signal or the end of the display nothing is missing; after SIGKILL at
most the last second, and no key that was pressed before.
"""
import atexit
import re
import signal
import subprocess
import sys
import time

from faults import EARLY, PILOT, ended, interrupted, launch, options, played, start, stored
from desktop import SCALE, eventually, focus_window, start_display, xdotool

SIGNALS = signal.SIGKILL, signal.SIGTERM, signal.SIGINT, signal.SIGHUP
ENDS = *SIGNALS, "client", "server"
KEYS = {"Left": 37, "Right": 39, "Up": 38, "c": 194, "z": 195}
LATE = 0.25  # seconds between a key's way through the display and the record


def early(chance):
    """While it starts, some times in a row."""
    with interrupted() as folder:
        expected = played((folder / "s/records" / EARLY).read_bytes())
        for _ in range(3):
            game = launch(folder)
            time.sleep(chance.uniform(0, 0.1))
            number = chance.choice(SIGNALS)
            game.send_signal(number)
            status, said = ended(game)
            if status not in (0, -number) or said:
                return f"while it starts: {status}: {said}"
        status, said = start(folder)
        return "" if (status, said) == (0, "") and stored(folder) == expected else f"while it starts: another game, {said}"


def play(game, record, chance):
    """Plays for a while; returns the keys that were pressed, each with its moment."""
    focus_window(game)
    click = lambda: xdotool("mousemove", "--window", game.window, 120 * SCALE, 150 * SCALE, "click", 1, "sleep", 0.1)
    eventually(lambda: click() or "# came back" in record().read_text(), "the game goes on")
    pressed, end = [], time.monotonic() + chance.uniform(0.3, 3)
    while time.monotonic() < end:
        key = chance.choice([*KEYS])
        pressed.append((key, time.monotonic()))
        xdotool("key", key)
        time.sleep(chance.uniform(0, 0.4))
    return pressed


def missing(text, pressed, moment):
    """What a record does not have of all that was done until a moment."""
    at, reached = 0, []
    for word, *rest in map(str.split, filter(None, text.splitlines())):
        at += int(rest[0]) if word in ("wait", "jump") else 0
        if word == "key" and rest[1] == "down" and int(rest[0]) in KEYS.values():
            reached.append((int(rest[0]), at / 1000))
    before = [KEYS[key] for key, when in pressed if when < moment - LATE]
    if [key for key, _ in reached][:len(before)] != before:
        return f"of the keys {before} there are {reached}"
    if reached and at / 1000 - reached[0][1] < moment - pressed[0][1] - 1 - LATE:
        return f"it ends at {at} ms, {moment - pressed[0][1]:.2f} s after the key of {reached[0]}"
    return ""


def while_playing(end, chance):
    server = start_display(atexit.register)
    with interrupted() as folder:
        game = launch(folder, environment={"SDL_VIDEODRIVER": "x11"}, scale=SCALE)
        record = lambda: max(folder.glob("s/records/*"))
        pressed = play(game, record, chance)
        moment = time.monotonic()
        {"server": server.kill, "client": lambda: xdotool("windowkill", game.window)}.get(
            end, lambda: game.send_signal(end))()
        status, said = ended(game)
        server.kill()
        if status != (-end if end == signal.SIGKILL else 0) or not re.fullmatch("(the display is gone.*\n)?", said):
            return f"ends with {status}: {said}"
        text, expected = record().read_bytes(), played(record().read_bytes())
        if end != signal.SIGKILL and subprocess.run([PILOT, "--check", record()], stdout=subprocess.DEVNULL).returncode:
            return "its record does not hold"
        lost = missing(text.decode(), pressed, moment)
        if lost:
            return lost
        again = start(folder)
        return "" if again == (0, "") and stored(folder) == expected else f"the game is another: {again}"


def main():
    given, chance = options(moments=len(ENDS))
    faults = 0
    for number in range(given.moments):
        end = ENDS[number % len(ENDS)]
        for wrong in filter(None, (early(chance), while_playing(end, chance))):
            faults += 1
            print(f"moment {number}, {end}: {wrong}", flush=True)
    print(f"seed {given.seed}: {given.moments} games ended while they were played, {3 * given.moments} while they "
          f"started, {faults} faults")
    sys.exit(bool(faults))


main()
