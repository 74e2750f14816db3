#!/usr/bin/env python3
"""Whether a recorded session plays the same on every host.

    everywhere.py record FOLDER SESSIONS SEED GLIMRA GLIMRA-PILOT
    everywhere.py play FOLDER GLIMRA GLIMRA-PILOT

The first has the monkey make records by the pilot, and hands repeat in the window and in the page (Chromium) what it
did. The second plays each record on all three hosts. It compares the screen, and the 2,496 bytes of the game in the
running program's memory, at 20 moments and at the end, and has the pilot check all digests.
"""
import collections
import contextlib
import hashlib
import json
import mmap
import multiprocessing
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import time

if "--help" in sys.argv:
    print(__doc__)
    sys.exit()
ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests/scripts"), str(ROOT / "tests/monkey")]
import store  # noqa: E402, they are found by the line above
from desktop import GLIMRA, HEIGHT, PILOT, WIDTH, eventually, focus_window, start_display, xdotool  # noqa: E402
from monkey import Script  # noqa: E402

LANES = {"record": 10, "play": 2}  # sessions at once: those that are recorded mostly wait
COMMANDS = 150                     # of the monkey, in a session
SHORTEST_WAIT, LONGEST_WAIT, SHORTEST_PLAN, LONGEST_PLAN = 40, 1500, 5000, 30000  # of hands, milliseconds
KEYS = {8: "BackSpace", 9: "Tab", 13: "Return", 27: "Escape", 37: "Left", 38: "Up", 39: "Right", 40: "Down", 46: "Delete",
        65: "a", 75: "k", 193: "Escape", 194: "c", 195: "z", 196: "x"}
MOMENTS, TICK, STEP = 20, 25, 5000  # a viewer's keys go on by a tick or a step, milliseconds


def page(task, folder):
    return subprocess.Popen(["node", ROOT / "tests/record/everywhere.js", ROOT / "build/web", ROOT / "web/serve.py", PILOT,
                             task, str(LANES[task]), folder], stdout=subprocess.PIPE, text=True)


# Recording -----------------------------------------------------------------------------------------------------------

def record_by_pilot(record, dice, start):
    """A session that is not over at once. Returns the store at its end, and what hands do."""
    with tempfile.TemporaryDirectory() as name:
        script = Script(PILOT, pathlib.Path(name), dice, start, record=True)
        script.write("wait 500", "type Zoe", "wait 500")  # where a name is asked for
        while script.commands < COMMANDS and script.move():
            pass
        assert not (problem := script.finish()), problem
        record.write_bytes((pathlib.Path(name) / "record").read_bytes())
        saved = pathlib.Path(name) / "store/registry.reg"
        end = saved.read_bytes() if saved.exists() else start
    steps = list(hands(record.read_text().splitlines()))
    enough = sum(step[1] for step in steps if step[0] == "wait") > SHORTEST_PLAN
    return (end, steps) if enough else record_by_pilot(record, dice, start)


def hands(lines):
    """What hands do to repeat a record: slower than the monkey, and never waiting long."""
    total, touches = 0, False
    for word, *rest in (line.split() for line in lines):
        if word == "wait":
            yield [word, (pause := min(int(rest[0]), LONGEST_WAIT))]
            total += pause
        elif word == "key" and int(rest[0]) in KEYS:
            yield [rest[1], KEYS[int(rest[0])]]
        elif word == "stylus" and rest[0] != ("down" if touches else "up"):
            touches = rest[0] == "down" or touches and rest[0] == "move"
            yield [word, rest[0], *map(int, rest[1:])]
        elif word == "text" and chr(int(rest[0])).isascii() and chr(int(rest[0])).isalnum():
            yield [word, chr(int(rest[0]))]
        elif word == "away":
            yield from [["away"], ["wait", LONGEST_WAIT], ["back"]]
        else:
            continue
        yield ["wait", SHORTEST_WAIT]
        total += SHORTEST_WAIT
        if total > LONGEST_PLAN:
            return


