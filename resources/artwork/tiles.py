"""The block tile sheet: seven tetrominoes across, six looks down, each tile 11 by 11 pixels."""
import numpy as np

from quantize import displayable

SIZE = 11
# Light corner, centre and dark corner of each tetromino's block: J, L, S, O, Z, T, I.
BLOCKS = (
    ((173, 190, 255), (74, 85, 222), (24, 32, 115)),
    ((255, 203, 132), (198, 117, 0), (82, 56, 0)),
    ((189, 247, 115), (74, 190, 0), (0, 60, 0)),
    ((247, 239, 173), (206, 199, 24), (90, 89, 8)),
    ((255, 158, 173), (206, 32, 33), (132, 0, 8)),
    ((255, 121, 247), (206, 0, 198), (90, 0, 107)),
    ((140, 231, 255), (0, 158, 231), (0, 85, 107)),
)
BRIGHT = (
    ((239, 255, 255), (156, 170, 255), (57, 69, 148)),
    ((255, 247, 181), (255, 227, 115), (132, 105, 49)),
    ((231, 255, 156), (189, 255, 115), (33, 89, 24)),
    ((255, 255, 198), (255, 255, 99), (165, 158, 82)),
    ((255, 227, 239), (255, 101, 107), (165, 36, 41)),
    ((255, 203, 255), (255, 69, 255), (123, 32, 140)),
    ((189, 255, 255), (99, 255, 255), (49, 134, 156)),
)
WHITE = ((255, 255, 255),) * 3
PALE = ((255, 255, 255), (239, 239, 239), (115, 113, 115))
GREY = ((214, 215, 214), (148, 146, 148), (66, 69, 66))


def _depth():
    """How far each pixel lies on the way from the light corner (0) to the dark one (1).

    The outermost ring is a bevel: its upper and left sides catch more light than the face, the others less.
    """
    y, x = np.mgrid[0:SIZE, 0:SIZE]
    diagonal = (x + y) / (2 * (SIZE - 1))
    depth = 0.5 + (diagonal - 0.5) * 0.82
    lit = (x == 0) | (y == 0)
    shaded = (x == SIZE - 1) | (y == SIZE - 1)
    depth[lit] = diagonal[lit] * 0.62
    depth[shaded] = 1 - (1 - diagonal[shaded]) * 0.62
    depth[lit & shaded] = 0.5
    depth[SIZE // 2, SIZE // 2] = 0.5
    return depth


def tile(stops):
    """One 11 by 11 tile shaded through its three colours, in colours that the display can show."""
    depth = _depth()
    channels = [np.interp(depth, (0, 0.5, 1), [stop[i] for stop in stops]) for i in range(3)]
    shaded = displayable(np.floor(np.stack(channels, axis=-1) + 0.5))
    if stops in (WHITE, PALE, GREY):  # green has a bit more than red: it follows red, so that greys stay grey
        six = (shaded[..., 0] >> 2) & ~1 | (shaded[..., 0] >> 7)
        shaded[..., 1] = six << 2 | six >> 4
    for at, exact in zip((0, SIZE // 2, SIZE - 1), stops):
        shaded[at, at] = exact
    return shaded


def ghost(block):
    """The outline of a block: its ring around a pure black (transparent) interior."""
    outline = block.copy()
    outline[1:-1, 1:-1] = 0
    return outline


def tile_sheet():
    """The whole sheet, 66 by 77 by 3."""
    columns = []
    for block, bright in zip(BLOCKS, BRIGHT):
        normal = tile(block)
        columns.append(np.vstack([normal, tile(bright), tile(WHITE), tile(PALE), tile(GREY), ghost(normal)]))
    return np.hstack(columns).astype(np.uint8)
