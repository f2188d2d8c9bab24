#!/usr/bin/python3
"""Makes the golden vector files from reference_model.py.

    make_vectors.py                        rewrites the files beside this script
    make_vectors.py --check                compares them with what would be written; 1 when a file differs
    make_vectors.py --count 50000 --seed 7 --output /tmp/vectors
                                           so many random vectors per file, for a local run with
                                           VETOOLS_GOLDEN_VECTORS=/tmp/vectors vetools_tests --gtest_filter=*Golden*

A file is UTF-8 text, one vector per line: the function, its inputs, a column "=", what is expected, all separated by
tabs. Texts escape \\t, \\n, \\\\ and what does not print as \\uXXXX; \\0 alone is a null pointer. Doubles are the 16
hexadecimal digits of their bits; an answer that is no number is nan, whatever its bits. Units are given by the steps
that make them, one per word; in a word %XXXX stands for a character, and what is converted, compared or printed is unit
A at the end. GoldenVectorsTest.cpp reads the files and knows the functions and the steps.

What depends on a power that the system does not round correctly is not asked.
"""

import argparse
import math
import pathlib
import random
import re
import sys

import reference_model as model
from reference_model import Buffer, Unit

IMPERIAL_FACTORS = (1.0, 2.0, 0.5, 1000.0, 0.3048, 0.0254, model.FEET_PER_METRE, model.INCHES_PER_METRE, 1e-3, 7.25)
SEPARATORS = ".,;"


# ---------------------------------------------------------------------------------------------------------------------
# Writing


def escape(text):
    out = []
    for c in text:
        if c in "\\\t\n":
            out.append({"\\": "\\\\", "\t": "\\t", "\n": "\\n"}[c])
        elif c.isprintable() and ord(c) != 0xA0:
            out.append(c)
        else:
            out.append(f"\\u{ord(c):04X}")
    return "".join(out)


def column(value, of_answer=False):
    if value is None:
        return "\\0"
    if isinstance(value, (bool, int)):
        return str(int(value))
    if isinstance(value, float):
        return "nan" if of_answer and math.isnan(value) else f"{model.bits(value):016X}"
    if isinstance(value, Script):
        return value.text()
    return escape(value)


def word(value):
    """One argument of a step."""
    if isinstance(value, str):
        return "".join(c if c.isalnum() and ord(c) < 128 else f"%{ord(c):04X}" for c in value)
    return column(value)


class Script:
    """Steps that make units, done here on the model as they are written down."""

    def __init__(self):
        Unit.current_separator = "."
        self.units = {name: Unit() for name in "ABCD"}
        self.steps = []

    def text(self):
        return " ".join(self.steps)

    @property
    def unit(self):
        return self.units["A"]

    def step(self, target, verb, *arguments):
        self.steps.append(f"{target}.{verb}=" + ",".join(word(a) for a in arguments))
        units, unit = self.units, self.units[target]
        if verb == "current":
            Unit.current_separator = arguments[0]
        elif verb == "default":
            units[target] = Unit()
        elif verb == "new":
            units[target] = Unit(*arguments).copy()
        elif verb in ("copy", "clone"):
            units[target] = units[arguments[0]].copy().copy()
        elif verb == "assign":
            unit.assign(units[arguments[0]])
        elif verb == "precision":
            unit.precision = arguments[0]
        elif verb == "separator":
            unit.set_separator(arguments[0])
        elif verb == "exponent":
            unit.set_exponent(arguments[0])
        elif verb == "coef":
            unit.coef = arguments[0]
        elif verb == "factor":
            unit.set_metrics_factor(arguments[0])
        elif verb == "type":
            unit.set_type(arguments[0])
        elif verb == "format":
            unit.format = arguments[0]
        elif verb == "zeroes":
            unit.remove_zeroes = arguments[0]
        elif verb == "id":
            unit.set_id(arguments[0])
        elif verb == "range":
            unit.set_range(arguments[0])
        elif verb == "idrange":
            unit.set_id_and_range(*arguments)
        elif verb == "name":
            unit.store_name(arguments[0])
        elif verb == "values":
            unit.store_title(arguments[0])
            unit.store_name(arguments[1])
            unit.coef = arguments[2]
        elif verb == "title":
            unit.get_title()
        elif verb == "times":
            unit.assign(units[arguments[0]].times(units[arguments[1]]))
        elif verb == "over":
            unit.assign(units[arguments[0]].over(units[arguments[1]]))
        elif verb == "multiply":
            unit.multiply(units[arguments[0]])
        elif verb == "divide":
            unit.divide_by(units[arguments[0]])
        elif verb in ("make", "makeinto"):
            first, exponent, *rest = arguments
            pairs = [(units[rest[i]], rest[i + 1]) for i in range(0, len(rest), 2)]
            if verb == "make":
                units[first].make(exponent, pairs)
                unit.assign(units[first].copy())
            else:
                unit.assign(units[first])
                unit.make(exponent, pairs)
        else:
            raise AssertionError(verb)
        return self


