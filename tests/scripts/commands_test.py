#!/usr/bin/env python3
"""Runs every command line of README.md and CONTRIBUTING.md as far as --help.

    commands_test.py ROOT

Commands of the project must be executable and know --help; presets must exist; other programs are only looked for where
they are installed.
"""
import json
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(sys.argv[1]).resolve()
BUILT = re.compile(r"build/(?:release|sanitize|clang|fuzz)/")


def command_lines():
    """The indented lines of both pages, without what follows a #; several commands may share a line."""
    for page in ("README.md", "CONTRIBUTING.md"):
        for line in re.findall(r"^    (?=\S)(.+)$", (ROOT / page).read_text(encoding="utf-8"), re.MULTILINE):
            for command in re.split(r"&&|\|", line.split("  #")[0]):
                words = shlex.split(command.replace("$ ", "", 1).split(">")[0])
                if words[:1] == ["xargs"]:
                    words = words[1:]
                yield page, words


def fault(words):
    """What is wrong with a command, or nothing."""
    program = ROOT / words[0]
    if BUILT.match(words[0]):
        return ""  # a build makes it; its --help is the manual's test
    if "/" in words[0]:
        result = subprocess.run([program, "--help"], cwd=ROOT, capture_output=True, text=True, timeout=60, check=False)
        return "" if result.returncode == 0 and result.stdout else f"--help: {result.returncode} {result.stderr}"
    if words[0] in ("cmake", "ctest") and "--preset" in words:
        presets = json.loads((ROOT / "CMakePresets.json").read_text())
        kind = "test" if words[0] == "ctest" else "build" if "--build" in words else "configure"
        name = words[words.index("--preset") + 1]
        known = [preset["name"] for preset in presets[kind + "Presets"]]
        return "" if name in known else f"there is no {kind} preset {name}"
    missing = [word for word in words[1:] if re.match(r"(tests|bench|packaging|fuzz|docs|resources|build/web)/", word)
               and not any(ROOT.glob(word)) and not word.startswith("build/")]
    return f"there is no {missing[0]}" if missing else ""


def main():
    commands = [(page, words) for page, words in command_lines() if words]
    faults = []
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
