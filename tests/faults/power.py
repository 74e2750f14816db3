#!/usr/bin/env python3
"""Cuts the power at every moment of a session, of its recovery and its end, and starts the game on what the disk may have.

power.py [--states N] [--seed N] GLIMRA GLIMRA-PILOT

The order of calls is that of a real run, by strace. What had not been brought to the disk may be there, or missing, or
in part, or zeros; names may be the old ones or the new. The game must then be there as it was at one moment, not more
than two seconds before. Further rounds leave out that the store or the record was brought to the disk, as if the game
did not do it, and must find a fault.
"""
import ast
import atexit
import copy
import pathlib
import re
import sys
import tempfile
import time

from faults import ended, interrupted, launch, options, played, start, stored
from desktop import focus_window, start_display, xdotool

CALLS = "open,openat,write,fsync,fdatasync,rename,unlink,truncate,ftruncate"
TRACE = ["strace", "-D", "-f", "-y", "-s", "9999999", "-e", f"trace={CALLS}", "-e", "signal=none", "-o", "trace"]
RECORD, DONE = "records/", b"# closed\n"
LATE = 2500  # milliseconds that may be missing: two seconds, and while a record is brought to the disk


def steps(folder):
    """What a run did in the folder, in order: the call, the name of the file, and the rest. A sync during which
    others were made comes twice, first as "begun"."""
    while not (log := (folder / "trace").read_text()).endswith("+++\n"):
        time.sleep(0.01)
    begun = {}
    line = r"^(\d+) +(?:<\.\.\. )?(\w+)(?: resumed>|\()(.*)(\) += \d| <unf)"
    for thread, call, words, end in re.findall(line, log, re.M):
        words = begun.pop(thread, "") + words
        if end == " <unf":
            begun[thread] = words
            if "sync" not in call:
                continue
            call = "begun"
        texts = [ast.literal_eval("b" + each) for each in re.findall(r'"(?:[^"\\]|\\.)*"', words)]
        opened = re.match(r"\d+<(.*?)>", words)
        file = folder / (opened[1] if opened else texts[0].decode())
        if file.is_relative_to(folder / "s"):
            yield call, str(file.relative_to(folder)), texts[-1] if texts else None, words


