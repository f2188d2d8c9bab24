#!/usr/bin/env python3
"""check_layers.py ROOT: includes point downwards, and only the platform folder knows the system.

A file includes from its own folder and from folders below it in the list of layers. Conditions on the operating system stand in
vetools/platform and in build files; above it both builds have one code path.
"""

import re
import sys
from pathlib import Path

# From the lowest to the highest. The folder of a layer is `vetools/<layer>`.
LAYERS = ("platform", "framework", "resources", "objects", "logging", "util", "units", "valuetext", "unitmanager")
# Users of the library: they may include every layer, but none another user, except where a folder is shared with those named
# here: what the command is made of is tested as well, and benchmarks and fuzz targets work in the temporary folders of tests.
USERS = ("cli", "tests", "bench", "fuzz", "examples")
SHARED = {"cli/": ("tests", "fuzz"), "tests/support/": ("bench", "fuzz")}

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
SYSTEM_CONDITION = re.compile(
    r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*\b(_WIN32|_WIN64|WIN32|__MINGW32__|__MINGW64__|_MSC_VER|__linux__|__unix__|__APPLE__)\b",
    re.MULTILINE,
)


def sources(root, folder):
    return sorted(path for path in (root / folder).rglob("*") if path.suffix in (".h", ".c", ".cpp", ".def", ".rc"))


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def rank(path):
    """The place of vetools/<layer>/... in the list; the umbrella header stands above them all."""
    parts = Path(path).parts
    if len(parts) == 2:
        return len(LAYERS)
    return LAYERS.index(parts[1]) if parts[1] in LAYERS else None


def include_problem(root, path, included):
    own = path.relative_to(root)
    if included.startswith("vetools/"):
        if not (root / included).is_file() and not (root / (included + ".in")).is_file():
            # Neither a header nor the template of one that the build makes: a misspelling.
            return "does not exist"
        if own.parts[0] in USERS:
            return None
        below, here = rank(included), rank(own)
        if below is None or here is None:
            return "is in a folder that the list of layers does not name"
        return "points upwards" if below > here else None
    if own.parts[0] == "vetools":
        return None if own.suffix == ".rc" else 'is not written from the root, as "vetools/..."'
    other = included.split("/", 1)[0]
    is_shared = any(included.startswith(folder) and own.parts[0] in users for folder, users in SHARED.items())
    if other in USERS and other != own.parts[0] and not is_shared:
        return "belongs to another part of the repository"
    return None


def problems_of(root, path):
    text = path.read_text(encoding="utf-8")
    own = path.relative_to(root)
    for match in INCLUDE.finditer(text):
        problem = include_problem(root, path, match.group(1))
        if problem:
            yield f'{own}:{line_of(text, match.start(1))}: "{match.group(1)}" {problem}'
    if own.parts[:2] != ("vetools", "platform"):
        for match in SYSTEM_CONDITION.finditer(text):
            yield f"{own}:{line_of(text, match.start(1))}: a condition on {match.group(1)} outside vetools/platform"


def main(root):
    root = Path(root)
    problems = []
    for folder in ("vetools", *USERS):
        for path in sources(root, folder):
            problems += problems_of(root, path)
    print("\n".join(problems) if problems else "all includes point downwards")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
