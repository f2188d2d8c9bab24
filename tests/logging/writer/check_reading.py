#!/usr/bin/env python3
"""check_reading.py VETOOLS LOG_SAMPLES [EMULATOR...]: lets log_samples write its two logs, reads them with "vetools log", and
looks whether every piece is found as it was written.
"""

import json
import subprocess
import sys
import tempfile


def entry(level, message, source=None, line=None, time=True):
    piece = {"kind": "entry", "level": level, "message": message}
    if source:
        piece["source"] = source
    if line:
        piece["sourceLine"] = line
    if time:
        piece["time"] = "TIME"
    return piece


def text(message, time=False):
    return {"kind": "text", "message": message} | ({"time": "TIME"} if time else {})


def line(level, message):
    return entry(level, message) | {"date": "DATE"}


OPENED = {"kind": "opened", "date": "DATE", "time": "TIME", "message": "DATE, TIME, PID = # QM2020.0.0"}
CLOSED = {"kind": "closed", "date": "DATE", "time": "TIME", "entries": 23, "errors": 9,
          "message": "DATE, TIME, PID = #, Entries = 23, Errors = 9 "}
LOG_FILE = [
    text("Samples"),
    OPENED,
    *(entry(level, "text") for level in ("Comment", "Warning", "Message", "Exception Message", "Error", "Exception")),
    entry("Message", "first\nsecond\n\nfourth"),
    entry("Message", "PID:5 has ended"),
    entry("Message", "he said PID:5 14:00:00 Error : no"),
    entry("Message", "14:00:00 Error : no error"),
    entry("Warning", "a.cpp(3)14:00:00 Error : no error"),
    entry("Message", "Träger ß"),
    entry("Message", "\ttab and blanks  "),
    entry("Error", "text", "reader.cpp", 198),
    entry("Exception", "text", "C:\\Program Files (x86)\\reader(2).cpp", 7),
    entry("Error", "text", "reader.cpp"),
    entry("Error", "first\nsecond", "reader.cpp", 1),
    entry("Error", "read : no Exception : at all", "reader.cpp", 1),
    entry("Error", "text", "reader.cpp", 1, time=False),
    entry("Message", "text", time=False),
    text("time alone", time=True),
    text("text alone"),
    text("reader.cpp(1)text"),
    entry("Message", ""),
    entry("Message", "one"),
    entry("Message", "one\ntwo"),
    entry("Error", "", "reader.cpp", 1),
    CLOSED,
    text("Samples ended"),
]
DESIGN_LOG = [
    *(line(level, "text") for level in ("INFORMATION", "WARNING", "DEBUG", "EXCEPTION", "ERROR")),
    text("text"),
    line("ERROR", "first"),
    text("second"),  # a line like any other
    line("EXCEPTION", "Träger € \U0001F3D7"),
    line("INFORMATION", "14:00:00 [ERROR]       : no error"),
    line("WARNING", "PID:5 14:00:00 Error : no error"),
    line("DEBUG", "  blanks  "),
]


def with_signs(piece):
    """A piece with signs in place of what differs from run to run, and without its line."""
    del piece["line"]
    process = piece.pop("pid", None)
    repeated = {f"PID = {process}": "PID = #"}  # what the lines of opening and closing say once more
    for key in piece.keys() & {"time", "date"}:
        repeated[piece[key]] = key.upper()
        piece[key] = key.upper()
    if piece["kind"] in ("opened", "closed"):
        for value, sign in repeated.items():
            piece["message"] = piece["message"].replace(value, sign)
    return piece


def read(command, name, folder):
    output = subprocess.run([*command, "log", name, "--json"], cwd=folder, check=True, capture_output=True).stdout
    return [with_signs(json.loads(row)) for row in output.decode("utf-8").splitlines()]


def check(expected, found):
    for number, (wanted, piece) in enumerate(zip(expected, found)):
        assert wanted == piece, f"piece {number}:\nexpected {wanted}\nfound    {piece}"
    assert len(expected) == len(found), f"{len(found)} pieces in place of {len(expected)}"


def main(vetools, log_samples, *emulator):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([*emulator, log_samples], cwd=folder, check=True)
        check(LOG_FILE, read([*emulator, vetools], "Log.txt", folder))
        check(DESIGN_LOG, read([*emulator, vetools], "VeDesignLog.log", folder))
    print(f"{len(LOG_FILE)} pieces and {len(DESIGN_LOG)} lines, all found")


if __name__ == "__main__":
    main(*sys.argv[1:])
