#!/usr/bin/env python3
"""Reads every include and holds the lines between the program, the handheld and the hosts.

includes_test.py ROOT
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
PROGRAM = ("app", "engine", "render", "input", "sound", "frontend")
PUBLIC = {"windows.h", "aygshell.h", "gx.h", "mmsystem.h", "winbase.h", "windef.h", "wingdi.h", "winreg.h",
          "winuser.h"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def is_standard(bracket, name):
    return bracket == "<" and re.fullmatch(r"[a-z_]+", name) is not None


def program_may(path, bracket, name):
    """The public headers, the program's own, the standard library."""
    own = bracket == '"' and name.split("/")[0] in (*PROGRAM, "resources") and (ROOT / name).exists()
    return own or name in PUBLIC or is_standard(bracket, name)


def platform_may(path, bracket, name):
    """Its own headers and the standard library; SDL and the browser in a folder each, the system and libpng in hosts, fonts
    where they are baked."""
    if bracket == '"':
        return (ROOT / "platform" / name).exists()
    folder = path.relative_to(ROOT / "platform").parts
    in_host = folder[0] == "host"
    if name.startswith("SDL"):
        return folder[:2] == ("host", "sdl")
    if name.startswith("emscripten"):
        return folder[:2] == ("host", "web")
    return is_standard(bracket, name) or in_host or path.name == "bake.cpp"


def faults(folder, may):
    for path in sorted((ROOT / folder).rglob("*")):
        if path.suffix in (".h", ".cpp"):
            for bracket, name in INCLUDE.findall(path.read_text(encoding="utf-8")):
                if not may(path, bracket, name):
                    yield f"{path.relative_to(ROOT)} may not include {name}"


found = [fault for folder in PROGRAM for fault in faults(folder, program_may)]
found += faults("platform", platform_may)
print("\n".join(found) or "The includes keep to their side of the lines.")
sys.exit(bool(found))
