#!/usr/bin/env python3
"""The manual pages and --help tell of the same options, and the pilot's page of every command.

manual_test.py ROOT EXECUTABLE...
"""
import pathlib
import re
import subprocess
import sys

ROOT, EXECUTABLES = pathlib.Path(sys.argv[1]), sys.argv[2:]


def differences(what, told, true):
    return [f"{what}: {name} is told of in one place only" for name in sorted(told ^ true)]


def page_of(name):
    page, = (ROOT / "packaging").glob(f"{name}.[1-8]")
    return page.read_text(encoding="utf-8").replace("\\-", "-")


found = []
for executable in EXECUTABLES:
    program = pathlib.Path(executable).name
    answer = subprocess.run([executable, "--help"], check=True, capture_output=True, text=True, timeout=20).stdout
    options = [set(re.findall(r"(?<![\w-])--[a-z]+", text)) for text in (page_of(program), answer)]
    found += differences(program, *options)
source = (ROOT / "platform/host/pilot/player.cpp").read_text(encoding="utf-8")
commands = set(re.findall(r'^ +\{"([a-z]+)", \{', source, re.MULTILINE))
rows = re.findall(r"^([^|\n]+)\|T\{", page_of("glimra-pilot"), re.MULTILINE)
found += differences("glimra-pilot", {part.split()[0] for row in rows for part in row.split(",")}, commands)
print("\n".join(found) or "The manual tells what there is.")
sys.exit(bool(found))
