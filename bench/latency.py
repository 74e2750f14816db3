"""What another client of the display sees: how long a key takes to change the picture, and when a window comes up. The
key is sent through the XTest extension, and the Damage extension reports the first pixels that change."""
import ctypes
import random
import select
import time

class Eye:
    """Presses Esc and watches the pixels of a window."""

    def __init__(self, window):
        self.x11, self.test, damage = (ctypes.CDLL(f"lib{name}") for name in ("X11.so.6", "Xtst.so.6", "Xdamage.so.1"))
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XStringToKeysym.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        symbol = ctypes.c_ulong(self.x11.XStringToKeysym(b"Escape"))
        self.escape = self.x11.XKeysymToKeycode(self.display, symbol) & 0xFF
        self.changed, error = ctypes.c_int(), ctypes.c_int()
        damage.XDamageQueryExtension(self.display, ctypes.byref(self.changed), ctypes.byref(error))
        damage.XDamageCreate(self.display, ctypes.c_ulong(window), 0)
        self.x11.XSync(self.display, 0)

    def move_key(self, down):
        self.test.XTestFakeKeyEvent(self.display, self.escape, down, ctypes.c_ulong(0))
        self.x11.XFlush(self.display)

    def next_change(self, seconds):
        """The moment of the next change, or None when there is none within this time."""
        event = (ctypes.c_long * 24)()
        end = time.monotonic() + seconds
        while (left := end - time.monotonic()) > 0:
            if not self.x11.XPending(self.display):
                select.select([self.x11.XConnectionNumber(self.display)], [], [], left)
            elif not self.x11.XNextEvent(self.display, event) and event[0] & 0x7F == self.changed.value:
                return time.monotonic()
        return None

    def wait_for_rest(self):
        while self.next_change(0.03):
            pass


def key_to_pixels(window, samples):
    """Milliseconds, in ascending order. The key pauses and resumes a game in turn, each time after a random wait that
    is too short for the piece to fall."""
    eye, times, dice = Eye(window), [], random.Random(1)
    for _ in range(samples):
        eye.wait_for_rest()
        time.sleep(dice.uniform(0.1, 0.2))
        begin = time.monotonic()
        eye.move_key(True)
        seen = eye.next_change(1)
        eye.move_key(False)
        assert seen, "the picture changes"
        times.append((seen - begin) * 1000)
    return sorted(times)


class Door:
    """Sees windows come up on the display."""

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        substructure = ctypes.c_long(1 << 19)
        self.x11.XSelectInput(self.display, ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display)), substructure)
        self.x11.XSync(self.display, 1)

    def next_window(self):
        """The moment when the next one is shown, in nanoseconds."""
        event = (ctypes.c_int * 48)()
        while event[0] != 19:  # MapNotify
            self.x11.XNextEvent(self.display, event)
        moment = time.monotonic_ns()
        self.x11.XCloseDisplay(self.display)
        return moment
