"""Measures the game and prints each figure beside its goal. Begun by run.

measure.py BUILD [speed|start|memory|size|idle|play]...
"""
import json
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

BUILD = pathlib.Path(sys.argv[1]).resolve()
WANTED = sys.argv[2:]
SCALE = 3
MIB = 1 << 20
missed = []


def tell(what, figure, unit, goal=None):
    """A line of the table; without a goal the figure is for comparison only."""
    met = "" if goal is None else f"at most {goal:g}   " + ("met" if figure <= goal else "MISSED")
    if met.endswith("MISSED"):
        missed.append(what)
    print(f"{what:58}{figure:9.2f} {unit:8}{met}", flush=True)


def speed():
    """Ratios of medians; the repetitions of all benchmarks are shuffled, so a busy machine hits them alike."""
    result = subprocess.run([BUILD / "bench/speed", "--benchmark_format=json", "--benchmark_repetitions=25",
                             "--benchmark_min_time=0.03", "--benchmark_enable_random_interleaving=true"],
                            check=True, capture_output=True).stdout
    runs = json.loads(result)["benchmarks"]
    faults = [run["error_message"] for run in runs if run.get("error_occurred")]
    assert not faults, faults
    ns = {run["run_name"]: run["cpu_time"] for run in runs if run.get("aggregate_name") == "median"}
    copy = ns["copyMemory"]
    tell("memcpy of 240 x 268 pixels", copy, "ns")
    tell("tick, only the piece moved / memcpy", ns["tickPieceMoved"] / copy, "", 1.5)
    tell("full repaint, 100 blocks / memcpy", ns["repaint/100"] / copy, "", 5)
    for blocks in (0, 50, 150, 200):
        tell(f"full repaint, {blocks} blocks / memcpy", ns[f"repaint/{blocks}"] / copy, "")
    tell("GameSession::update", ns["update"], "ns", 150)
    tell("BitBlt 240 x 268 / SDL_BlitSurface", ns["blit"] / ns["blitSdl"], "", 1.05)
    tell("TransparentImage 11 x 11 / SDL_BlitSurface with a key", ns["tile"] / ns["tileSdl"], "", 0.8)
    tell("DrawTextW of a value / BitBlt of its picture", ns["drawValue"] / ns["blitValue"], "", 3)


class Running:
    """A program that has shown its first frame: the game, or the minimal one."""

    def __init__(self, *command):
        self.folder = tempfile.TemporaryDirectory()
        environment = {**os.environ, "LD_PRELOAD": str(BUILD / "bench/libfirst_frame.so"), "HOME": self.folder.name}
        begin = time.monotonic_ns()
        self.process = subprocess.Popen([str(word) for word in command], env=environment, cwd=self.folder.name,
                                        stdout=subprocess.PIPE)
        self.milliseconds = (int(self.process.stdout.readline()) - begin) / 1e6

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()
        self.folder.cleanup()

    def threads(self, file):
        tasks = pathlib.Path(f"/proc/{self.process.pid}/task")
        return [line for task in tasks.glob(f"*/{file}") for line in task.read_text().splitlines()]

    def kib(self):
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(status.split("VmRSS:")[1].split()[0])

    def over(self, seconds, action=None):
        """Wake-ups a second and percent of a core that its threads take meanwhile."""
        wakes = lambda: sum(int(line.split()[1]) for line in self.threads("status") if line.startswith("voluntary"))
        nanoseconds = lambda: sum(int(line.split()[0]) for line in self.threads("schedstat"))
        begin = time.monotonic()
        before = wakes(), nanoseconds()
        if action:
            action()
        time.sleep(max(0, begin + seconds - time.monotonic()))
        passed = time.monotonic() - begin
        return (wakes() - before[0]) / passed, (nanoseconds() - before[1]) / passed / 1e7

    def xdotool(self, *words):
        subprocess.run(["xdotool", *(str(word).replace("WINDOW", self.window()) for word in words)], check=True,
                       stdout=subprocess.DEVNULL)

    def window(self):
        search = ["xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid), "--name", "^Glimra$"]
        return subprocess.run(search, check=True, capture_output=True, text=True).stdout.strip()

    def tap(self, x, y):
        self.xdotool("windowfocus", "--sync", "WINDOW", "mousemove", "--window", "WINDOW", SCALE * x + 1,
                     SCALE * y + 1, "click", 1)
        time.sleep(0.5)


def game():
    return Running(BUILD / "glimra", "--store", "store", "--scale", SCALE)


def minimal():
    return Running(BUILD / "bench/minimal_window", SCALE)


def start():
    """Medians of starts by turns, each with a new store."""
    times = {minimal: [], game: []}
    for _ in range(25):
        for begin, measured in times.items():
            with begin() as program:
                measured.append(program.milliseconds)
    least, ours = (statistics.median(measured) for measured in times.values())
    tell("minimal program, start to first frame", least, "ms")
    tell("game, start to first frame / minimal program", ours / least, "", 1.5)


def memory():
    with minimal() as least, game() as ours:
        time.sleep(2)
        tell("minimal program, resident memory", least.kib() / 1024, "MiB")
        tell("game, title page: more than that", (ours.kib() - least.kib()) / 1024, "MiB", 4)
        ours.tap(120, 241)
        time.sleep(2)
        tell("game, in play: more than that", (ours.kib() - least.kib()) / 1024, "MiB", 4)


def size():
    file = BUILD / "stripped"
    subprocess.run(["strip", "-o", file, BUILD / "glimra"], check=True)
    tell("executable as built", (BUILD / "glimra").stat().st_size / MIB, "MiB", 2)
    tell("executable stripped", file.stat().st_size / MIB, "MiB")


def idle():
    """Wake-ups of a game whose loudspeaker has gone to rest."""
    with game() as ours:
        time.sleep(25)
        tell("title page, wake-ups", ours.over(20)[0], "/s", 2.5)
        ours.tap(20, 307)
        ours.tap(120, 100)
        tell("title page, a menu opened and dismissed, wake-ups", ours.over(10)[0], "/s", 0.5)
        with minimal() as other:
            time.sleep(1)
            tell("another window in front, wake-ups", ours.over(10)[0], "/s", 0.5)


def play():
    with game() as ours:
        ours.tap(120, 241)
        moves = [word for key in ("Left", "Right", "x", "z") * 10
                 for word in ("keydown", key, "sleep", 0.1, "keyup", key, "sleep", 0.4)]
        wakes, core = ours.over(20, lambda: ours.xdotool(*moves))
        tell("in play, two buttons a second, of a core", core, "%", 1)
        tell("in play, wake-ups (40 ticks, the buttons)", wakes, "/s")


def on_display(measurements):
    reader, writer = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
                              pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    os.environ["DISPLAY"] = ":" + os.read(reader, 20).decode().strip()
    try:
        for measure in measurements:
            measure()
    finally:
        server.terminate()
        server.wait()


on_display([measure for measure in (speed, start, memory, size, idle, play)
            if not WANTED or measure.__name__ in WANTED])
sys.exit(bool(missed))
