"""A pixel font five pixels high for the captions that are painted into the pictures."""
import numpy as np

GLYPHS = {
    "C": "### #.. #.. #.. ###",
    "D": "##. #.# #.# #.# ##.",
    "E": "### #.. ##. #.. ###",
    "H": "#.# #.# ### #.# #.#",
    "I": "# # # # #",
    "L": "#.. #.. #.. #.. ###",
    "M": "#..# #### #### #..# #..#",
    "N": "##. #.# #.# #.# #.#",
    "O": "### #.# #.# #.# ###",
    "R": "### #.# ##. #.# #.#",
    "S": "### #.. ### ..# ###",
    "T": "### .#. .#. .#. .#.",
    "V": "#.# #.# #.# #.# .#.",
    "X": "#.# #.# .#. #.# #.#",
}


def text_mask(text):
    """The pixels of `text`, one column between letters: a bool array five rows high."""
    columns = []
    for letter in text:
        rows = [[pixel == "#" for pixel in row] for row in GLYPHS[letter].split()]
        columns += [np.array(rows), np.zeros((5, 1), dtype=bool)]
    return np.hstack(columns[:-1])