def record_in_window(plan):
    with contextlib.ExitStack() as stack, tempfile.TemporaryDirectory() as name:
        start_display(stack.callback)
        details = json.loads(plan.read_text())
        (pathlib.Path(name) / "store").mkdir()
        (pathlib.Path(name) / "store/registry.reg").write_text(details["store"] or store.FIRST_LINE + "\n")
        games = []
        for options in (["other", "--no-record"], ["store", "--record", plan.with_suffix(".window")]):
            games.append(subprocess.Popen([GLIMRA, "--scale", "1", "--store", *options], cwd=name, stderr=subprocess.DEVNULL))
            stack.callback(games[-1].wait)
            stack.callback(games[-1].kill)
            focus_window(games[-1])
            xdotool("windowmove", games[-1].window, 300 * len(games), 0)
        other, game = games
        acts = {"wait": lambda time_: time.sleep(time_ / 1000), "text": lambda letter: xdotool("key", letter),
                "away": lambda: xdotool("windowfocus", other.window), "back": lambda: xdotool("windowfocus", game.window),
                "down": lambda key: xdotool("keydown", key), "up": lambda key: xdotool("keyup", key),
                "stylus": lambda kind, x, y: xdotool("mousemove", "--window", game.window, x, y,
                                                     *([f"mouse{kind}", 1] if kind != "move" else []))}
        for act, *values in details["steps"]:
            acts[act](*values)
        for _ in range(4 if details["closes"] else 0):  # the key may be an answer to a question
            xdotool("key", "ctrl+q", "sleep", 0.5, "key", "Escape", "sleep", 0.5)


def record_all(folder, sessions, seed):
    folder.mkdir()
    with tempfile.TemporaryDirectory() as name:  # a game that is over, and asks for a name
        store.play(PILOT, "menu IDM_NEW_GAME\nwait 100\nstate game\n", folder=name)
        block = store.changed((pathlib.Path(name) / "game").read_bytes(), state=store.OVER, score=9999)
        store.write_block(name, block)
        lost = (pathlib.Path(name) / "registry.reg").read_bytes()
    plans, end = [folder / f"{seed}-{number}.plan" for number in range(int(sessions))], None
    for plan in plans:
        dice = random.Random(plan.name)
        start = dice.choice([None, lost, end, end])
        end, steps = record_by_pilot(plan.with_suffix(".pilot"), dice, start)
        plan.write_text(json.dumps({"store": start and start.decode(), "steps": steps, "closes": dice.random() < 0.7}))
    with page("record", folder), multiprocessing.Pool(LANES["record"]) as pool:
        pool.map(record_in_window, plans, 1)


# Playing -------------------------------------------------------------------------------------------------------------

def look_at(lines, moments):
    """A record as a script that looks when all that belongs to a moment has happened, and at the end; and its length."""
    left, script, now = collections.deque(moments), [], 0
    look = lambda: [f"shot {MOMENTS - len(left):02}.png", f"state {MOMENTS - len(left)}"]
    for line in lines:
        word, time_ = line.split()[0], int(line.split()[1]) if line.startswith(("wait", "jump")) else 0
        while word == "wait" and left and left[0] < now + time_:
            pause = max(left[0] - now, 0)
            script += [f"wait {pause}", *look()]
            left.popleft()
            now, time_ = now + pause, time_ - pause
        script.append(f"wait {time_}" if word == "wait" else line)
        now += time_
    # A viewer stops before what may end the program, and with it the picture.
    last = next(i for i in reversed(range(len(script))) if not script[i].startswith("#"))
    after = re.match(r"wait|jump|key \d+ up", script[last]) is not None
    looks = []
    while left:  # in a jump that leads to the end
        looks += look()
        left.popleft()
    script[last + after:last + after] = looks + look()
    return script, now


def play_by_pilot(record):
    """Keeps what is to be seen. Returns what differs."""
    checked = subprocess.run([PILOT, "--check", record], capture_output=True, text=True)
    lines = record.read_text().splitlines()
    length = look_at(lines, [])[1]
    moments = sorted(random.Random(record.name).sample(range(0, length, TICK), MOMENTS))
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "script").write_text("\n".join([*look_at(lines, moments)[0], ""]))
        played = subprocess.run([PILOT, "script"], cwd=folder, capture_output=True, text=True)
        pictures = sorted(folder.glob("*.png"))
        pixels = subprocess.run(["convert", *pictures, "-depth", "8", "rgba:-"], check=True, capture_output=True).stdout
        count = WIDTH * HEIGHT * 4
        seen = [{"at": moment, "block": (folder / str(i)).read_bytes().hex(),
                 "size": [int.from_bytes(pictures[i].read_bytes()[at:at + 4]) for at in (16, 20)],
                 "screen": hashlib.sha256(pixels[i * count:(i + 1) * count]).hexdigest()}
                for i, moment in enumerate([*moments, length])]
    record.with_name(record.name + ".moments").write_text(json.dumps(seen))
    holds = checked.returncode == 0 and checked.stdout.endswith("holds\n")
    return [record, "pilot", *filter(None, ["" if holds else checked.stdout + checked.stderr, played.stderr])]


