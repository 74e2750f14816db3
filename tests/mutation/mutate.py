#!/usr/bin/env python3
"""Changes the rules, the registry and the store one operator or number at a time; the tests should notice.

    mutate.py [--sample COUNT] [--seed SEED] [--folder FOLDER] [FILE...]

Each change is built in a copy of the tree (in FOLDER, build/mutation if none is named), and what ./test -LE real-time
runs is run, the fitting tests first, to the first failure; one that takes too long counts as noticed. A change that
the compiler refuses does not count. Results are kept in FOLDER, so that a run that was stopped goes on where it was.
README.md beside this file says which changes nobody can notice.
"""
import argparse
import collections
import contextlib
import filecmp
import glob
import json
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
FILES = ["engine/*.cpp", "app/settings_check.cpp", "platform/registry/*.cpp", "platform/host/store_file.cpp"]
# The tests by which the changes of a folder are noticed soonest; all others follow.
FITTING = {"engine": ["program_tests", "rules_model"], "app": ["program_tests", "store"],
           "platform/registry": ["handheld_tests", "store"], "platform/host": ["host_tests", "store"]}
SWAPS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "+": "-", "-": "+", "+=": "-=", "-=": "+=",
         "++": "--", "--": "++", "&&": "||", "||": "&&", "true": "false", "false": "true"}
EACH_ALONE = ["sh", "-c", 'program=$1; shift; for test; do "$program" "$test" || exit 1; done', "sh"]
TOKEN = re.compile(r"""(?P<skipped>//[^\n]*|/\*.*?\*/|^\#(?:[^\n\\]|\\.)*|static_assert\(.*?\);
                       |u?"(?:[^"\\\n]|\\.)*"|u?'(?:[^'\\\n]|\\.)+')
                     |return\s(?P<value>(?:u?'[^\n]'|[^;{}'])+);
                     |(?P<number>\b(?:0[xX][0-9a-fA-F']+|\d[\d']*)[uUlL]*\b)|(?P<word>\w+)
                     |(?P<operator><<=|>>=|<=>|->|<<|>>|[=!<>+|&-]=|&&|\|\||\+\+|--|[<>+-])""",
                   re.VERBOSE | re.MULTILINE | re.DOTALL)

Change = collections.namedtuple("Change", "file start end old new where")


def numbers_beside(text):
    """The number one higher and the one lower, written as the number was."""
    digits, suffix = re.fullmatch(r"(.*?)([uUlL]*)", text.replace("'", "")).groups()
    base, form = (16, "0x{:x}") if digits.startswith("0x") else (8, "0{:o}") if digits[0] == "0" != digits else (10, "{}")
    value = int(digits, base)
    return [form.format(other) + suffix for other in (value + 1, value - 1) if other >= 0 or not suffix]


def changes_in(file):
    """Every change of a file, in order."""
    text = (ROOT / file).read_text(encoding="utf-8")
    at = 0
    while token := TOKEN.search(text, at):
        kind = "value" if token["value"] else token.lastgroup
        start, end = token.span(kind)
        at = start if kind == "value" else end  # what is returned has operators, too
        old, new = text[start:end], []
        if kind == "number":
            new = numbers_beside(old)
        elif kind == "value" and old not in ("nullptr", "false", "true", "0"):
            new = ["{}"]
        elif old in ("++", "--") or kind == "word" or (text[start - 1].isspace() and text[end].isspace()):
            new = [SWAPS[old]] if old in SWAPS else []
        line = text.count("\n", 0, start) + 1
        where = f"{file}:{line}:{start - text.rfind(chr(10), 0, start)}"
        for each in new:
            yield Change(file, start, end, old, each, f"{where}: {' '.join(old.split())} -> {each}")


def run(command, folder, limit):
    """Whether a command worked, within its time. What it started ends with it."""
    with subprocess.Popen(command, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, start_new_session=True) as process:
        try:
            return process.wait(limit) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)