def script_of(unit_id, unit_range, precision=3):
    return Script().step("A", "new", unit_id, unit_range, precision, ".", 1.0, 0)


# ---------------------------------------------------------------------------------------------------------------------
# Questions: each gives (function, inputs, expected)


def ask_unit(script):
    unit = script.unit
    state = [unit.id, unit.range, unit.precision, unit.exponent, unit.separator, unit.coef, unit.type,
             unit.metrics_factor, unit.format, unit.remove_zeroes, unit.get_name()]
    state += [unit.get_title(), unit.get_title_plural()]
    return "Unit", [script], state


def ask_equal(script):
    equal = script.units["A"].equals(script.units["B"])
    return "Equal", [script], [equal, 1 - equal]


def ask_conversion(script, value, metrics):
    return [
        ("SI2Double", [script, value, metrics], [script.unit.si_to_double(value, metrics)]),
        ("Double2SI", [script, value, metrics], [script.unit.double_to_si(value, metrics)]),
    ]


def ask_string_units(unit_id, unit_range):
    return "GetStringUnits", [unit_id, unit_range], [model.get_string_units(unit_id, unit_range)]


def ask_range(function, text):
    find = {"GetRangeFromUnitName": model.range_from_name, "GetRangeFromUnitTitle": model.range_from_title}[function]
    found = None if text is None else find(text)
    return function, [text], [found is not None, 777 if found is None else found]


def ask_text(script, value, with_unit=0, pattern="%.*f", metrics=0, remove_zeros=0, size=100, small=0, threshold=0,
             superscript=None, drop_zero=0, initial=""):
    buffer = Buffer(initial)
    text = script.unit.double_to_string(buffer, value, with_unit, pattern, metrics, remove_zeros, size, small,
                                        threshold, superscript, drop_zero)
    inputs = [script, value, with_unit, pattern, metrics, remove_zeros, size, small, threshold]
    function = "Double2String"
    if superscript is not None:
        function = "Double2StringSuperscript"
        inputs += [superscript, drop_zero]
    return function, inputs + [initial], [text, buffer.text(), buffer.extent]


def ask_value(script, text, metrics):
    value, ok = script.unit.string_to_double(text, metrics)
    return "String2Double", [script, text, metrics], [value, 7 if ok is None else ok]


def ask_eliminate(unit_id, text):
    return "EliminateUnitsSymbol", [unit_id, text], [model.eliminate_units_symbol(unit_id, text)]


def ask_precision(text):
    return "EliminatePrecision", [text], [model.eliminate_precision(text)]


def ask_replace(current, separator, text):
    Unit.current_separator = current
    return "ReplaceNumberSeparator", [current, separator, text], list(model.replace_number_separator(separator, text))


def ask_markup(text, coef, separator, prefix, pattern, suffix, sub_units, drop_zero):
    result = model.format_with_exponent(text, coef, separator, prefix, pattern, suffix, sub_units, drop_zero)
    return "FormatStringWithExponent", [text, coef, separator, prefix, pattern, suffix, sub_units, drop_zero], [result]


def ask_metres(m, p, kind):
    return [
        ("Meter2Feet", [m], list(model.metre_to_whole(m, model.FEET_PER_METRE))),
        ("Meter2Inches", [m], list(model.metre_to_whole(m, model.INCHES_PER_METRE))),
        ("Meter2Fractions", [m, p], list(model.metre_to_fractions(m, p))),
        ("Meter2FractionsRest", [m], [model.metre_to_fractions_rest(m)] * 2),
        ("Meter2Imperial", [m, p, kind], list(model.metre_to_imperial(m, kind))),
    ]


def ask_imperial_length(positive, feet, inches, numerator, p):
    return [
        ("Feet2Meter", [feet], [feet / model.FEET_PER_METRE]),
        ("Inches2Meter", [inches], [inches / model.INCHES_PER_METRE]),
        ("Fractions2Meter", [numerator, p], [model.fractions_to_metre(numerator, p)]),
        ("Imperial2Meter", [positive, feet, inches, numerator, p],
         [model.imperial_to_metre(positive, feet, inches, numerator, p),
          model.imperial_to_metre(True, feet, inches, numerator, p)]),
    ]


