#!/usr/bin/env python3
"""Cuts the power at every moment of a session, of its recovery and its end, and starts the game on what the disk may have.

power.py [--states N] [--seed N] GLIMRA GLIMRA-PILOT

The order of calls is that of real runs, by strace. What had not been brought to the disk may be there, or missing, or
in part, or zeros; names may be the old ones or the new. The game must then be there as it was at one moment, not
before the last save that had been brought to the disk. A second round leaves out that files were brought to the disk,
as if the game did not do it, and must find a fault.
"""
import ast
import pathlib
import re
import subprocess
import sys
import tempfile
import time

from faults import EARLY, PILOT, SECOND, game_of, interrupted, options, played, start, store

CALLS = "open,openat,write,fsync,fdatasync,rename,unlink,truncate,ftruncate"
TRACE = ["strace", "-D", "-f", "-y", "-s", "9999999", "-e", f"trace={CALLS}", "-e", "signal=none", "-o", "trace"]
STORE = "s/registry.reg"


def steps(folder):
    """What a run did in the folder, in order: the call, the name of the file, and the rest."""
    while not (log := (folder / "trace").read_text()).endswith("+++\n"):
        time.sleep(0.01)
    for call, words in re.findall(r"^\d+ +(\w+)\((.*)\) += \d", log, re.M):
        texts = [ast.literal_eval("b" + each) for each in re.findall(r'"(?:[^"\\]|\\.)*"', words)]
        opened = re.match(r"\d+<(.*?)>", words)
        file = folder / (opened[1] if opened else texts[0].decode())
        if file.is_relative_to(folder / "s"):
            yield call, str(file.relative_to(folder)), texts[-1] if texts else None, words


class File:
    def __init__(self, content=b""):
        self.safe, self.pending = content, []  # bytes that were appended, or a length that it was cut at

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

    def do(self, call, name, text, words, synced):
        file = self.names.get(name)
        if call in ("open", "openat") and "O_CREAT" in words:
            assert "O_TRUNC" not in words or not file
            file or self.name(name, File())
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
        elif "sync" in call and synced:
            *_, file.safe = file.variants()
            file.pending = []

    def states(self, chance):
        """What may be left: all that was done; names up to some moment, or any of them, with files of every kind."""
        yield {name: [*file.variants()][-1] for name, file in self.names.items() if file}
        for count in range(len(self.pending) + 1):
            for some in (self.pending[:count], [each for each in self.pending if chance.random() < 0.5]):
                names = {**self.safe, **dict(some)}
                for _ in range(6):
                    yield {name: chance.choice([*file.variants()]) for name, file in names.items() if file}


def sessions():
    """Real runs, each as the folder before it and its steps: a session, and the start after it was killed."""
    with interrupted() as folder:
        (folder / "s/records" / EARLY).unlink()
        disk = Disk(folder)
        subprocess.run([*TRACE, PILOT, "--store", "s", "--record", f"s/records/{EARLY}"], cwd=folder, check=True,
                       input=SECOND.encode() + b"close\n", stdout=subprocess.DEVNULL)
        yield "session", disk, [*steps(folder)]
    with interrupted() as folder:
        disk = Disk(folder)
        assert start(folder, *TRACE) == (0, "")
        yield "start", disk, [*steps(folder)]


def cuts(chance, synced):
    """Every state that a cut may leave: the moment, and the saves that the start may find then."""
    states = {}
    for run, disk, trace in sessions():
        saves = [disk.names[STORE].safe]
        for number, step in enumerate(trace, 1):
            disk.do(*step, synced)
            if step[0] == "rename":
                saves.append([*disk.names[STORE].variants()][-1])
            safe = disk.safe[STORE].safe
            since = len(saves) - 1 - saves[::-1].index(safe) if safe in saves else 0
            for state in disk.states(chance):
                states.setdefault(frozenset(state.items()), (f"{run}, {number} of {len(trace)} calls", saves[since:]))
        assert len(saves) > 2
    return sorted(states.items(), key=lambda each: each[1][0])


def game_in(content):
    with tempfile.TemporaryDirectory() as name:
        (pathlib.Path(name) / "registry.reg").write_bytes(content)
        return game_of(store.read_block(name))


def fault(state, saves):
    """Starts on a state; says what is wrong."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for file, content in state:
            (folder / file).parent.mkdir(parents=True, exist_ok=True)
            (folder / file).write_bytes(content)
        status, said = start(folder)
        try:
            game = game_of(store.read_block(folder / "s"))
        except (KeyError, AssertionError, ValueError):
            return f"ends with {status}, no game: {said}"
    records = [content for file, content in state if file.endswith(".pilot") and b"\n# came back" in content]
    whole = game in map(game_in, saves) or game in map(played, records)
    return "" if status == 0 and whole else f"ends with {status}, another game: {said}"


def main():
    given, chance = options(states=1 << 30)
    faults = {True: 0, False: 0}
    for synced in faults:
        states = cuts(chance, synced)
        for number, (state, (moment, saves)) in enumerate(chance.sample(states, min(given.states, len(states))), 1):
            if why := fault(state, saves):
                faults[synced] += 1
                print(f"after {moment}: {why}")
                if not synced:
                    break
        print(f"{'files' if synced else 'no files'} brought to the disk: {number} of {len(states)} states tried, "
              f"{faults[synced]} faults")
    print("seed", given.seed)
    sys.exit(faults[True] > 0 or not faults[False])


main()
