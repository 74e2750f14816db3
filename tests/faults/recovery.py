#!/usr/bin/env python3
"""What stands in the way when a game is recovered: clocks, other records, damage, full disks, and recovery itself.

recovery.py GLIMRA GLIMRA-PILOT
"""
import os
import pathlib
import resource
import signal
import time
import unittest

from faults import EARLY, FIRST, PILOT, ended, interrupted, launch, played, start, store, stored

LATER = "2030-01-01 00.00.00.pilot"


def limited(size):
    """No file becomes larger, as on a full disk."""
    return lambda: (signal.signal(signal.SIGXFSZ, signal.SIG_IGN), resource.setrlimit(resource.RLIMIT_FSIZE, (size, size)))


class RecoveryTest(unittest.TestCase):
    def setUp(self):
        self.folder = self.enterContext(interrupted())
        self.records = self.folder / "s/records"
        self.record = self.records / EARLY
        self.text = self.record.read_bytes()
        self.before, self.after = stored(self.folder), played(self.text)

    def expect(self, game, said=r"\Z", before=None):
        status, errors = start(self.folder, before=before)
        self.assertEqual(status, 0)
        self.assertRegex(errors, rf"\A{said}")
        self.assertEqual(stored(self.folder), game)

    def test_the_clock_was_set_back(self):
        (self.records / LATER).write_bytes(self.text + b"# closed\n")
        self.expect(self.after)
        self.expect(self.after)
        names = sorted(each.name for each in self.records.iterdir())
        self.assertEqual(names, [EARLY, LATER, LATER.replace("00.pilot", "01.pilot"), LATER.replace("00.pilot", "02.pilot")])

    def test_recovery_ended_before_it_finished_the_record(self):
        recovered = played(self.text, lambda folder: (folder / "s/registry.reg").read_bytes())
        (self.folder / "s/registry.reg").write_bytes(recovered)
        self.expect(self.after)
        self.assertTrue(self.record.read_bytes().endswith(b"# closed\n"))

    def test_the_session_was_stopped_while_it_stored_the_game(self):
        self.record.write_bytes(self.text + b"close\n")
        self.expect(self.after)

    def test_a_record_of_another_store_is_named_once(self):
        store.play(PILOT, FIRST.replace("38", "39"), "--store", "s", folder=self.folder)
        game = stored(self.folder)
        self.expect(game, f".*{EARLY}: leads to another store\n\\Z")
        self.expect(game)

    def test_a_damaged_record_is_named_once(self):
        lines = self.text.split(b"\n")
        self.record.write_bytes(b"\n".join([*lines[:-6], b"key 38 wait", *lines[-6:]]))
        self.expect(self.before, f".*{EARLY}: line {len(lines) - 5}: .*\n\\Z")
        self.expect(self.before)

    def test_zeros_end_a_record(self):
        self.record.write_bytes(self.text + b"wait 10" + bytes(5000) + b"\nwait 100\n")
        self.expect(self.after)
        self.assertEqual(self.record.read_bytes(), self.text + b"# closed\n")

    def test_a_large_record_hides_no_other(self):
        (self.records / LATER).write_bytes(self.text + b"wait 1\n" * 700000)
        self.expect(self.after)

    def test_a_large_record_is_named_once(self):
        self.record.write_bytes(self.text + b"wait 1\n" * 700000)
        self.expect(self.before, f".*{EARLY}: File too large\n\\Z")
        self.expect(self.before)

    def test_meanwhile(self):
        """Another start leaves it alone, and it does not take longer than it may."""
        busy = b"stylus down 25 307\nwait 30\nstylus up 25 307\nwait 30\nkey 27 down\nkey 27 up\nwait 30\n"
        self.record.write_bytes(self.text + busy * 49000)
        game = launch(self.folder)
        children = pathlib.Path(f"/proc/{game.pid}/task/{game.pid}/children")
        while not children.read_text():
            time.sleep(0.01)
        self.expect(self.before)
        os.kill(int(children.read_text()), signal.SIGALRM)
        game.send_signal(signal.SIGTERM)
        self.assertRegex(ended(game)[1], f"{EARLY}: does not play to its end")
        self.assertEqual(stored(self.folder), self.before)

    def test_no_folder_of_records(self):
        self.record.rename(self.folder / "r")
        self.records.rmdir()
        self.records.write_text("in the way")
        self.expect(self.before, ".*records: Not a directory\nthis session is not recorded: .*: Not a directory\n\\Z")

    def test_a_store_that_cannot_be_read_or_written_keeps_the_record(self):
        file, aside = self.folder / "s/registry.reg", self.folder / "aside"
        file.rename(aside)
        file.mkdir()
        for why, before in (("not a regular file", None), ("File too large", limited(4096))):
            status, errors = start(self.folder, before=before)
            self.assertEqual(status, 0)
            self.assertRegex(errors, f"registry.reg: {why}")
            self.assertEqual(self.record.read_bytes(), self.text)
            if file.is_dir():
                file.rmdir()
                aside.rename(file)
        self.expect(self.after)

    def test_a_disk_that_fills_ends_the_record_and_not_the_game(self):
        self.expect(self.after)
        for more in range(-40, 120, 40):
            size = self.text.index(b"# came back") + more
            self.expect(self.after, "the record ends here: .*: File too large\n\\Z", before=limited(size))
            self.expect(self.after)
            for record in {*self.records.iterdir()} - {self.record}:
                record.unlink()


unittest.main()