def ask_metre_text(m, p, kind, initial=""):
    text = model.metre_to_imperial_text(m, p, kind)
    return "Meter2ImperialStr", [m, p, kind, initial], [initial if text is None else text]


def ask_imperial_text(text, kind):
    ok, metres = model.imperial_text_to_metre(text, kind)
    return [
        ("ImperialStr2Imperial", [text, kind], list(model.imperial_text(text, kind))),
        ("ImperialStr2Meter", [text, kind],
         [ok, metres, metres * model.FEET_PER_METRE, metres * model.INCHES_PER_METRE]),
    ]


def ask_imperial_value(script, text):
    value = model.imperial_text_to_value(text, script.unit)
    return "ImperialStr2Value", [script, text], [value is not None, 777.0 if value is None else value]


def ask_tokens(text, delimiter, plain):
    elements = model.tokenize(text, delimiter, plain)
    return "CStringTokenizer", [text, delimiter, plain], [len(elements), len(elements) - 1] + elements


def ask_list(text, allow_zero):
    values = model.parse_string_to_long(text, allow_zero)
    return "ParseStringToLong", [text, allow_zero], [" ".join(map(str, values))]


def ask_filter(text, chars):
    return [
        ("ExcludeChar", [text, chars], [model.exclude_char(text, chars)]),
        ("IncludeChar", [text, chars], [model.include_char(text, chars)]),
    ]


def ask_compare(a, b):
    return "CompareUpperCase", [a, b], [model.compare_upper_case(a, b)]


# ---------------------------------------------------------------------------------------------------------------------
# Random material


