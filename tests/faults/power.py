#!/usr/bin/python3
"""Cuts the power at every moment of a session, of its recovery and its end, and starts the game on what the disk may have.

power.py [--states N] [--seed N] GLIMRA GLIMRA-PILOT

The order of calls is that of real runs, by strace. What had not been brought to the disk may be there, or missing, or
in part, or zeros; names may be the old ones or the new. The game must then be there as it was at one moment, not
before the last save that had been brought to the disk. A second round leaves out that files were brought to the disk,
as if the game did not do it, and must find a fault.
"""
import argparse
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import time

from faults import EARLY, FIRST, GLIMRA, PILOT, SECOND, game_of, interrupted, played, start, store

CALLS = "openat,open,write,pwrite64,fsync,fdatasync,rename,unlink,mkdir,truncate,ftruncate"
TRACE = ["strace", "-D", "-f", "-y", "-xx", "-s", "9999999", "-e", f"trace={CALLS}", "-o", "trace"]


def text(hexadecimal):
    return bytes.fromhex(hexadecimal.replace("\\x", ""))


def steps(folder):
    """What a run did below the store, in order: ("write", file, bytes), ("name", file, file that it was), ..."""
    while not (log := (folder / "trace").read_text()).endswith("+++\n"):
        time.sleep(0.01)
    assert "unfinished" not in log or not re.search(r"/s/.*<unfinished", log)
    for line in log.splitlines():
        call, _, rest = line.partition(" ")[2].strip().partition("(")
        if re.search(r"= -1 |\+\+\+|---", line):
            continue
        paths = [text(each).decode() for each in re.findall(r'"((?:\\x..)*)"', rest)]
        descriptor = re.match(r"\d+<(.*?)>", rest)
        if descriptor:
            file = text(descriptor[1]).decode() if descriptor[1].startswith("\\x") else descriptor[1]
        else:
            file = str(folder / paths[0]) if paths else ""
        if not file.startswith(f"{folder}/s"):
            continue
        name = lambda path: str((folder / path).relative_to(folder))
        if call in ("open", "openat") and "O_CREAT" in rest:
            yield "make", name(paths[0]), "O_TRUNC" in rest
        elif call == "write":
            yield "write", name(file), text(re.search(r'"((?:\\x..)*)"', rest)[1])
        elif call in ("truncate", "ftruncate"):
            yield "cut", name(file), int(re.search(r", (\d+)\)", rest)[1])
        elif call in ("fsync", "fdatasync"):
            yield "sync", name(file), None
        elif call == "rename":
            yield "rename", name(paths[0]), name(paths[1])
        elif call == "unlink":
            yield "unlink", name(paths[0]), None


