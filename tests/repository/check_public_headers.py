#!/usr/bin/env python3
"""check_public_headers.py ROOT HEADER...: the public headers are closed, and vetools.h brings in every one of them.

A public header includes no header that is not installed. The headers of platform/posix come in by Platform.h, every other one
by its own line in vetools.h. Only the form of a module of texts is for the modules alone.
"""

import re
import sys
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
UMBRELLA = "vetools/vetools.h"
FOR_MODULES = "vetools/platform/posix/StringModule.h"


def included_by(root, header):
    return INCLUDE.findall((root / header).read_text(encoding="utf-8"))


def reached_from(root, header):
    """The header and all that it brings in."""
    reached, waiting = set(), [header]
    while waiting:
        header = waiting.pop()
        if header not in reached and (root / header).is_file():
            reached.add(header)
            waiting += included_by(root, header)
    return reached


def main(root, *headers):
    root = Path(root)
    public = {Path(header).relative_to(root).as_posix() for header in headers}
    problems = [
        f"{header} includes {included}, which is not installed"
        for header in sorted(public)
        for included in included_by(root, header)
        if included not in public and not (header == "vetools/platform/Platform.h" and "/posix/" in included)
    ]

    expected = sorted(header for header in public if header != UMBRELLA and "/posix/" not in header)
    lines = included_by(root, UMBRELLA)
    problems += [f"{UMBRELLA} does not include {header}" for header in expected if header not in lines]
    problems += [f"{UMBRELLA} includes {line}, which is no public header" for line in lines if line not in expected]
    missing = public - set(expected) - {FOR_MODULES} - reached_from(root, UMBRELLA)
    problems += [f"{header} does not come in by {UMBRELLA}" for header in sorted(missing)]
    if lines != sorted(lines):
        problems.append(f"{UMBRELLA} is not in alphabetical order")

    print("\n".join(problems) if problems else f"{len(public)} public headers")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