class Dice(random.Random):
    def often(self, chance):
        return self.random() < chance

    def flag(self):
        return self.choice((0, 1))

    def any_double(self):
        """Values of every size, with the round ones and their neighbours that decide roundings."""
        kind = self.randrange(10)
        if kind == 0:
            return self.choice((0.0, -0.0, 1.0, -1.0, 0.5, 10.0, 0.001, 1e-10, -1e-10, 1e-9, 1e10, 123456789.0, 0.1,
                                5e-324, 2.2250738585072014e-308, 1e15, 1e16, 1e17, 9007199254740993.0, 0.3, -0.005))
        if kind < 5:
            digits = self.randrange(1, 10)
            x = self.randrange(10**digits) / 10 ** self.randrange(0, 9)
            if self.often(0.3):
                x = (self.randrange(10**digits) + 0.5) / 10 ** self.randrange(0, 9)
            if self.often(0.3):
                x = math.nextafter(x, self.choice((-math.inf, math.inf)))
        elif kind < 7:
            x = 10 ** self.uniform(-12, 12)
        elif kind < 8:
            x = self.uniform(0, 100)
        elif kind < 9:
            x = math.ldexp(self.randrange(1 << 20), -self.randrange(0, 30))
        else:
            x = 10 ** self.uniform(-60, 60)
        return -x if self.often(0.35) else x

    def special_double(self):
        return self.choice((math.inf, -math.inf, math.nan, model.INDEFINITE, 1.7976931348623157e308, 1e300, -1e300,
                            5e-324, 1e-320))

    def length(self):
        """Metres that are some binary fraction of an inch, or nearly."""
        p = self.randrange(10)
        inches = self.randrange(1 << p) / (1 << p) + self.choice((0, 0, 1, 3, 11, 12, 23, 24, 35, 143, 1000))
        m = inches / model.INCHES_PER_METRE
        if self.often(0.4):
            m *= 1 + self.uniform(-1e-9, 1e-9)
        if self.often(0.2):
            m = math.nextafter(m, self.choice((-math.inf, math.inf)))
        return -m if self.often(0.3) else m

    def unit_pair(self):
        unit_id = self.choice((1, 1, 1, 12, 26, *range(1, 27)))
        if self.often(0.05):
            return self.choice((unit_id, 0, 27, 4294967295)), self.choice((0, 5, 11, 4294967295))
        ranges = 1 if unit_id == 11 else len(model.ROWS[unit_id])
        return unit_id, self.randrange(ranges)

    def some_text(self, pieces, most=8):
        return "".join(self.choice(pieces) for _ in range(self.randrange(most + 1)))

    def number(self):
        kind = self.randrange(12)
        if kind < 4:
            return str(self.randrange(1000))
        if kind < 8:
            return f"{self.any_double():.{self.randrange(12)}f}"
        if kind < 9:
            return repr(self.any_double())
        if kind < 10:
            return f"{self.any_double():.{self.randrange(20)}e}"
        digits = "".join(self.choice("0123456789") for _ in range(self.randrange(1, 45)))
        cut = self.randrange(len(digits) + 1)
        exponent = self.choice(("", "", "e", "E", "e+", f"e{self.randrange(-330, 330)}", "e-5", "E+007", "e99999999999"))
        return self.choice(("", "-", "+")) + digits[:cut] + self.choice((".", "", ",")) + digits[cut:] + exponent

    def number_text(self):
        kind = self.randrange(12)
        if kind < 8:
            return self.choice(("", "", "", " ", "\t", "  ")) + self.number() + self.choice(
                ("", "", "", " m", "mm", " kN", ".", ".5", " 7", "e", "x", "'", '"', "\t"))
        if kind < 9:
            return self.choice(("inf", "nan", "INF", "-inf", "0x10", "0x1p4", "1.#INF", ".", "-", "+", "-.", "e5", ".e5",
                                "--5", "+-5", " ", "1d5", "1D-3", "1 000", "1e", "1e+", "0e0", "-0", "00012", "1__", ".5",
                                "5.", "-.5e1", "infinity", "1.7976931348623159e308", "2.4703282292062328e-324", "1e-400",
                                "2.4703282292062327208299e-324", "9007199254740993", "9007199254740992.99999999999999",
                                "179769313486231580793" + "0" * 288, "0." + "0" * 330 + "1", "1" * 400, "0" * 400 + "1",
                                "4.35", "0.000001", "123456789012345678901234567890", "١٢", "½", "１２"))
        return self.some_text("0123456789.,-+eE xd\t'\"/", 10)

    def imperial_number(self):
        kind = self.randrange(8)
        if kind < 6:
            return str(self.randrange(self.choice((2, 4, 13, 20, 300))))
        return self.choice(("0", "00", "8", "16", "256", "512", "513", "12", "2147483647", "2147483648", "99999999999",
                            "007", "", "1.5", "2.", ".5", "1,5", "3,"))

    def imperial_string(self):
        """Feet, inches and fractions, well formed or a little wrong."""
        kind = self.randrange(10)
        if kind < 2:
            return self.some_text(["'", '"', "-", "/", " ", "0", "1", "2", "4", "8", "16", "12"], 9)
        if kind < 3:
            return self.some_text(["'", '"', "-", "/", " ", "\t", "3", "4", "1/2", ".", ",", "x", "ft", "+", "*", "e"], 7)
        number = self.imperial_number
        if kind < 8:
            number = lambda: str(self.randrange(self.choice((2, 4, 13, 300))))
        gap = lambda: self.choice(("", "", "", "", " ", "  ", "\t"))
        feet = number() + gap() + self.choice(("'", "'-", "-", " ", " - ", "' ", "'- ", "' - ", "")) + gap()
        inches = number() + self.choice((" ", " ", "-", "  ", "", '"', "\t"))
        denominator = str(2 ** self.randrange(10)) if self.often(0.8) else number()
        fraction = number() + gap() + "/" + gap() + denominator
        text = (feet if self.often(0.6) else "") + (inches if self.often(0.6) else "")
        text += (fraction if self.often(0.6) else "") + self.choice(("", '"', '"', "'", " ", ' "', '""', "x"))
        return self.choice(("", "", "", "-", "- ", " -", " ", "+", "--")) + text

    def unit_script(self, hostile=0.1):
        """A unit with every setting thrown."""
        script = Script()
        if self.often(0.1):
            script.step("A", "current", self.choice(",;."))
        unit_id, unit_range = self.unit_pair()
        precision = self.choice((0, 1, 2, 3, 4, 5, 6, 7, 8, 12)) if not self.often(0.05) else self.randrange(0, 25)
        factor = self.choice(IMPERIAL_FACTORS) if self.often(0.4) else 1.0
        separator = self.choice(SEPARATORS) if self.often(0.2) else "."
        script.step("A", "new", unit_id, unit_range, precision, separator, factor, self.flag())
        if self.often(0.15):
            script.step("A", "separator", self.choice(SEPARATORS))
        if self.often(0.2):
            script.step("A", "exponent", self.choice((2, 3, 2, 3, 1, 4, -1)))
        if self.often(hostile):
            script.step("A", "type", self.choice((0, 1, 1, 2)))
        if self.often(hostile):
            script.step("A", "format", self.choice((0, 1, 2, 3, 4, 9)))
        if self.often(hostile):
            script.step("A", "name", self.some_name())
        if self.often(hostile / 4):
            script.step("A", "range", self.randrange(12))
        if self.often(hostile / 4):
            script.step("A", "coef", self.choice((0.0, -1.0, 2.5, 1e300, 1e-300, 3.2808398950131235, math.inf)))
        return script

    def some_name(self):
        return self.choice(("", "m", "mm", "Pa", "lb", "sec", "lbm", "'", '"', '"²', "'2", "'3x", '"2"3', "''", "µ",
                            "a very long unit name with m", "²", "²²", "x²²", '"²²', "cu", "é ½", "m3/s3", "kN*'2"))

    def step_script(self):
        """Steps in any order; the sizes stay where every power is finite."""
        script = Script()
        names = "ABCD"
        for name in names:
            unit_id, unit_range = self.unit_pair()
            script.step(name, "new", unit_id, unit_range, self.randrange(9), self.choice(SEPARATORS), 1.0, self.flag())
        for _ in range(self.randrange(7)):
            target, other, third = self.choice("AAAB"), self.choice(names), self.choice(names)
            powers = (-3, -2, -1, 0, 1, 2, 3, 4)
            step = self.randrange(17)
            if step < 4:
                script.step(target, "exponent", self.choice((1, 2, 3, 4, 2, 3, -1, -2)))
            elif step == 4:
                script.step(target, self.choice(("times", "over")), other, third)
            elif step == 5:
                script.step(target, self.choice(("multiply", "divide")), other)
            elif step < 9:
                rest = []
                for _ in range(self.randrange(4)):
                    rest += [self.choice(names), self.choice(powers)]
                # The pairs are read while the first unit changes; one unit in both places is not asked.
                rest = [("D" if r in (other, target) else r) if isinstance(r, str) else r for r in rest]
                if other != "D" and target != "D":
                    script.step(target, self.choice(("make", "makeinto")), other, self.choice((1, 2, 3, 0, -1, 4)), *rest)
            elif step == 9:
                script.step(target, self.choice(("copy", "clone", "assign")), other)
            elif step == 10:
                script.step(target, "current", self.choice(".,"))
            elif step == 11:
                script.step(target, "separator", self.choice(".,;"))
            elif step == 12:
                script.step(target, "factor", self.choice(IMPERIAL_FACTORS))
            elif step == 13:
                script.step(target, "type", self.choice((0, 1, 2)))
                script.step(target, "format", self.choice((0, 1, 2, 3, 4)))
            elif step == 14:
                script.step(target, self.choice(("id", "range")), self.choice((0, 1, 2, 7, 9, 10, 11, 26, 27)))
            elif step == 15:
                script.step(target, "idrange", *self.unit_pair())
            else:
                title = self.choice(("", "Surface", 'a" b\'', "x²²²", 'Pouce"²', "t" * 60, "'2 '3 '", "Cube3 3"))
                script.step(target, "values", title, self.some_name(), self.choice((1.0, 2.5, 1000.0)))
                if self.often(0.5):
                    script.step(target, "title")
        return script


