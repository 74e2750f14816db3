#!/usr/bin/env python3
"""Reads every include: the house has one direction, and its lines are kept.

    includes_test.py ROOT

A unit is a source with its header. It includes units of its own storey or of those listed after it, never of another
storey of the same rank, and no chain of includes leads back to where it began. The table is the one in
docs/ARCHITECTURE.md.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
# Each line a rank, the highest first; the storeys of one rank do not know each other.
HANDHELD = """
pilot
handheld
shell
controls
user
gdi registry wave
resources
base
host/sdl host/web host/pilot
host
public
"""
PROGRAM = """
app
frontend sound input/buttons_dialog
render
engine
input
resources
"""
