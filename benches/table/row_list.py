"""All rows, in the order of the table: [(name, turn)]. A turn takes the desk, a player and the
settings, and returns {(line, unit, more is better): value}, or raises Nothing."""

from table import between, playing, starting


def all_rows():
    return starting.rows() + between.rows() + playing.rows()