# ---------------------------------------------------------------------------------------------------------------------
# Files: fixed rows first, then random ones


def unit_rows():
    for unit_id in range(0, 29):
        for unit_range in range(-2, 15):
            yield ask_string_units(unit_id, unit_range)
            if unit_range >= 0:
                yield ask_unit(script_of(unit_id, unit_range))
    for text in sorted({s for group in model.NAME_GROUPS for s in group} | {r[0] for rows in model.ROWS.values() for r in rows}
                       | {"klb", "", "kg ", "KG", "Mpa", "m²"}):
        yield ask_range("GetRangeFromUnitName", text)
    for text in [*model.STRINGS.values(), "", "mètre", "Mètre "]:
        yield ask_range("GetRangeFromUnitTitle", text)
    yield ask_range("GetRangeFromUnitName", None)
    yield ask_range("GetRangeFromUnitTitle", None)
    for unit_id in (0, 1, 2, 9, 12, 18, 26, 27):
        yield "GetAllUnitsSymbols", [unit_id], ["\n".join(model.all_units_symbols(unit_id))]
    exponents = (0, -1, 1, 2, 3, 10, 12)
    for old in exponents:
        for new in exponents:
            for unit_id in (1, 11):
                yield ask_unit(script_of(unit_id, 2).step("A", "exponent", old).step("A", "exponent", new))
    for name in ("3x", "x3", "12", "cm12", "²", "a²", "2", "-1"):
        for old in (0, -1, 2, 3, 12):
            for new in (1, 2, 3):
                script = script_of(1, 2).step("A", "exponent", old).step("A", "values", "T" + name, name, 2.0)
                yield ask_unit(script.step("A", "exponent", new))
    for first in ('"', "'", 'x"', "'2x", '"²'):
        for second in ("2", "²", "3", "²x"):
            for verb in ("times", "over"):
                script = Script().step("B", "name", first).step("C", "name", second).step("A", verb, "B", "C")
                yield ask_unit(script.step("A", "times", "A", "C").step("A", "exponent", 2))
            for exponent in (1, 2, 3):
                script = Script().step("B", "name", first).step("C", "name", second)
                yield ask_unit(script.step("A", "make", "B", exponent, "C", 1, "C", -2))


