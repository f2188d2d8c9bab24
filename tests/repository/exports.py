#!/usr/bin/env python3
"""What the library exports: exactly the names that its public headers mark with VETOOLS_API.

exports.py list NM LIBRARY              prints the exported names of a shared object, demangled, one per line
exports.py list-dll OBJDUMP LIBRARY     the same of a DLL
exports.py check LIST HEADER...         every name belongs to a marked declaration, and every marked declaration has its name
exports.py compare NATIVE WINDOWS HEADER...
                                        both lists hold the same functions, as far as types that differ by system allow
"""

import re
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

TABLES = (
    "CVeUnitBase::c_arrayTypeNumber",
    "CVeUnitBase::c_arrayPrecision",
    "CVeUnitBase::c_arrayImperialPrecision",
)
# What the compiler makes for a class beside its members.
CLASS_RECORDS = re.compile(r"^(?:vtable|typeinfo(?: name)?|VTT|guard variable|(?:non-)?virtual thunk) (?:for|to) ")


def output_of(*command, text=None):
    return subprocess.run(command, input=text, capture_output=True, text=True, check=True).stdout


def demangled(names):
    return sorted(set(output_of("c++filt", text="\n".join(names)).splitlines()))


def list_shared_object(nm, library):
    lines = output_of(nm, "--dynamic", "--defined-only", library).splitlines()
    return demangled(line.split()[2].split("@")[0] for line in lines if line.split()[1] != "A")


def list_dll(objdump, library):
    table = output_of(objdump, "--private-headers", library).split("[Ordinal/Name Pointer] Table", 1)[1]
    return demangled(re.findall(r"^\s*\[\s*\d+\]\s+(\S+)$", table, re.MULTILINE))


def without_comments(text):
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.DOTALL)


class Declarations:
    """The names that the public headers mark with VETOOLS_API."""

    CLASS = re.compile(r"\b(?:class|struct)\s+VETOOLS_API\s+(\w+)(?:\s+final)?\s*(?::[^{;]*)?\{")
    FUNCTION = re.compile(r"\bVETOOLS_API\s+(?!\w+\s*\{)[\w:<>,*&\s]*?(operator\s*[^\s(\w]+|\b\w+)\s*\(")
    NAMESPACE = re.compile(r"\bnamespace\s+(\w+)\s*\{")
    OBJECT = re.compile(r"\bVETOOLS_API\s+(?:extern\s+)?(?:const\s+)?[\w:*&\s]+?\b(\w+)(?:\[[^;(]*\])*;")

    def __init__(self, headers):
        self.text = ""
        self.classes = {}
        self.functions = {}
        self.namespaces = set()
        for header in headers:
            text = without_comments(Path(header).read_text(encoding="utf-8"))
            # Neither the definition of the mark nor the body of a macro declares anything.
            text = re.sub(r"^[ \t]*#(?:\\\n|[^\n])*", "", text, flags=re.MULTILINE)
            self.text += text
            self.namespaces.update(self.NAMESPACE.findall(text))
            self.classes.update((name, header) for name in self.CLASS.findall(text))
            rest = self.CLASS.sub("", text)
            for name in self.FUNCTION.findall(rest) + self.OBJECT.findall(rest):
                self.functions[re.sub(r"\s+", "", name)] = header

    def owner_of(self, qualified):
        """CString::Find -> CString; a name in a namespace without that, as it is declared there."""
        first, _, rest = qualified.partition("::")
        return self.owner_of(rest) if first in self.namespaces else first

    def is_inline(self, qualified):
        """Whether a member has its body in a header, or is one that the compiler makes: not every build exports those."""
        owner, _, member = qualified.rpartition("::")
        if member.startswith("operator=") or member.lstrip("~") == owner.rpartition("::")[2]:
            return True
        return re.search(re.escape(member) + r"\s*\([^;{}]*\)[^;{}]*\{", self.text) is not None


def qualified_name(symbol):
    """CString::Find(wchar_t, int) const -> CString::Find"""
    symbol = CLASS_RECORDS.sub("", symbol)
    match = re.match(r"(?:\w+::)*(?:operator(?:\(\)|[^(]+)|~?\w+)", symbol)
    return match.group(0).strip() if match else symbol


def check(names, declared):
    problems = []
    seen = {declared.owner_of(qualified_name(name)) for name in names}
    for name in names:
        owner = declared.owner_of(qualified_name(name))
        if owner not in declared.classes and re.sub(r"\s+", "", owner) not in declared.functions:
            problems.append(f"exported, but no public header declares it: {name}")
    for name, header in {**declared.classes, **declared.functions}.items():
        if name not in seen and name not in {re.sub(r"\s+", "", one) for one in seen}:
            problems.append(f"declared with VETOOLS_API in {header}, but not exported: {name}")
    qualified = {qualified_name(name) for name in names}
    problems += [f"a table that hosts read is not exported: {table}" for table in TABLES if table not in qualified]
    return problems


def overloads(names):
    result = defaultdict(set)
    for name in names:
        if not CLASS_RECORDS.match(name):
            result[qualified_name(name)].add(name)
    return result


def compare(native_names, windows_names, declared):
    problems = []
    native, windows = overloads(native_names), overloads(windows_names)
    for name in sorted(native.keys() | windows.keys()):
        owner = declared.owner_of(name)
        header = declared.classes.get(owner) or declared.functions.get(re.sub(r"\s+", "", owner), "")
        if "/posix/" in header or declared.is_inline(name):
            continue
        if len(native[name]) != len(windows[name]):
            problems.append(f"{name}: natively {sorted(native[name])}, on Windows {sorted(windows[name])}")
    return problems


def lines_of(path):
    return Path(path).read_text(encoding="utf-8").splitlines()


def main(mode, *arguments):
    if mode == "list":
        print("\n".join(list_shared_object(*arguments)))
        return 0
    if mode == "list-dll":
        print("\n".join(list_dll(*arguments)))
        return 0
    if mode == "check":
        names, *headers = arguments
        problems = check(lines_of(names), Declarations(headers))
    elif mode == "compare":
        native, windows, *headers = arguments
        problems = compare(lines_of(native), lines_of(windows), Declarations(headers))
    else:
        sys.exit(__doc__)
    print("\n".join(problems) if problems else "the exports are those that the public headers declare")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
