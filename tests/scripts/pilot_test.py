#!/usr/bin/env python3
"""Plays scripts with glimra-pilot and checks what comes out: statuses, output, files, time.

pilot_test.py GLIMRA-PILOT
"""
import operator
import os
import pathlib
import signal
import subprocess
import sys
import time
import unittest
from unittest import mock

import store
from store import PAUSED, PLAYING, SIZE as RECORD, TITLE

PILOT = os.path.abspath(sys.argv.pop(1))


class PilotTest(store.FolderTest):
    def run_pilot(self, script, *options, status=0):
        output, self.errors = store.play(PILOT, script, *options, status=status, folder=self.folder)
        return output

    def open_pilot(self, script, *options):
        """A pilot that has carried out a script up to "echo ready", and waits for more."""
        pilot = subprocess.Popen([PILOT, *options], cwd=self.folder, env={**os.environ, "TMPDIR": str(self.folder)}, text=True,
                                 stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        pilot.stdin.write(store.expand(script))
        pilot.stdin.flush()
        self.assertEqual(pilot.stdout.readline(), "ready\n")
        return pilot

    def field(self, name, field):
        return store.field(self.read(name), field)

    def test_mistakes_name_their_line_and_stop_the_script(self):
        for command, status in [
                ("bogus", 2), ("wait", 2), ("wait -1", 2), ("wait 5x", 2), ("wait 5 5", 2), ("key 37", 2),
                ("key 255 down", 2), ("press 0", 2), ("tap 240 5", 2), ("turn 3", 2), ("click 4711", 2),
                ("done", 2), ("menu 4711", 2), ("open 2", 2), ("type", 0), ("shot no/such/folder.png", 1),
                ("shot", 2), ("state no/such/folder", 1), ("trace no/such/folder", 1)]:
            with self.subTest(command):
                output = self.run_pilot(f"echo before\n\n{command} # comment\necho after\n", status=status)
                self.assertEqual(output, ["before"] + ["after"] * (status == 0))
                self.assertRegex(self.errors, r"\Apilot: line 3: .+\n\Z" if status else r"\A\Z")
        self.run_pilot("menu IDM_GAME_OPTIONS\nselect IDC_QUEUE 3\n", status=2)
        self.assertIn("line 2", self.errors)
        for options in (["--clock", "4294967296"], ["--bogus"]):
            self.run_pilot("", *options, status=2)
        (self.folder / "file").touch()
        for options in (["no-such-script"], ["--", "no-such-script"], ["--store", "file"]):
            self.run_pilot("", *options, status=1)
            self.assertRegex(self.errors, r"\Apilot: .+\n\Z")
        with mock.patch.dict(os.environ, TMPDIR="/no/such/folder"):
            self.run_pilot("", status=1)
            self.assertRegex(self.errors, r"\Apilot: /no/such/folder/.+: No such file or directory\n\Z")

    def test_a_signal_ends_it_and_leaves_nothing_behind(self):
        pilot = self.open_pilot("restart\nmenu IDM_NEW_GAME\naway\necho ready\n")
        self.assertTrue(list(self.folder.glob("*/registry.reg")))
        pilot.send_signal(signal.SIGTERM)
        self.assertEqual(pilot.communicate(timeout=20), ("", ""))
        self.assertEqual(pilot.returncode, 128 + signal.SIGTERM)
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_same_script_and_clock_give_the_same_bytes(self):
        script = "menu IDM_NEW_GAME\ntrace {0}.trace\npress 37\nwait 3000\npress 38\nwait 900\nshot {0}.png\nstate {0}\n"
        for name, clock in (("a", "77"), ("b", "77"), ("c", "78")):
            self.run_pilot(script.format(name), "--clock", clock)
        for suffix in ("", ".trace", ".png"):
            self.assertEqual(self.read("a" + suffix), self.read("b" + suffix))
            self.assertNotEqual(self.read("a" + suffix), self.read("c" + suffix))
        self.assertEqual(self.read("a.trace")[-RECORD:], self.read("a"))

    def test_time_passes_only_where_it_should(self):
        """A game has a timer of 25 ms; one that is due at the end of a wait fires."""
        self.run_pilot("menu IDM_NEW_GAME\ntrace t\nwait 24\nwait 1\nwait 100\nwait 0\ntap 120 150\ntrace off\nwait 25\n"
                       "trace t\npress 37 50\n")
        self.assertEqual(len(self.read("t")), (1 + 4 + 2) * RECORD)
        self.run_pilot("menu IDM_NEW_GAME\ntrace t\nwait 1000\n", "--clock", "4294967000")
        self.assertEqual(len(self.read("t")), 40 * RECORD)

    def test_restart_is_a_fresh_process_with_the_same_clock_and_keys(self):
        output = self.run_pilot(
            "menu IDM_NEW_GAME\nwait 500\nkey 37 down\ntrace t\nrestart\nstate s\nwait 100\ntap 120 150\nwait 1000\n"
            "trace off\nstate s2\ntree\nkill\nbogus\n")
        self.assertEqual((self.field("s", "appState"), self.field("s", "state")), (PLAYING, PAUSED))
        self.assertEqual(len(self.read("t")), 40 * RECORD, "no timer before the tap")
        self.assertEqual(self.field("s2", "x"), 0, "the held key has moved the piece to the wall")
        self.assertEqual(sum("GLIMRAPPC" in line for line in output), 1)

    def test_only_a_few_commands_outlast_the_program(self):
        output = self.run_pilot("close\nsounds\necho on\nrestart\nstate s\nclose\nwait 1\n", status=2)
        self.assertEqual(output, ["exit 0", "on", "exit 0"])
        self.assertIn("line 7", self.errors)
        self.assertEqual(self.field("s", "appState"), TITLE)

    def test_sounds_are_listed_with_their_time_length_and_end(self):
        """Turning takes 2,230 samples, 102 ms: a second turn within that time cuts the first one off."""
        output = self.run_pilot("menu IDM_NEW_GAME\nwait 75\npress 196\nwait 50\npress 196\nwait 200\npress 196\nwait 150\n"
                                "sounds\nsounds\n")
        self.assertEqual([line.split()[2:] for line in output], [["2230", "cut"], ["2230"], ["2230"]])
        first, second, third = (int(line.split()[1]) for line in output)
        self.assertEqual((second - first, third - second), (75, 225))

    def test_a_film_has_a_frame_for_each_moment_and_the_sounds_at_theirs(self):
        """The piece turns after 500 and 575 ms, which cuts the first sound off; then the display, then a restart."""
        self.run_pilot("menu IDM_NEW_GAME\nfilm a.y4m\nwait 475\npress 196\nshot now.png\nwait 50\npress 196\n"
                       "wait 225\nturn 1\nwait 100\nrestart\nwait 101\nfilm off\nwait 99\n")
        header, film = self.read("a.y4m").split(b"\n", 1)
        self.assertEqual(header, b"YUV4MPEG2 W240 H320 F40:1 Ip A1:1 C444")
        size = 6 + 3 * 240 * 320
        frames = [film[at:at + size] for at in range(0, len(film), size)]
        self.assertEqual([(len(frame), frame[:6]) for frame in frames], [(size, b"FRAME\n")] * 41)
        shown = subprocess.run(["convert", "now.png", "rgb:-"], cwd=self.folder, check=True, capture_output=True).stdout
        planes = ((16, 65.74, 129.06, 25.06), (128, -37.95, -74.49, 112.44), (128, 112.44, -94.15, -18.29))
        for plane, (base, *weights) in enumerate(planes):
            for at in range(0, 240 * 320, 7):
                value = base + sum(map(operator.mul, weights, shown[3 * at:3 * at + 3])) / 256
                self.assertAlmostEqual(frames[20][6 + 240 * 320 * plane + at], value, delta=1.5)
        self.assertTrue(frames[19] != frames[20] == frames[21] != frames[23], "the turns are seen at their moments")
        self.assertEqual([frames[33][6 + 240 * y + 120] == 16 for y in (69, 70, 249, 250)], [True, False, False, True])

        sound, length = self.read("a.wav"), 1001 * 22050 // 1000
        numbers = [int.from_bytes(sound[at:at + 4], "little") for at in (4, 24, 40)]
        self.assertEqual((numbers, sound[8:16]), ([len(sound) - 8, 22050, length], b"WAVEfmt "))
        part = lambda begin, end: sound[44 + begin * 22050 // 1000:44 + end * 22050 // 1000]
        self.assertEqual(set(part(0, 500) + part(680, 1001)), {128})
        self.assertEqual(part(500, 574)[:1600], part(575, 649)[:1600])
        self.assertGreater(len(set(part(500, 574))), 20)
        self.run_pilot("film /dev/full\n", status=1)
        self.assertIn("line 1: /dev/full: ", self.errors)

    def test_a_crash_is_reported(self):
        """And a store belongs to one program until that ends."""
        first = self.open_pilot("echo ready\n", "--store", "s")
        self.assertEqual(self.run_pilot("", "--store", "s"), ["exit 0"])
        self.assertEqual(self.run_pilot("echo runs\n", "--store", "other"), ["runs"])
        os.kill(int(pathlib.Path(f"/proc/{first.pid}/task/{first.pid}/children").read_text()), signal.SIGKILL)
        _, errors = first.communicate(timeout=20)
        self.assertEqual(first.returncode, 3)
        self.assertIn("crashed", errors)
        self.assertEqual(self.run_pilot("echo runs\n", "--store", "s"), ["runs"], "the lock ends with its holder")

    def test_three_minutes_take_less_than_two_seconds(self):
        before = time.monotonic()
        self.run_pilot("tap 180 170\nmenu IDM_NEW_GAME\ntrace t\n" + "press 37\nwait 25\n" * 3600)
        limit = 2 if os.environ.get("GLIMRA_TIMED") else 60
        self.assertLess(time.monotonic() - before, limit)
        self.assertGreater(len(self.read("t")), 4000 * RECORD)


unittest.main()
