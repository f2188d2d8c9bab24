#!/usr/bin/env python3
"""check_output.py EXPECTED PROGRAM...: runs the program in an empty folder and compares what it prints with the file."""

import difflib
import subprocess
import sys
import tempfile
from pathlib import Path


def main(expected, *command):
    with tempfile.TemporaryDirectory() as folder:
        run = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, check=False)
    printed = run.stdout.decode("utf-8").replace("\r\n", "\n")
    wanted = Path(expected).read_text(encoding="utf-8") if Path(expected).exists() else ""
    if run.returncode != 0:
        print(f"{command[-1]} ended with {run.returncode}")
    sys.stdout.writelines(difflib.unified_diff(wanted.splitlines(True), printed.splitlines(True), expected, "printed"))
    return 0 if run.returncode == 0 and printed == wanted else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