class File:
    def __init__(self, content=b""):
        self.safe, self.pending = content, []  # bytes to append, or a length to cut at

    def variants(self):
        """What the disk may have of it, in the order of time."""
        content = self.safe
        for number, change in enumerate(self.pending):
            yield content
            if isinstance(change, int):
                content = content[:change]
                continue
            later = [each for each in self.pending[number + 1:] if isinstance(each, bytes)]
            yield content + change[:len(change) // 2]
            yield content + bytes(len(change))
            yield content + bytes(len(change)) + b"".join(later)
            content += change
        yield content


class Disk:
    def __init__(self, folder):
        self.safe = {str(file.relative_to(folder)): File(file.read_bytes()) for file in folder.glob("s/**/*")
                     if file.is_file()}
        self.names = dict(self.safe)
        self.pending = []  # (name, file or None), in order

    def name(self, name, file):
        self.pending.append((name, file))
        self.names[name] = file

    def do(self, step, synced):
        kind, name, more = step
        file = self.names.get(name)
        if kind == "make" and not file:
            self.name(name, File())
        elif kind == "make" and more:
            file.pending.append(0)
        elif kind in ("write", "cut"):
            file.pending.append(more)
        elif kind == "sync" and file and synced:
            *_, file.safe = file.variants()
            file.pending = []
        elif kind == "sync" and not file:  # a folder
            own = [each for each in self.pending if str(pathlib.Path(each[0]).parent) == name]
            self.safe.update(own)
            self.pending = [each for each in self.pending if each not in own]
        elif kind == "rename":
            self.name(more, file)
            self.name(name, None)
        elif kind == "unlink":
            self.name(name, None)

    def states(self, chance):
        """What may be left: mostly names up to some moment, once in a while any of them; and files of every kind."""
        for count in range(len(self.pending) + 1):
            for some in (self.pending[:count], [each for each in self.pending if chance.random() < 0.5]):
                names = {**self.safe, **dict(some)}
                for _ in range(6):
                    yield {name: chance.choice(list(file.variants())) for name, file in names.items() if file}
                yield {name: file.safe for name, file in names.items() if file}


def sessions():
    """Real runs, each as the folder before it and its steps: a session, and the start after it was killed."""
    for run in ("session", "start"):
        with interrupted() as folder:
            if run == "session":
                (folder / "s/records" / EARLY).unlink()
            disk = Disk(folder)
            if run == "session":
                script = ["--store", "s", "--record", f"s/records/{EARLY}"]
                subprocess.run([*TRACE, PILOT, *script], input=SECOND.encode() + b"close\n", cwd=folder, check=True,
                               stdout=subprocess.DEVNULL)
            else:
                assert start(folder, *TRACE)[0] == 0
            yield run, disk, list(steps(folder))


def game_in(content):
    with tempfile.TemporaryDirectory() as name:
        (pathlib.Path(name) / "registry.reg").write_bytes(content)
        return game_of(store.read_block(name))


def fault(state, allowed):
    """Starts on a state; says what is wrong."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "s/records").mkdir(parents=True)
        for file, content in state.items():
            (folder / file).write_bytes(content)
        status, said = start(folder)
        if status != 0:
            return f"ends with {status}: {said}"
        try:
            found = game_of(store.read_block(folder / "s"))
        except (KeyError, AssertionError, ValueError):
            return f"no game is there; {said}"
    records = [content for file, content in state.items() if file.endswith(".pilot") and b"\n# came back" in content]
    return "" if found in allowed or found in map(played, records) else f"another game is there; {said}"


def cuts(chance, synced):
    """Every state that a cut may leave: the moment, and the saves that the start may find then."""
    states = {}
    for run, disk, trace in sessions():
        saves = [disk.names["s/registry.reg"].safe]
        for number, step in enumerate([None, *trace]):
            if step:
                disk.do(step, synced)
            if step and step[0] == "rename" and step[2] == "s/registry.reg":
                *_, content = disk.names[step[2]].variants()
                saves.append(content)
            safe = disk.safe["s/registry.reg"].safe
            since = len(saves) - 1 - saves[::-1].index(safe) if safe in saves else 0
            for state in disk.states(chance):
                states.setdefault(frozenset(state.items()), (f"{run}, {number} of {len(trace)} calls", since, saves))
        assert len(saves) > 2 and any(step[0] == "sync" for step in trace)
    return sorted(states.items(), key=lambda each: each[1][0])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--states", type=int, default=1 << 30)
    parser.add_argument("--seed", type=int, default=random.randrange(1 << 32))
    options = parser.parse_args()
    chance = random.Random(options.seed)
    wrong = {True: [], False: []}
    for synced, found in wrong.items():
        states = cuts(chance, synced)
        chosen = chance.sample(states, min(options.states, len(states)))
        for number, (state, (moment, since, saves)) in enumerate(chosen, 1):
            why = fault(dict(state), {game_in(save) for save in saves[since:]})
            if why:
                found.append(f"after {moment}: {why}")
                print(found[-1])
                if not synced:
                    break
        print(f"{'files' if synced else 'no files'} brought to the disk: {number} of {len(states)} states tried, "
              f"{len(found)} faults")
    print("seed", options.seed)
    sys.exit(bool(wrong[True]) or not wrong[False])


main()
