#!/usr/bin/env python3
"""The manual pages and --help name the same options, and the pilot's page names every command.

manual_test.py ROOT GLIMRA GLIMRA-PILOT
"""
import pathlib
import re
import subprocess
import sys

ROOT, EXECUTABLES = pathlib.Path(sys.argv[1]), map(pathlib.Path, sys.argv[2:])
faults = []


def expect_same(name, named, true):
    faults.extend(f"{name}: {word} is named in one place only" for word in named ^ true)


for executable in EXECUTABLES:
    file, = (ROOT / "packaging").glob(f"{executable.name}.[1-8]")
    page = file.read_text(encoding="utf-8").replace("\\-", "-")
    answer = subprocess.run([executable, "--help"], check=True, capture_output=True, text=True, timeout=20).stdout
    expect_same(executable.name, *(set(re.findall(r"(?<![\w-])--[a-z-]+", text)) for text in (page, answer)))
source = "".join((ROOT / "platform" / file).read_text(encoding="utf-8")
                 for file in ("pilot/player.cpp", "record/input_command.cpp"))
commands = set(re.findall(r'^ +\{"([a-z]+)", (?:&Player::|\{)', source, re.MULTILINE))
rows = re.findall(r"^([^|\n]+)\|T\{", page, re.MULTILINE)
expect_same("glimra-pilot", {part.split()[0] for row in rows for part in row.split(",")}, commands)
print("\n".join(faults))
sys.exit(bool(faults))
