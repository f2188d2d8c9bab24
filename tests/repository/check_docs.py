#!/usr/bin/env python3
"""check_docs.py ROOT [VETOOLS]: what README.md and docs/ quote is what there is.

- A ```cpp block is a run of lines of one file in examples/, indentation aside. Below a line <!-- FILE --> it is the whole file.
- Any other block below a line <!-- FILE --> is the whole file, which may be what an example prints.
- A ```console block is run in a shell, in a folder of its own for each page: every command prints what stands below
  it. `vetools` is the program VETOOLS, and so is scripts/run. Without VETOOLS these blocks are not looked at. A block
  below a line <!-- as of VERSION --> shows what depends on the machine and is not run.
- A link to a file leads to one, and so does a path in `...` that starts with a folder of the repository.
"""

import difflib
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

BLOCK = re.compile(
    r"^(?:<!-- (?P<source>[^\n]*?) -->\n)?```(?P<language>\w*)\n(?P<text>.*?)^```$", re.MULTILINE | re.DOTALL
)
PATH = re.compile(r"`((?:vetools|cli|cmake|tests|bench|fuzz|examples|docs|scripts)/[\w./-]*)`")
LINK = re.compile(r"\]\(([^)#\s]+)(?:#[^)]*)?\)")


def bare_lines(text):
    return [line.strip() for line in text.splitlines()]


def is_run_of(lines, whole):
    return any(whole[start:start + len(lines)] == lines for start in range(len(whole) - len(lines) + 1))


def quote_problem(root, block):
    """Why the block is not what it quotes, or None."""
    text, source = block["text"], block["source"]
    if source:
        file = root / source
        if not file.is_file():
            return f"{source} does not exist"
        return None if file.read_text(encoding="utf-8") == text else f"differs from {source}"
    if block["language"] != "cpp":
        return None
    lines = bare_lines(text)
    for example in (root / "examples").glob("*.cpp"):
        if is_run_of(lines, bare_lines(example.read_text(encoding="utf-8"))):
            return None
    return "is in no file of examples/"


def commands_of(text):
    """The commands of a console block with what stands below each."""
    commands = []
    for line in text.splitlines(keepends=True):
        if line.startswith("$ "):
            commands.append((line[2:].strip(), []))
        elif commands:
            commands[-1][1].append(line)
    return [(command, "".join(output)) for command, output in commands]


def console_problems(block, folder, environment):
    for command, expected in commands_of(block["text"]):
        run = subprocess.run(
            ["bash", "-c", command.replace("scripts/run ", "vetools ")], cwd=folder, env=environment, check=False,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        )
        printed = run.stdout.decode("utf-8")
        if printed != expected:
            lines = difflib.unified_diff(expected.splitlines(True), printed.splitlines(True), "written", "printed")
            yield f"$ {command}\n{''.join(lines)}"


def page_problems(root, page, vetools):
    text = page.read_text(encoding="utf-8")
    for link in LINK.findall(text):
        if "://" not in link and not (page.parent / link).exists():
            yield f"{link} does not exist"
    for path in PATH.findall(text):
        if not (root / path).exists():
            yield f"{path} does not exist"
    with tempfile.TemporaryDirectory() as folder:
        os.makedirs(f"{folder}/bin")
        if vetools:
            os.symlink(vetools, f"{folder}/bin/vetools")
        os.makedirs(f"{folder}/work")
        environment = dict(os.environ, PATH=f"{folder}/bin:{os.environ['PATH']}", LC_ALL="C.UTF-8")
        for match in BLOCK.finditer(text):
            block = match.groupdict()
            line = text.count("\n", 0, match.start("text"))
            if (block["source"] or "").startswith("as of "):
                continue
            if block["language"] == "console":
                problems = console_problems(block, f"{folder}/work", environment) if vetools else ()
                yield from (f"line {line}: {problem}" for problem in problems)
            elif problem := quote_problem(root, block):
                yield f"line {line}: the block {problem}"


def main(root, vetools=None):
    root = Path(root)
    vetools = vetools and os.path.abspath(vetools)
    failed = False
    for page in [*sorted(root.glob("*.md")), *sorted((root / "docs").glob("*.md"))]:
        for problem in page_problems(root, page, vetools):
            print(f"{page.relative_to(root)}: {problem}")
            failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
