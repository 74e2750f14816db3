#!/usr/bin/env python3
"""Runs every command line of README.md and CONTRIBUTING.md as far as --help.

    commands_test.py ROOT

Scripts of the project must be executable and know --help, but for those that CTest runs; presets and files that are
named must exist. What a build makes is left to the manual's test, and other programs are not run.
"""
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(sys.argv[1]).resolve()


def is_script(name):
    """Whether it is a file that a shell could start, whatever its permissions."""
    path = ROOT / name
    return "/" in name and path.is_file() and path.read_bytes()[:2] == b"#!"


def command_lines():
    """The page and the words of each command: the indented lines without what follows a #, and what stands between
    backticks in a sentence if it begins with a script. Several commands may share a line."""
    for page in ("README.md", "CONTRIBUTING.md"):
        text = (ROOT / page).read_text(encoding="utf-8")
        named = [code for code in re.findall(r"`([^`\n]+)`", text) if is_script(code.split()[0])]
        for line in re.findall(r"^    (?=\S)(.+)$", text, re.MULTILINE) + named:
            for command in re.split(r"&&|\|", line.split("  #")[0]):
                words = shlex.split(command.split(">")[0].replace("xargs ", ""))
                if words:
                    yield page, words


def fault(words):
    """What is wrong with a command, or nothing."""
    program = ROOT / words[0]
    if re.match(r"build/(release|sanitize|clang|fuzz)/", words[0]):
        return ""  # a build makes it; its --help is the manual's test
    if words[0].startswith("tests/scripts/"):
        return "" if os.access(program, os.X_OK) else "it is not executable"
    if "/" in words[0]:
        result = subprocess.run([program, "--help"], cwd=ROOT, capture_output=True, text=True, timeout=60, check=False)
        last = result.stderr.strip().split("\n")[-1]
        return "" if result.returncode == 0 and result.stdout else f"--help: status {result.returncode}, {last}"
    if words[0] in ("cmake", "ctest") and "--preset" in words:
        presets = json.loads((ROOT / "CMakePresets.json").read_text())
        kind = "test" if words[0] == "ctest" else "build" if "--build" in words else "configure"
        name = words[words.index("--preset") + 1]
        known = [preset["name"] for preset in presets[kind + "Presets"]]
        return "" if name in known else f"there is no {kind} preset {name}"
    missing = [word for word in words[1:] if re.match(r"(tests|bench|packaging|fuzz|docs|resources)/", word)
               and not any(ROOT.glob(word))]
    return f"there is no {missing[0]}" if missing else ""


def main():
    commands, faults = [*command_lines()], []
    for page, words in commands:
        try:
            reason = fault(words)
        except OSError as error:
            reason = error.strerror
        if reason:
            faults.append(f"{page}: {shlex.join(words)}: {reason}")
    print("\n".join(faults) or f"{len(commands)} command lines.")
    sys.exit(bool(faults) or len(commands) < 15)


main()