class Bench:
    """A copy of the tree with its build, and the commands that test it."""

    def __init__(self, folder):
        self.tree, self.build = folder / "tree", folder / "build"
        listed = subprocess.run(["git", "ls-files", "-z", "-c", "-o", "--exclude-standard"], cwd=ROOT, check=True,
                                capture_output=True, text=True).stdout
        for name in filter(lambda name: (ROOT / name).is_file(), listed.split("\0")):
            copy = self.tree / name
            copy.parent.mkdir(parents=True, exist_ok=True)
            if not copy.exists() or not filecmp.cmp(ROOT / name, copy, shallow=False):
                shutil.copy(ROOT / name, copy)
        subprocess.run(["cmake", "-G", "Ninja", "-S", self.tree, "-B", self.build, "-DCMAKE_BUILD_TYPE=None",
                        "-DCMAKE_CXX_FLAGS=-O1", "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST",
                        f"-DPython3_EXECUTABLE={sys.executable}"], check=True, stdout=subprocess.DEVNULL)
        if not self.make("all"):
            sys.exit(f"{self.tree} does not build as it is")
        self.tests = self.commands()
        for name, command in self.tests.items():
            before = time.monotonic()
            if not run(command, self.build, 600):
                sys.exit(f"{name} fails without a change")
            self.tests[name] = (command, 30 + 6 * (time.monotonic() - before))

    def make(self, *targets):
        return run(["cmake", "--build", self.build, "-j2", "--target", *targets], self.build, 900)

    def commands(self):
        """What CTest would run, by name; the unit tests of one program together. A test that runs nothing of the build
        cannot notice anything."""
        shown = subprocess.run(["ctest", "--show-only=json-v1", "-LE", "real-time"], cwd=self.build, check=True,
                               capture_output=True, text=True).stdout
        found = {}
        for test in json.loads(shown)["tests"]:
            command = test["command"]
            if filters := [part for part in command if part.startswith("--gtest_filter")]:
                found.setdefault(pathlib.Path(command[0]).name, [*EACH_ALONE, command[0]]).extend(filters)
            elif self.built(command):
                found[test["name"]] = command
        return found

    def built(self, command):
        """The targets that a command runs."""
        return [part.removeprefix(f"{self.build}/") for part in command if part.startswith(f"{self.build}/")]

    def judge(self, change):
        """What the tests say of a change: which one noticed it, None if none did, "" if it does not build."""
        text = (ROOT / change.file).read_text(encoding="utf-8")
        first = FITTING[str(pathlib.Path(change.file).parent)]
        order = sorted(self.tests, key=lambda name: first.index(name) if name in first else len(first))
        (self.tree / change.file).write_text(text[:change.start] + change.new + text[change.end:], encoding="utf-8")
        try:
            for name in order:
                command, limit = self.tests[name]
                if not self.make(*self.built(command)):
                    return ""
                if not run(command, self.build, limit):
                    return name
            return None
        finally:
            (self.tree / change.file).write_text(text, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sample", type=int, help="how many changes; all if it is not said")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--folder", type=pathlib.Path, default=ROOT / "build/mutation")
    parser.add_argument("files", nargs="*", metavar="FILE")
    options = parser.parse_args()
    files = options.files or sorted(name for pattern in FILES for name in glob.glob(pattern, root_dir=ROOT))
    changes = [change for file in files for change in changes_in(file)]
    sample = random.Random(options.seed).sample(changes, len(changes))[:options.sample]
    options.folder.mkdir(parents=True, exist_ok=True)
    bench, known = Bench(options.folder.resolve()), {}
    with open(options.folder / "results", "a+", encoding="utf-8") as kept:
        kept.seek(0)
        before = dict(reversed(line.rstrip("\n").split("\t")) for line in kept)
        for change in sample:
            if change.where not in before:
                name = bench.judge(change)
                before[change.where] = "survived" if name is None else f"noticed by {name}" if name else "refused"
                print(f"{before[change.where]}: {change.where}", flush=True)
                print(before[change.where], change.where, sep="\t", file=kept, flush=True)
            known[change.where] = before[change.where]
    counted = [result for result in known.values() if result != "refused"]
    noticed = sum(result != "survived" for result in counted)
    print(f"{noticed} of {len(counted)} noticed; {len(known) - len(counted)} refused by the compiler")
    print("\n".join(sorted(f"survived: {where}" for where, result in known.items() if result == "survived")))


if __name__ == "__main__":
    main()
