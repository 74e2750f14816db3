"""Backdrop 0: northern lights over a mountain lake."""
from canvas import Canvas, blend


def lake():
    c = Canvas(240, 268)
    c.light[:] = blend([(0, "0a1030"), (200, "1d6a6a"), (268, "0a2030")], c.y)
    return c.finished()
