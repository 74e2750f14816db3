"""Scripts of the pilot with names in the place of numbers: those of resources/resource.h, and IDOK and the like.

    menu IDM_NEW_GAME
    click IDC_ACTION_0+7
"""
import pathlib
import re

HEADER = pathlib.Path(__file__).parents[2] / "resources/resource.h"
NUMBERS = {"IDOK": 1, "IDCANCEL": 2, "IDYES": 6, "IDNO": 7}
NUMBERS |= {name: int(number) for name, number in re.findall(r"#define (ID\w+) (\d+)", HEADER.read_text())}


def expand(script):
    """The script with numbers. A name that the header does not have is an error."""
    return re.sub(r"\b(ID[A-Z]*_\w+|IDOK|IDCANCEL|IDYES|IDNO)(?:\+(\d+))?",
                  lambda match: str(NUMBERS[match[1]] + int(match[2] or 0)), script)
