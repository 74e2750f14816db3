"""Backdrop 2: glowing life in the deep sea."""
from canvas import Canvas, blend


def deep():
    c = Canvas(240, 268)
    c.light[:] = blend([(0, "105078"), (120, "082848"), (268, "040c1c")], c.y)
    return c.finished()