def unit_random(dice):
    kind = dice.randrange(10)
    if kind < 6:
        yield ask_unit(dice.step_script())
    elif kind < 7:
        yield ask_equal(dice.step_script())
    elif kind < 9:
        value = dice.special_double() if dice.often(0.03) else dice.any_double()
        yield from ask_conversion(dice.unit_script(), value, dice.flag())
    else:
        pieces = ["12", " ", "m", "mm", "MM", "M", "cm", "Cm", "dm", "DM", "'", '"', "-", "/", " / ", "Yd", "YD", "yd",
                  "µm", "µ", "3.5", "x", "kN"]
        yield ask_eliminate(dice.choice((1, 1, 9, 26, 2, 0)), dice.some_text(pieces))


def decimal_rows():
    values = (0.0, -0.0, 1.0, -1.0, 0.5, 12.5, 1.0049, 1.0048, 2.345, -0.005, 0.0005, 1234.5678, 1e-7, -1e-7, 99.995)
    for unit_id in range(1, 27):
        for unit_range in range(1 if unit_id == 11 else len(model.ROWS[unit_id])):
            for i, value in enumerate(values):
                precision = (3, 2, 0, 1, 4, 8, 6)[(i + unit_id + unit_range) % 7]
                yield ask_text(script_of(unit_id, unit_range, precision), value, with_unit=i % 2, small=i % 3 == 0,
                               threshold=i % 6, remove_zeros=(i + unit_range) % 2)
            yield ask_value(script_of(unit_id, unit_range), "12.5", 0)
    for value in (math.inf, -math.inf, math.nan, model.INDEFINITE):
        for precision in range(9):
            for unit_id in (1, 2):
                yield ask_text(script_of(unit_id, 1, precision), value, with_unit=1, remove_zeros=precision % 2)
    for size in range(1, 12):
        yield ask_text(script_of(1, 1, 3), 0.0125, with_unit=1, size=size)
        yield ask_text(script_of(2, 1, 3), 12.5, size=size)
    for precision in (9, 15, 17, 20, 22, 23, 30, 100, 308, 309, 323, 400, 4294967295):
        for unit_id in (1, 2):
            for value in (0.0, 1.5, -0.005):
                yield ask_text(script_of(unit_id, 4, precision), value, with_unit=1, size=1000)
    for separator in "0-1' \"e/":
        for unit_id, unit_range in ((1, 4), (12, 4), (1, 8), (1, 9)):
            for value in (12.5, 0.0005, -1.25, 100.0):
                script = script_of(unit_id, unit_range).step("A", "separator", separator)
                yield ask_text(script, value, with_unit=1, remove_zeros=1)
                yield ask_text(script, value, with_unit=1, superscript=1)
        for text in ("3-4", "10", "3'-4 1/2\"", "-3", "1/2"):
            for unit_range in (5, 8, 9):
                yield ask_value(script_of(1, unit_range).step("A", "separator", separator), text, 0)
    for threshold in range(-1, 7):
        for value in (0.1, 0.09, 0.01, 0.001, 0.0009999, 0.00001, 0.0000001, 1e-10, 1.1e-10, -0.05, -0.1, -0.2):
            yield ask_text(script_of(2, 0, 3), value, small=1, threshold=threshold)
    for text in ("12.50 m", "1.5 x 2.5", "3,25 kN", "1e5", ".1 .12", "1.2.3", "1,2.3,4", "", ".", "a.b,c"):
        yield ask_precision(text)
    for current in ".,":
        for separator in ".,;":
            yield ask_replace(current, separator, "1,5 2.5 3;5")
    for pattern in ("", " ", "<>", "a<>b<>", "\\A1;<>", "none", "<<>>"):
        for coef in (1.0, 10.0, 100.0, 1000.0, 0.0, -1.0, 39.37007874015748, 1e-3):
            for number in ("12.3450", "0.100", "7", "-1.25", "5.00"):
                yield ask_markup(number, coef, ".", "", pattern, " x", 1000.0, 1)


