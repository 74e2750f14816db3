"""The picture of the About dialog, with a light plate where the version stands."""
from canvas import Canvas, blend
from title import picture

PLATE = (131, 151, 196, 164)


def about():
    c = Canvas(240, 270)
    c.light[:] = blend([(0, "141c48"), (270, "081020")], c.y)
    left, top, right, bottom = (3 * edge for edge in PLATE)
    c.light[top:bottom, left:right] = 10
    return picture(c.finished())
