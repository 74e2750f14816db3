#!/usr/bin/env python3
"""Reads every include and holds the house to one direction.

    includes_test.py ROOT

A unit is a source with its header. It includes units of its own storey or of those below, never of
a storey above or beside it, and no chain of includes leads back to where it began. The program has
the handheld's public headers and the standard library; only a host includes what a machine has. The
tables are those of docs/ARCHITECTURE.md.
"""
import graphlib
import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
# From the roof to the ground; the storeys in one line stand side by side.
HANDHELD = [
    "pilot",
    "handheld",
    "shell",
    "controls",
    "user registry wave",
    "gdi",
    "resources record host/sdl host/web host/pilot",
    "base",
    "host",
    "public",
]
PROGRAM = [
    "app",
    "frontend sound input/buttons_dialog",
    "render",
    "engine",
    "input",
    "resources",
]
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def storeys(table, root):
    """Each storey's name and its rank, the ground first."""
    return {root + name: rank for rank, line in enumerate(reversed(table)) for name in line.split()}


RANKS = {**storeys(HANDHELD, "platform/"), **storeys(PROGRAM, "")}


def unit_of(path):
    return path.relative_to(ROOT).with_suffix("").as_posix()


def storey_of(unit):
    """The longest name in the tables that the unit's path begins with."""
    if unit.startswith("platform/") and unit.count("/") == 1 and unit != "platform/handheld":
        return "platform/public"
    return max((name for name in RANKS if f"{unit}/".startswith(f"{name}/")), key=len)


def may_leave(unit, bracket, name):
    """Whether a unit may include something that is not of this repository."""
    if bracket == "<" and re.fullmatch("[a-z_]+", name):
        return True  # of the standard library
    if name.startswith("SDL"):
        return unit.startswith("platform/host/sdl/")
    if name.startswith("emscripten"):
        return unit.startswith("platform/host/web/")
    return unit.startswith(("platform/host/", "platform/pilot/")) or unit == "platform/gdi/strikes/bake"


def read_units():
    """Every unit of the tables, with the units it includes; and what includes may not be."""
    includes, faults = {}, []
    for folder in sorted({name.split("/")[0] for name in RANKS}):
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix not in (".h", ".cpp") or "embed" in path.parts:
                continue
            unit = unit_of(path)
            own = includes.setdefault(unit, set())
            for bracket, name in INCLUDE.findall(path.read_text(encoding="utf-8")):
                found = [base / name for base in (ROOT, ROOT / "platform") if (base / name).is_file()]
                if found:
                    own.add(unit_of(found[0]))
                elif not may_leave(unit, bracket, name):
                    faults.append(f"{unit} may not include {name}")
    return includes, faults


def wrong_way(unit, other):
    """Why one unit may not include another, or nothing."""
    storey, below = storey_of(unit), storey_of(other)
    if storey == below:
        return ""
    if storey.startswith("platform/") != below.startswith("platform/"):
        return "" if below == "platform/public" else "crosses the line between program and handheld"
    if re.match("platform/host/.", below) and storey != "platform/pilot":
        return "is for nobody but the pilot and launch/ to know"
    if RANKS[below] < RANKS[storey]:
        return ""
    return "goes across" if RANKS[below] == RANKS[storey] else "goes up"


def documented():
    """The first column of the two tables in docs/ARCHITECTURE.md."""
    text = (ROOT / "docs/ARCHITECTURE.md").read_text(encoding="utf-8")
    blocks = re.findall(r"```\n(.*?)```", text.split("## Two towers")[1], re.DOTALL)[:2]
    return [[re.split(r"  +", line)[0] for line in block.splitlines()] for block in blocks]


units, faults = read_units()
if documented() != [HANDHELD, PROGRAM]:
    faults.append("docs/ARCHITECTURE.md has other tables of storeys")
for unit, others in units.items():
    others.discard(unit)
    for other in sorted(others):
        if reason := wrong_way(unit, other):
            faults.append(f"{unit} includes {other}: {reason}")
try:
    graphlib.TopologicalSorter(units).prepare()
except graphlib.CycleError as error:
    faults.append(f"a circle: {' -> '.join(reversed(error.args[1]))}")
print("\n".join(faults) or f"{len(units)} units, one direction.")
sys.exit(bool(faults))