FORMATS = ("%.*f",) * 12 + ("%.*lf", "%.*e", "%.*g", "%.*E", "%.*G", "%+.*f", "% .*f", "%012.*f", "%-12.*f|", "%12.*f",
                            "%#.*f", "%.*f%%", "~%.*f mm", "[%.*f]")


def decimal_random(dice):
    kind = dice.randrange(12)
    if kind < 7:
        script = dice.unit_script()
        pattern = dice.choice(FORMATS)
        value = dice.any_double()
        if script.unit.type == 1 and dice.often(0.6):
            value = dice.length()
        if dice.often(0.02) and pattern == "%.*f" and script.unit.format != 4:
            value = dice.special_double()
        superscript = None if dice.often(0.6) else dice.flag()
        size = 100 if dice.often(0.8) else dice.randrange(1, 20)
        initial = "" if dice.often(0.7) else dice.choice(("12 mm", "left 3'-4\" over", "a longer text that was there"))
        metrics = dice.flag()
        if not (math.isfinite(value) and 1e-8 < abs(script.unit.coef) < 1e8):
            pattern = "%.*f"  # what is no plain number is asked in the plainest format only
        yield ask_text(script, value, dice.flag(), pattern, metrics, dice.flag(), size, dice.flag(),
                       dice.choice((0, 1, 2, 3, 4, 5, 5, 6, -1)), superscript, dice.flag(), initial)
    elif kind < 10:
        script = dice.unit_script()
        text = dice.number_text()
        if script.unit.type == 1 and dice.often(0.8):
            text = dice.imperial_string()
        yield ask_value(script, dice.choice((None, "")) if dice.often(0.01) else text, dice.flag())
    elif kind < 11:
        pieces = ["1.5", "12", ".", ",", "e5", "E", "-", "+", " ", " m", "x", "0", ".25", ",25", "3,25", "7.", "1e-3"]
        yield ask_precision(dice.some_text(pieces))
        yield ask_replace(dice.choice(".,"), dice.choice(".,;x"), dice.some_text(["1", ".", ",", ";", "x", " "]))
    else:
        value = dice.any_double()
        yield ask_markup(model.fixed(dice.randrange(9), value), dice.choice((1.0, 10.0, 100.0, 1000.0, 1e-3, 0.1, 2.0, 0.0)),
                         dice.choice("...,"), dice.choice(("", "p ")), dice.choice(("<>", "", "  ", "<> m", "a<>b<>c")),
                         dice.choice(("", "s")), dice.choice((1000.0, 1000.0, 100.0, 1e6, 10.0, -5.0, 0.0)), dice.flag())


def imperial_rows():
    for precision in range(9):
        for m in (0.0, 1.0, -1.0, 0.3048, 0.3047999, 0.0254, 0.375 / model.INCHES_PER_METRE, 1.0287, 11.999 * 0.0254):
            for unit_range in range(5, 11):
                yield ask_text(script_of(1, unit_range, precision), m, with_unit=1)
            yield ask_metre_text(m, precision, 5)
            yield ask_metre_text(m, precision, 6)
    for text in ("3'-4 1/2\"", "5 3/4", "1/12", "1/256", "-2'", "3' 4 1/2\"", "", " ", "-", "3-4", "3 - 4", "3 -4",
                 '4"', "4'", '3 4"', "3'4\"", "5 / 4", "1//2", "3 4 /2", "3'-4 /2", '2"/4', "7/512", "1/513", "3x", "1.5"):
        for kind in (5, 6, 7):
            yield from ask_imperial_text(text, kind)
        for unit_range in range(5, 11):
            script = script_of(1, unit_range)
            yield ask_imperial_value(script, text)
            yield ask_value(script, text, 1)
    yield ask_metre_text(1.0, 2, 4, "untouched")


def imperial_random(dice):
    kind = dice.randrange(10)
    value = dice.length() if dice.often(0.6) else dice.any_double()
    if kind < 2:
        yield from ask_metres(value, dice.randrange(9), dice.choice((5, 6, 5, 6, 4, 7, 0)))
    elif kind < 3:
        number = lambda: dice.choice((0, 1, 3, 11, 12, -4, 1000, 2147483647, -2147483648))
        yield from ask_imperial_length(dice.flag() == 1, number(), number(), number(), dice.randrange(9))
    elif kind < 4:
        yield ask_metre_text(value, dice.randrange(9), dice.choice((5, 6)))
    elif kind < 7:
        yield from ask_imperial_text(dice.imperial_string(), dice.choice((6, 6, 6, 5, 5, 7)))
    elif kind < 8:
        yield ask_imperial_value(dice.unit_script(), dice.imperial_string())
    elif kind < 9:
        script = script_of(dice.choice((1, 9, 26)), dice.randrange(5, 11), dice.randrange(9))
        yield ask_value(script, dice.imperial_string(), dice.flag())
    else:
        # What the formatter wrote, and what reading it gives back.
        length, precision = dice.length(), dice.randrange(9)
        unit_range = dice.randrange(8, 11)
        question = ask_text(script_of(1, unit_range, precision), length)
        yield question
        yield ask_value(script_of(1, unit_range, precision), question[2][0], 0)