class File:
    def __init__(self, content=b""):
        self.safe, self.pending = content, []  # bytes that were appended, or a length that it was cut at
        self.asked = None  # how many of these are on their way to the disk

    def variants(self):
        """What the disk may have of it, in the order of time."""
        content = self.safe
        for number, change in enumerate(self.pending):
            yield content
            if isinstance(change, int):
                content = content[:change]
                continue
            yield content + change[:len(change) // 2]
            yield content + bytes(len(change)) + b"".join(each for each in self.pending[number + 1:] if isinstance(each, bytes))
            content += change
        yield content


class Disk:
    def __init__(self, folder):
        self.safe = {str(file.relative_to(folder)): File(file.read_bytes())
                     for file in folder.glob("s/**/*") if file.is_file()}
        self.names, self.pending = dict(self.safe), []  # what each name stands for; the changes of that: (name, file)

    def name(self, name, file):
        self.pending.append((name, file))
        self.names[name] = file

    def do(self, call, name, text, words, left_out):
        file = self.names.get(name)
        if call in ("open", "openat") and "O_CREAT" in words:
            assert "O_TRUNC" not in words or not file
            file or self.name(name, File())
        elif call == "begun" and file:
            file.asked = len(file.pending)
        elif call == "write":
            file.pending.append(text)
        elif call in ("truncate", "ftruncate"):
            file.pending.append(int(words.split()[-1]))
        elif call == "rename":
            self.name(text.decode(), file)
            self.name(name, None)
        elif call == "unlink":
            self.name(name, None)
        elif "sync" in call and not file:  # a folder
            own = [each for each in self.pending if str(pathlib.Path(each[0]).parent) == name]
            self.safe.update(own)
            self.pending = [each for each in self.pending if each not in own]
        elif "sync" in call and left_out not in name:
            count = len(file.pending) if file.asked is None else file.asked
            later, file.pending = file.pending[count:], file.pending[:count]
            *_, file.safe = file.variants()
            file.pending, file.asked = later, None

    def states(self, chance):
        """What may be left: all that was done; names up to some moment, or any of them, with files of every kind."""
        yield {name: [*file.variants()][-1] for name, file in self.names.items() if file}
        for count in range(len(self.pending) + 1):
            for some in (self.pending[:count], [each for each in self.pending if chance.random() < 0.5]):
                names = {**self.safe, **dict(some)}
                for _ in range(6):
                    yield {name: chance.choice([*file.variants()]) for name, file in names.items() if file}


def session():
    """A real run: the folder before it, and its steps. It recovers a game, which is played for a while and paused."""
    with interrupted() as folder:
        disk = Disk(folder)
        game = launch(folder, *TRACE, environment={"SDL_VIDEODRIVER": "x11"})
        focus_window(game)
        xdotool("mousemove", "--window", game.window, 120, 150, "click", 1, "sleep", 1, "key", "Up", "sleep", 1.5,
                "key", "Left", "sleep", 1.5, "key", "Up", "sleep", 3, "key", "Escape", "sleep", 2)
        game.terminate()
        assert ended(game) == (0, "")
        return disk, [*steps(folder)]


def timeline(record):
    """A record after each line: its length, the milliseconds that it has, and the game that it leads to."""
    lines, at = record.splitlines(keepends=True), 0
    beginning = max(number for number, line in enumerate(lines, 1) if line.startswith(b"#: "))
    for count in range(beginning, len(lines) + 1):
        word, *rest = lines[count - 1].split()
        at += int(rest[0]) if word in (b"wait", b"jump") else 0
        text = b"".join(lines[:count])
        yield len(text), at, played(text)


def cuts(disk, trace, games, chance, left_out):
    """Every state that a cut may leave: the moment, and the games that the start may find then."""
    states, size = {}, 0
    for number, step in enumerate(trace, 1):
        disk.do(*step, left_out)
        size += len(step[2]) if step[0] == "write" and RECORD in step[1] and step[2] != DONE else 0
        so_far = [each for each in games if each[0] <= size] or games[:1]
        late = {game for _, at, game in so_far if at >= so_far[-1][1] - LATE}
        for state in disk.states(chance):
            states.setdefault(frozenset(state.items()), (f"{number} of {len(trace)} calls", late))
    return sorted(states.items(), key=lambda each: each[1][0])


def fault(state, games):
    """Starts on a state; says what is wrong."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for file, content in state:
            (folder / file).parent.mkdir(parents=True, exist_ok=True)
            (folder / file).write_bytes(content)
        status, said = start(folder)
        try:
            game = stored(folder)
        except (KeyError, AssertionError, ValueError):
            return f"ends with {status}, no game: {said}"
    return "" if status == 0 and game in games else f"ends with {status}, another game: {said}"


def main():
    given, chance = options(states=1 << 30)
    failed = False
    start_display(atexit.register)
    disk, trace = session()
    written = [text for call, name, text, _ in trace if call == "write" and RECORD in name and text != DONE]
    games = [*timeline(b"".join(written))]
    for left_out in ("nothing", "registry", RECORD):
        faults, states = [], cuts(copy.deepcopy(disk), trace, games, chance, left_out)
        for number, (state, (moment, late)) in enumerate(chance.sample(states, min(given.states, len(states))), 1):
            if why := fault(state, late):
                faults.append(f"after {moment}: {why}")
                print(faults[-1])
                if left_out != "nothing":
                    break
        print(f"{left_out} left out: {number} of {len(states)} states tried, {len(faults)} faults", flush=True)
        failed = failed or bool(faults) == (left_out == "nothing")
    print("seed", given.seed)
    sys.exit(failed)


main()
