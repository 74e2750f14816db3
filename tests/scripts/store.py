"""Scripts for glimra-pilot, and the store that they leave or find, read and written independently of the game."""
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "support"))
from names import expand  # noqa: E402, it is found by the line above

KEY = r"HKEY_LOCAL_MACHINE\Software\Apps\Orvendel Glimra"
FIRST_LINE = "Windows Registry Editor Version 5.00"
SIZE = 2496
TITLE, PLAYING = 1, 3
RUNNING, PAUSED, ENDING, OVER = range(4)
# Where 32-bit fields lie in the block.
OFFSETS = {"appState": 0, "requestedState": 4, "state": 32, "x": 456, "y": 460, "rotation": 480, "deadline": 584,
           "lines": 616, "level": 620, "score": 624, "mode": 640, "queueLength": 648, "page": 724}
ENTRY = struct.Struct("<3i24s")


class FolderTest(unittest.TestCase):
    """Plays in a folder of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def read(self, name):
        return (self.folder / name).read_bytes()


def play(pilot, script, *options, status=0, folder=None):
    """Runs a script to its end; returns the lines that it printed and its standard error."""
    result = subprocess.run([pilot, *map(str, options)], input=expand(script), cwd=folder, capture_output=True, text=True,
                            timeout=120)
    assert result.returncode == status, f"{script}\n{result.stdout}{result.stderr}"
    return result.stdout.splitlines(), result.stderr


def field(block, name):
    return struct.unpack_from("<i", block, OFFSETS[name])[0]


def keys(block):
    return [struct.unpack_from("<I", block, 660 + 8 * action)[0] for action in range(8)]


def scores(block, table):
    """(name, score, lines, level) of each of the eight rows."""
    rows = ENTRY.iter_unpack(block[744 + 292 * table + 4:744 + 292 * (table + 1)])
    return [(name.decode("utf-16-le").split("\0")[0], *numbers) for *numbers, name in rows]


def changed(block, **fields):
    copy = bytearray(block)
    for name, value in fields.items():
        struct.pack_into("<i", copy, OFFSETS[name], value)
    return bytes(copy)


def read(file):
    """The values of each key, as text."""
    text = pathlib.Path(file).read_text(encoding="utf-8")
    first, *lines = re.sub(r"\\\n +", "", text).split("\n")
    assert first == FIRST_LINE and text.endswith("\n")
    found, values = {}, None
    for line in filter(None, lines):
        if line.startswith("["):
            values = found.setdefault(line[1:-1], {})
        else:
            name, value = re.fullmatch(r'(@|"[^"]*")=(.+)', line).groups()
            values[name.strip('"')] = value
    return found


def binary(value):
    return bytes.fromhex(value.removeprefix("hex:").replace(",", ""))


def read_block(folder):
    values = read(pathlib.Path(folder) / "registry.reg")[KEY]
    assert values["version"] == "dword:00000003"
    block = binary(values["app"])
    assert len(block) == SIZE
    return block


def write_block(folder, block, version=3, more=""):
    folder = pathlib.Path(folder)
    folder.mkdir(exist_ok=True)
    text = f'{FIRST_LINE}\n\n[{KEY}]\n"version"=dword:{version:08x}\n"app"=hex:{block.hex(",")}\n{more}'
    (folder / "registry.reg").write_text(text)