def window_with(title):
    search = ["xdotool", "search", "--onlyvisible", "--name", title]
    found = lambda: subprocess.run(search, capture_output=True, text=True).stdout.split()
    return eventually(lambda: len(windows := found()) == 1 and windows[0], f"one window has a title with {title}")


def screen_of(window, size, display):
    """The digest of a window's pixels, in the memory of the display's server: an XWD file."""
    left, top = map(int, xdotool("getwindowgeometry", window)[3].split(","))
    header = [int.from_bytes(display[i:i + 4], "big") for i in range(0, 100, 4)]
    first, pitch = header[0] + header[19] * 12 + left * 4, header[12]
    rows = (first + (top + y) * pitch for y in range(size[1]))
    pixels = bytearray().join(display[row:row + size[0] * 4] for row in rows)
    pixels[0::4], pixels[2::4], pixels[3::4] = pixels[2::4], pixels[0::4], b"\xff" * (size[0] * size[1])
    return hashlib.sha256(pixels).hexdigest()


def play_in_window(record, display, address):
    """Goes on by the viewer's keys, and yields what differs."""
    with contextlib.ExitStack() as stack:
        viewer = subprocess.Popen([GLIMRA, "--watch", "--scale", "1", record])
        stack.callback(viewer.wait)
        stack.callback(viewer.terminate)
        xdotool("windowfocus", "--sync", window_with(" / "), "key", "Right", "space")
        window_with("0:0[1-9] / .*, stopped")
        xdotool("key", "Home")  # a fresh process begins
        window, now = window_with(" 0:00 / .*, stopped"), 0
        xdotool("windowfocus", "--sync", window)
        process = pathlib.Path("/proc") / xdotool("getwindowpid", window)[0]
        start = int((process / "maps").read_text().split("-")[0], 16)
        memory = stack.enter_context(open(process / "mem", "rb", buffering=0))
        for moment in json.loads(record.with_name(record.name + ".moments").read_text()):
            steps, rest = divmod(moment["at"] - now, STEP)
            for key, count in (("Right", steps), ("period", -(-rest // TICK))):  # the end stops it
                if count:
                    xdotool("key", "--delay", 0, "--repeat", count, "--repeat-delay", 0, key)
            now = moment["at"]
            block = lambda: memory.seek(start + address) and memory.read(store.SIZE).hex() == moment["block"]
            screen = lambda: screen_of(window, moment["size"], display) == moment["screen"]
            with contextlib.suppress(AssertionError):
                eventually(lambda: block() and screen(), "", 5)
                continue
            yield f"at {now}:{'' if block() else ' block'}{'' if screen() else ' screen'}"
        yield from re.findall("differs at.*", " ".join(xdotool("getwindowname", window)))


def play_in_windows(records):
    symbols = subprocess.run(["nm", GLIMRA], check=True, capture_output=True, text=True).stdout
    address = int(re.search(r"^(\w+) B gameApp$", symbols, re.M)[1], 16)
    with contextlib.ExitStack() as stack, tempfile.TemporaryDirectory() as folder:
        start_display(stack.callback, more=("-nocursor", "-fbdir", folder))
        with open(f"{folder}/Xvfb_screen0", "rb") as file, mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ) as display:
            return [[record, "window", *play_in_window(record, display, address)] for record in records]


def play_all(folder):
    records = sorted(file for file in folder.iterdir() if file.suffix in (".pilot", ".window", ".page"))
    with multiprocessing.Pool(LANES["play"]) as pool:
        results = pool.map(play_by_pilot, records)
        results += sum(pool.map(play_in_windows, [records[i::LANES["play"]] for i in range(LANES["play"])], 1), [])
    with page("play", folder) as by_page:
        results += [line.rstrip("\n").split("\t") for line in by_page.stdout]
    for record, host, *differences in results:
        for difference in differences:
            print(f"{record} in the {host}: {difference}")
    same = sum(len(result) == 2 for result in results)
    print(f"{len(records)} records: {same} of {3 * len(records)} plays are the same, at {MOMENTS + 1} moments each")
    sys.exit(not len(results) == same == 3 * len(records))


if __name__ == "__main__":
    {"record": record_all, "play": play_all}[sys.argv[1]](pathlib.Path(sys.argv[2]).absolute(), *sys.argv[3:])
