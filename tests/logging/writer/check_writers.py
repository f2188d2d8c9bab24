#!/usr/bin/env python3
"""check_writers.py COMMAND...: lets log_writer write eight times at once and looks whether every line of both logs is whole.

Somebody reads all the while. The last writer to begin finds the log larger than it may be: it must not take it from those
who have it open.
"""

import re
import subprocess
import sys
import tempfile
import threading
from collections import defaultdict
from pathlib import Path

WRITERS = 8
ENTRIES = 2000
NO_LIMIT, SMALL_LIMIT = "0", "10"
TIME = r"\d\d:\d\d:\d\d"
HEADER = re.compile(r"PID:(\d+) Log started")
HEADER_LINE = re.compile(rf"PID:(\d+) .+, {TIME}, PID = \1 QM2020\.0\.0")
SUMMARY = re.compile(rf"PID:(\d+) .+, {TIME}, PID = \1, Entries = {ENTRIES}, Errors = {ENTRIES // 10} ")
TRAILER = re.compile(r"PID:(\d+) Log ended")
ENTRY = re.compile(rf"PID:(\d+) (?:writer(?:\(\d+\))?)?{TIME} (?:Message|Error) : \1/(\d+) ([a-z]*)\.")
DESIGN_LINE = re.compile(rf"(?:.+ {TIME} \[[A-Z]+\] *: )?(\d+)/(\d+) ([a-z]*)\.")


def rest_of(number):
    return chr(ord("a") + number % 26) * (20000 if number % 50 == 0 else number % 200)


def check_entries(lines, pattern):
    """Every writer has written all its entries, in order; what is not an entry is returned, by process."""
    entries, others = defaultdict(list), defaultdict(list)
    for line in lines:
        match = pattern.fullmatch(line)
        if match:
            process, number, rest = match.groups()
            assert rest == rest_of(int(number)), f"torn: {line[:200]}"
            entries[process].append(int(number))
        else:
            found = re.match(r"PID:(\d+) ", line)
            assert found, f"torn: {line[:200]}"
            others[found.group(1)].append(line)
    assert len(entries) == WRITERS, f"{len(entries)} writers"
    for process, numbers in entries.items():
        assert numbers == list(range(ENTRIES)), f"process {process} has {len(numbers)} entries"
    return others


def check(folder):
    lines = (folder / "Log.txt").read_text(encoding="utf-8").split("\n")
    assert lines.pop() == "", "the last line is not whole"
    others = check_entries(lines, ENTRY)
    for process, pieces in others.items():
        shapes = (HEADER, HEADER_LINE, SUMMARY, TRAILER)
        assert len(pieces) == len(shapes), f"process {process}: {pieces}"
        for shape, piece in zip(shapes, pieces):
            assert shape.fullmatch(piece), f"process {process}: {piece}"

    lines = (folder / "sharedVeDesignLog.log").read_text(encoding="utf-8").split("\n")
    assert lines.pop(0) == "", "the design log does not begin with a line break"
    assert not check_entries(lines, DESIGN_LINE), "other lines in the design log"


class Reader(threading.Thread):
    """Reads a file again and again until it is told to stop."""

    def __init__(self, path):
        super().__init__()
        self.path = path
        self.stopped = threading.Event()

    def run(self):
        while not self.stopped.wait(0.01):
            self.path.read_bytes()


def begin(command, folder, limit):
    """A writer that has opened its log, and waits."""
    writer = subprocess.Popen([*command, str(ENTRIES), limit], cwd=folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    assert writer.stdout.readline().strip() == b"open", "a writer does not begin"
    return writer


def write(writers):
    for writer in writers:
        writer.stdin.write(b"\n")
        writer.stdin.flush()
    codes = []
    for writer in writers:
        writer.communicate()
        codes.append(writer.returncode)
    assert codes == [0] * WRITERS, f"the writers ended with {codes}"


def main(*command):
    with tempfile.TemporaryDirectory() as folder:
        writers = [begin(command, folder, NO_LIMIT) for _ in range(WRITERS - 1)]
        writers.append(begin(command, folder, SMALL_LIMIT))
        reader = Reader(Path(folder, "Log.txt"))
        reader.start()
        try:
            write(writers)
        finally:
            reader.stopped.set()
            reader.join()
        check(Path(folder))
    print(f"{WRITERS} writers, {ENTRIES} entries each, all whole")


if __name__ == "__main__":
    main(*sys.argv[1:])
