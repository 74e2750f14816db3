#!/usr/bin/env python3
"""Lets each call for a file or a socket fail, one in each run, while a game is begun, played, kept, and recovered.

calls.py [--every N] [--display] [--seed N] FAILING-CALL GLIMRA GLIMRA-PILOT

No run may crash or hang, the start after it must find one whole state of the game, and when the run was silent,
everything must be as if no call had failed. --every N takes one of N calls; --display begins the desktop game on a
display in memory too.
"""
import atexit
import collections
import errno
import os
import re
import struct
import subprocess
import sys

from faults import EARLY, GLIMRA, PILOT, SECOND, interrupted, options, start, store, stored
from desktop import start_display

ERRORS = errno.ENOSPC, errno.EIO, errno.EINTR, errno.ENOMEM
PLAN = struct.Struct("<3i52s")


def play(folder, environment):
    result = subprocess.run([PILOT, "--store", "s", "--record", "r"], input=SECOND + "close\n", cwd=folder, text=True,
                            capture_output=True, timeout=60, env={**os.environ, **environment})
    return result.returncode, result.stderr


def desktop(folder, environment):
    return start(folder, environment=environment)


def display(folder, environment):
    return start(folder, environment={**environment, "SDL_VIDEODRIVER": "x11"})


def kept(folder):
    """All that must be the same when nothing is said: the game, and which records are closed."""
    records = sorted([*folder.glob("s/records/*"), *folder.glob("r")])
    return stored(folder), [record.read_text().endswith("# closed\n") for record in records]


def attack(run, library, number, error, expected):
    """Lets one call fail. Returns its name, and what is wrong."""
    with interrupted() as folder:
        if run is play:
            (folder / "s/records" / EARLY).unlink()
        plan = folder / "plan"
        plan.write_bytes(PLAN.pack(0, number, error, b""))
        status, said = run(folder, {"LD_PRELOAD": library, "FAILING_CALL": str(plan)})
        calls, _, _, name = PLAN.unpack(plan.read_bytes())
        name = name.rstrip(b"\0").decode()
        if not expected:
            return calls, kept(folder), {stored(folder)}
        if status < 0 or (status == 3 and os.strerror(error) not in said):
            return name, f"crashes: {status} {said}"
        if not said and (status != 0 or (name and kept(folder) != expected[0])):
            return name, f"says nothing, ends with {status}, and leaves {kept(folder)[1]}"
        if said and os.strerror(error) not in said and not (run is display and re.search("display|^X", said)):
            return name, f"does not say why: {said}"
        if start(folder)[0] != 0:
            return name, "does not start again"
        return name, "" if stored(folder) in expected[1] else f"leads to another state; it said: {said}"


def viewing(library, name):
    """What is wrong when a viewing begins and the first call of that name fails."""
    with interrupted() as folder:
        (folder / "plan").write_bytes(PLAN.pack(0, 1, errno.EAGAIN, name))
        view = subprocess.run([GLIMRA, "--watch", folder / "s/records" / EARLY], text=True, capture_output=True, timeout=20,
                              env={**os.environ, "SDL_VIDEODRIVER": "dummy", "TMPDIR": str(folder), "LD_PRELOAD": library,
                                   "FAILING_CALL": str(folder / "plan")})
        left = list(folder.glob("glimra-*"))
        fine = view.returncode == 1 and os.strerror(errno.EAGAIN) in view.stderr and not left
        return "" if fine else f"a viewing without {name}: ends with {view.returncode}, says {view.stderr!r}, leaves {left}"


def states():
    """The games that there are on the way: before the session, in its middle, and after it."""
    for part in ("kill\n", SECOND[:SECOND.index("back")] + "kill\n", SECOND + "close\n"):
        with interrupted() as folder:
            store.play(PILOT, part, "--store", "s", folder=folder)
            yield stored(folder)


def main():
    given, chance = options(every=1)
    on_display = "--display" in sys.argv
    library = os.path.abspath(sys.argv[-1])
    if on_display:
        start_display(atexit.register)
    total, between = collections.Counter(), set(states())
    found = [wrong for wrong in (viewing(library, b"pipe"), viewing(library, b"fork")) if wrong]
    for run in [play, desktop] + [display] * on_display:
        calls, whole, after = attack(run, library, 0, 0, None)
        assert calls > 50, "the library is not loaded"
        for number in range(1, calls + 1):
            for error in ERRORS:
                if chance.randrange(given.every) == 0:
                    name, wrong = attack(run, library, number, error, (whole, between | after))
                    total[run.__name__, name] += 1
                    if wrong:
                        found.append(f"{run.__name__}: {name}, call {number}, {errno.errorcode[error]}: {wrong}")
                        print(found[-1], flush=True)
    print(f"seed {given.seed}:", ", ".join(f"{name} {count}" for (_, name), count in total.items()))
    print(f"{total.total()} calls failed, {len(found)} faults")
    sys.exit(bool(found))


main()