def string_rows():
    for text in ("1,3-5 7", "5-3", "2 2 1", "1-4 !3", "0 1", "a b", "3-x", "x-3", "!3-5", "--5", "3--5", "1-", "-1", "",
                 " ", "-", ",", "1-3-5", "3- 5", "3 -5", "!!3 3", "0-2", "00", "+4", "12abc", "!0 0 1", "99999999999",
                 "! 3 3", "!3,3", "!-3 3", "3-!5", "--", "- -", "1-2-3-4", "5--2", "\t3-5", "0-0", "x0-3", "+3-+5", "1\t3"):
        for allow_zero in (0, 1, 2):
            yield ask_list(text, allow_zero)
    for text in ("", "a", "a;b;", ";;", "x\r\ny", "\n", "a\\b\\", "no", "a\nb\n\n"):
        for delimiter in ";\n\\":
            yield ask_tokens(text, delimiter, 0)
            yield ask_tokens(text, delimiter, 1)
    yield from ask_filter("ab12", "0123456789")
    for a, b in (("abc", "ABC"), ("", ""), ("a", ""), ("été", "ÉTÉ"), ("ÿ", "Ÿ"), ("a", "_"), ("Z", "a"), ("ß", "SS")):
        yield ask_compare(a, b)
        yield ask_compare(b, a)
    for b in (0, 1, 5, -1):
        yield "BoolToString", [b], ["TRUE" if b else "FALSE"]


def string_random(dice):
    kind = dice.randrange(4)
    if kind < 2:
        pieces = ["1", "3", "12", "0", "7", "00", "-", "-", ",", " ", "  ", "!", "x", "+2", "20", "9a", "\t"]
        text = dice.some_text(pieces, 12)
        if not re.search("[0-9]{4}", text) or "-" not in text:  # a range over thousands is no news
            yield ask_list(text, dice.flag())
    elif kind < 3:
        yield ask_tokens(dice.some_text([";", "\n", "\r\n", "\\", "a", "bc", " ", "é"], 10), dice.choice(";\n\\a "),
                         dice.flag())
    else:
        yield from ask_filter(dice.some_text("abc123 é"), dice.some_text("a1é c3", 4))


FILES = {
    # name: rows, random vectors, their number in the tree
    "units.txt": (unit_rows, unit_random, 1200),
    "decimaltext.txt": (decimal_rows, decimal_random, 3000),
    "imperial.txt": (imperial_rows, imperial_random, 1500),
    "strings.txt": (string_rows, string_random, 700),
}


def lines(vectors):
    for function, inputs, expected in vectors:
        yield "\t".join([function, *map(column, inputs), "=", *(column(e, True) for e in expected)]) + "\n"


def file_text(name, seed, count, with_rows):
    rows, random_vectors, own_count = FILES[name]
    dice = Dice(f"{name} {seed}")
    parts = list(lines(rows())) if with_rows else []
    for _ in range(count if count is not None else own_count):
        doubtful = model.doubtful_powers
        answered = list(lines(random_vectors(dice)))
        if model.doubtful_powers == doubtful:
            parts.extend(answered)
    return "".join(parts)


def main():
    parser = argparse.ArgumentParser(description="Makes the golden vector files.")
    parser.add_argument("--check", action="store_true", help="compare instead of writing")
    parser.add_argument("--count", type=int, help="random vectors per file instead of the usual number")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--output", type=pathlib.Path, default=pathlib.Path(__file__).parent)
    arguments = parser.parse_args()
    differing = []
    for name in FILES:
        data = file_text(name, arguments.seed, arguments.count, arguments.count is None).encode()
        path = arguments.output / name
        if not arguments.check:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(data)
        elif not path.exists() or path.read_bytes() != data:
            differing.append(name)
    if differing:
        sys.exit("differ from what make_vectors.py makes: " + ", ".join(differing))


if __name__ == "__main__":
    main()
