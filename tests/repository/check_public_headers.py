#!/usr/bin/env python3
"""check_public_headers.py ROOT HEADER...: the public headers are closed, and vetools.h brings in every one of them.

A public header includes no header that is not installed, directly or by another; the headers of platform/posix come in by
Platform.h, every other one by its own line in vetools.h.
"""

import re
import sys
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
UMBRELLA = "vetools/vetools.h"


def included_by(root, header):
    return INCLUDE.findall((root / header).read_text(encoding="utf-8"))


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

    print("\n".join(problems) if problems else f"{len(public)} public headers")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
