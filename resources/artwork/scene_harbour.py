"""Backdrop 1: the lanterns and windows of a harbour town at dusk."""
from canvas import Canvas, blend


def harbour():
    c = Canvas(240, 268)
    c.light[:] = blend([(0, "1a1440"), (150, "c05a48"), (200, "402848"), (268, "181028")], c.y)
    return c.finished()
