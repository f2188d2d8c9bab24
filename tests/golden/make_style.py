#!/usr/bin/python3
"""Makes style.units, the unit style that both builds read and write byte for byte, from reference_model.py.

    make_style.py            rewrites the file beside this script
    make_style.py --check    compares it with what would be written; 1 when it differs
"""

import pathlib
import sys

from reference_model import Unit

STYLE = pathlib.Path(__file__).with_name("style.units")
VERSION = 1002


def field(text, size):
    data = text.encode("utf-16-le")
    assert len(data) < size, text
    return data.ljust(size, b"\0")


def record(unit):
    numbers = (unit.id, unit.range, unit.precision, unit.format)
    return (
        b"".join(field("%d" % number, 100) for number in numbers)
        + field(unit.separator, 100)
        + field(unit.title, 100)
        + field(unit.name, 40)
        + field("%.33g" % unit.coef, 100)
    )


def units():
    """Every id with another range and precision; feet, fractions, °F, and a frequency that does not exist."""
    special = {1: (8, 4), 9: (10, 5), 10: (1, 0), 20: (4, 3)}
    for unit_id in range(1, 27):
        unit_range, precision = special.get(unit_id, (unit_id * 7 % 3, unit_id % 9))
        yield Unit(unit_id, unit_range, precision)


def main(arguments):
    style = field("%d" % VERSION, 40) + b"".join(record(unit) for unit in units())
    if arguments != ["--check"]:
        STYLE.write_bytes(style)
        return 0
    if STYLE.read_bytes() == style:
        return 0
    print(f"{STYLE.name} is not what the model makes")
    return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
