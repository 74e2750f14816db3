"""A game that goes wrong: what it begins with, how it is started, and what must be there afterwards.

The last words of the command line are GLIMRA GLIMRA-PILOT.
"""
import argparse
import base64
import contextlib
import functools
import os
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "scripts"))
import store  # noqa: E402, it is found by the line above
from desktop import GLIMRA, PILOT  # noqa: E402


def options(**numbers):
    """The numbers of the command line, and chance by its seed."""
    parser = argparse.ArgumentParser()
    for name, default in {**numbers, "seed": random.randrange(1 << 32)}.items():
        parser.add_argument(f"--{name}", type=int, default=default)
    given, sys.argv[1:] = parser.parse_known_args()
    return given, random.Random(given.seed)


HANGS = -99  # in the place of an exit status
UNSEEN = {"SDL_VIDEODRIVER": "dummy", "SDL_AUDIODRIVER": "dummy"}
os.environ["ASAN_OPTIONS"] = "detect_leaks=0"  # its libraries leak, and strace stands in the way
EARLY = "2026-01-02 03.04.05.pilot"
FIRST = "menu IDM_NEW_GAME\nwait 1500\npress 38\nwait 700\npress 37\nwait 300\nclose\n"
SECOND = ("tap 120 150\nwait 1000\npress 38\nwait 2000\naway\nwait 500\nback\ntap 120 150\nwait 300\npress 38\n"
          "wait 1200\npress 37\nwait 300\n")


@functools.cache
def prepared():
    """Made once: in the store `s` a game, and the record of a session that went on with it and was killed."""
    made = tempfile.TemporaryDirectory()
    folder = pathlib.Path(made.name)
    store.play(PILOT, FIRST, "--store", "s", folder=folder)
    (folder / "s/records").mkdir()
    store.play(PILOT, SECOND + "kill\n", "--store", "s", "--record", f"s/records/{EARLY}", folder=folder)
    return made


@contextlib.contextmanager
def interrupted():
    """A folder of one's own with that."""
    with tempfile.TemporaryDirectory() as name:
        shutil.copytree(prepared().name, name, dirs_exist_ok=True)
        yield pathlib.Path(name)


def listens(process):
    """It has come so far that a signal closes it in order."""
    with contextlib.suppress(FileNotFoundError):
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
        caught = int(status.split("SigCgt:")[1].split()[0], 16)
        return caught >> signal.SIGURG - 1 & 1
    return True


def ended(game):
    """Its exit status, or HANGS, and what it said."""
    try:
        _, said = game.communicate(timeout=20)
        return game.returncode, said
    except subprocess.TimeoutExpired:
        game.kill()
        return HANGS, game.communicate()[1]


def launch(folder, *words, environment=(), before=None, scale=1):
    return subprocess.Popen([*words, GLIMRA, "--store", "s", "--scale", str(scale)], cwd=folder, stderr=subprocess.PIPE, text=True,
                            env={**os.environ, **UNSEEN, "HOME": str(folder), **dict(environment)}, preexec_fn=before)


def start(folder, *words, **how):
    """Starts the desktop game without a display and closes it; returns as `ended` does."""
    game = launch(folder, *words, **how)
    try:
        deadline = time.monotonic() + 20
        while game.poll() is None and not listens(game) and time.monotonic() < deadline:
            time.sleep(0.002)
        game.send_signal(signal.SIGTERM)
        return ended(game)
    finally:
        game.kill()
        game.communicate()


def game_of(block):
    """What a player would miss: the well, the piece, the results; whether the game goes on."""
    state = tuple(store.field(block, name) for name in ("requestedState", "state"))
    return block[36:576], block[616:632], state


def stored(folder):
    return game_of(store.read_block(folder / "s"))


def played(record, look=stored):
    """The game that a record leads to, as far as it was written, when the program is closed there; or what `look` finds."""
    lines = record.split(b"\0")[0].split(b"\n")[:-1]
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "s").mkdir()
        (folder / "s/registry.reg").write_bytes(base64.b64decode(b"".join(b[3:] for b in lines if b.startswith(b"#: "))))
        ends = [b"close"] if b"close" not in lines else []
        (folder / "script").write_bytes(b"\n".join(lines + ends) + b"\n")
        subprocess.run([PILOT, "--store", "s", "script"], cwd=folder, check=True, timeout=60,
                       stdout=subprocess.DEVNULL)
        return look(folder)
