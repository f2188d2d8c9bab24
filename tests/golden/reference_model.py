"""An independent model of units, value text, imperial lengths and string helpers.

It answers, slowly and plainly, what the library must answer, and is used to make the golden vector files beside it
(make_vectors.py). It is not part of the library, shares nothing with it, and favours one statement per rule over speed.

Doubles are Python floats; where Python would raise an exception the IEEE result is given instead. Texts hold characters
of the basic plane only, so a character is one wchar_t on both builds.
"""

import decimal
import functools
import math
import re
import struct

INT_MAX = 2147483647
INT_MIN = -2147483648
FEET_PER_METRE = 3.2808398950131235
INCHES_PER_METRE = 39.37007874015748

# ---------------------------------------------------------------------------------------------------------------------
# Doubles


def bits(x):
    return struct.unpack(">Q", struct.pack(">d", x))[0]


def from_bits(b):
    return struct.unpack(">d", struct.pack(">Q", b))[0]


INDEFINITE = from_bits(0xFFF8000000000000)  # what an invalid operation gives


def divide(a, b):
    if b != 0.0 or math.isnan(a):
        return a / b if not math.isnan(a) else a
    if a == 0.0:
        return INDEFINITE
    return math.copysign(math.inf, a) * math.copysign(1.0, b)


def power(x, y):
    """The system's power. doubtful_powers counts those that are not the correctly rounded ones: what comes of them may
    differ in the last digit between run-time libraries."""
    global doubtful_powers
    try:
        result = math.pow(x, y)
    except OverflowError:
        result = -math.inf if x < 0 and y % 2 == 1 else math.inf
    except ValueError:
        if x == 0.0:
            return -math.inf if math.copysign(1.0, x) < 0 and y % 2 == 1 else math.inf
        return INDEFINITE
    if x != 0.0 and x != 1.0 and y != 0.0 and math.isfinite(x) and math.isfinite(y) and math.isfinite(result):
        if abs(result) != rounded_power(abs(x), y):
            doubtful_powers += 1
    return result


doubtful_powers = 0


@functools.lru_cache(maxsize=4096)
def rounded_power(x, y):
    with decimal.localcontext() as context:
        context.prec = 60
        return float((decimal.Decimal(y) * decimal.Decimal(x).ln()).exp())


def log10(x):
    return math.log10(x) if not math.isinf(x) else x


def floor(x):
    if not math.isfinite(x) or x == 0.0:
        return x
    return math.copysign(float(math.floor(x)), x)


def truncate(x):
    if not math.isfinite(x):
        return x
    return math.copysign(float(math.trunc(x)), x)


def to_int(x):
    """The int nearest to zero; out of range saturates, no number gives 0."""
    if math.isnan(x):
        return 0
    if x >= INT_MAX:
        return INT_MAX
    if x <= INT_MIN:
        return INT_MIN
    return math.trunc(x)


def absolute_int(i):
    return min(abs(i), INT_MAX)


def as_signed(u):
    return u - (1 << 32) if u >= (1 << 31) else u


def nearly_equal(a, b):
    return (a - b) * (a - b) <= 1e-20


# ---------------------------------------------------------------------------------------------------------------------
# Printing and reading


def special_text(x, precision):
    """1.#INF and its kin, cut or padded to the precision; a cut rounds the last character as if it were a digit."""
    if math.isinf(x):
        name = "#INF"
    elif bits(x) == bits(INDEFINITE):
        name = "#IND"
    else:
        name = "#QNAN"
    sign = "-" if bits(x) >> 63 else ""
    if precision >= len(name):
        return sign + "1." + name + "0" * (precision - len(name))
    cut = name[:precision]
    if cut and name[precision] >= "5":
        cut = cut[:-1] + chr(ord(cut[-1]) + 1)
    return sign + "1" + ("." + cut if cut else "")


def print_double(flags, width, conversion, precision, x):
    if precision < 0:
        precision = 6
    if math.isfinite(x):
        return f"%{flags}{width}.{precision}{conversion}" % x
    assert flags == "" and width == "" and conversion in "fF", "no vector prints a special value so"
    return special_text(x, precision)


def fixed(precision, x):
    return print_double("", "", "f", precision, x)


def exponential(precision, x):
    return print_double("", "", "e", precision, x)


CONVERSION = re.compile(r"%([-+ #0]*)(\d*)\.\*(?:l|L)?([fegEG])")


def apply_format(pattern, precision, x):
    """A printf format that takes an int precision and a double."""
    result, i = "", 0
    while i < len(pattern):
        if pattern.startswith("%%", i):
            result, i = result + "%", i + 2
            continue
        match = CONVERSION.match(pattern, i)
        if match:
            result, i = result + print_double(match[1], match[2], match[3], precision, x), match.end()
            continue
        result, i = result + pattern[i], i + 1
    return result


NUMBER = re.compile(r"[ \t\n\v\f\r]*([-+]?(?:[0-9]+(?:\.[0-9]*)?|\.[0-9]+)(?:[eE][-+]?[0-9]+)?)")
INTEGER = re.compile(r"[ \t\n\v\f\r]*([-+]?[0-9]+)")


def read_double(text):
    match = NUMBER.match(text)
    return float(match[1]) if match else 0.0


def read_int(text):
    match = INTEGER.match(text)
    if not match:
        return 0
    digits = match[1].lstrip("+-").lstrip("0")
    value = int(digits[:12] or "0")
    return max(-value, INT_MIN) if match[1].startswith("-") else min(value, INT_MAX)


def upper(text):
    """Upper case, one character for one; the micro sign has none."""
    return "".join(c if c == "\u00b5" or len(c.upper()) != 1 else c.upper() for c in text)


# ---------------------------------------------------------------------------------------------------------------------
# Catalogue. Rows: symbol, title id, coefficient.

LENGTH_ROWS = [
    ("µm", 20921, 1000000.0),
    ("mm", 20922, 1000.0),
    ("cm", 20923, 100.0),
    ("dm", 20924, 10.0),
    ("m", 20925, 1.0),
    ('"', 20926, 39.37007874015748),
    ("'", 20927, 3.2808398950131235),
    ("Yd", 20962, 1.093613298),
    ("'-\"", 21038, 3.2808398950131235),
    ("' / \"", 21039, 3.2808398950131235),
    ('/"', 21040, 39.37007874015748),
]
TITLES_26 = [21046, 21044, 21048, 21054, 21047, 21049, 21055, 21051, 21052, 21053, 21056]
LENGTH_IDS = (1, 9, 12, 13, 14, 19, 21, 22, 23, 24, 25, 26)

ROWS = {
    2: [
        ("N", 20928, 1.0),
        ("daN", 20929, 0.1),
        ("kN", 20930, 0.001),
        ("MN", 20931, 1e-06),
        ("kg", 20932, 0.10197162129779283),
        ("T", 20933, 0.00010197162129779284),
        ("lb", 20964, 0.2248090836320252),
        ("kip", 20965, 0.00022480908363202524),
    ],
    3: [
        ("N*m", 20935, 1.0),
        ("daN*m", 20936, 0.1),
        ("kN*m", 20937, 0.001),
        ("MN*m", 20938, 1e-06),
        ("kg*m", 20939, 0.10197162129779283),
        ("T*m", 20940, 0.00010197162129779284),
        ("lb*in", 20941, 8.850751275919913),
        ("lb*ft", 20989, 0.737562610330745),
        ("kip*in", 20898, 0.008850751275919912),
        ("kip*ft", 20899, 0.000737562610330745),
    ],
    4: [
        ("kg", 20942, 1.0),
        ("T", 20943, 0.001),
        ("lb", 20934, 2.204624),
        ("kip", 20963, 0.024),
    ],
    5: [
        ("°", 20945, 57.29577951308232),
        ("Rad", 20946, 1.0),
        ("Grad", 20947, 63.66197723675813),
    ],
    7: [
        ("Pa", 20948, 1.0),
        ("kPa", 20949, 0.001),
        ("MPa", 20950, 1e-06),
        ("daN/mm²", 20951, 1e-07),
        ("kg/mm²", 20952, 1.0197162129779283e-07),
        ("kg/cm²", 20953, 1.0197162129779284e-05),
        ("t/m²", 20954, 0.00010197162129779284),
        ("bar", 20955, 1e-05),
        ("psi", 20966, 0.000145),
        ("kg/m²", 20995, 0.0010197162129779284),
        ("lb/in²", 20996, 0.000145),
        ("lb/ft²", 20997, 0.020885),
        ("ksi", 20900, 1.45e-07),
    ],
    8: [
        ("s", 20956, 1.0),
        ("min", 20957, 0.016666666666666666),
        ("h", 20958, 0.0002777777777777778),
    ],
    10: [
        ("°C", 20959, 1.0),
        ("°F", 20960, 1.8),
        ("K", 21034, 1.0),
    ],
    15: [
        ("J", 20967, 1.0),
        ("kJ", 20968, 0.001),
        ("ft-lb", 21033, 0.737562),
    ],
    16: [
        ("mm/s", 20969, 1000.0),
        ("cm/s", 20970, 100.0),
        ("m/s", 20971, 1.0),
        ("m/min", 20972, 60.0),
        ("km/h", 20973, 3.6),
        ("in/s", 20974, 39.37007874015748),
        ("in/min", 20975, 2362.2047244094488),
        ("in/h", 20976, 141732.28346456692),
        ("ft/s", 20977, 3.280839895013123),
        ("ft/min", 20978, 196.85039370078738),
        ("ft/h", 20979, 11811.023622047243),
    ],
    17: [
        ("mm/s²", 20980, 1000.0),
        ("cm/s²", 20981, 100.0),
        ("m/s²", 20982, 1.0),
        ("in/s²", 20983, 39.37007874015748),
        ("ft/s²", 20984, 3.280839895013123),
    ],
    18: [
        ("", 20985, 1.0),
        ("%", 20986, 1.0),
    ],
    20: [
        ("Hz", 20987, 1.0),
    ],
}
ROWS[6] = ROWS[5]
for _id in LENGTH_IDS:
    ROWS[_id] = LENGTH_ROWS

STRINGS = {
    20898: "KiloLivre*Pouce", 20899: "KiloLivre*Pied", 20900: "KiloLivreForce par pouce²",
    20921: "Micromètre", 20922: "Millimètre", 20923: "Centimètre", 20924: "Décimètre", 20925: "Mètre",
    20926: "Pouce", 20927: "Pied", 20928: "Newton", 20929: "DecaNewton", 20930: "KiloNewton", 20931: "MegaNewton",
    20932: "KgForce", 20933: "TonneForce", 20934: "Livre", 20935: "Newton*m", 20936: "DecaNewton*m",
    20937: "KiloNewton*m", 20938: "MegaNewton*m", 20939: "KgForce*m", 20940: "TonneForce*m", 20941: "Livre*Pouce",
    20942: "Kilogramme", 20943: "Tonne", 20945: "Degré", 20946: "Radian", 20947: "Grade", 20948: "Pascal (N/m²)",
    20949: "KiloPascal", 20950: "MPa (N/mm²)", 20951: "DecaNewton/mm²", 20952: "Kilogramme/mm²",
    20953: "Kilogramme/cm²", 20954: "Tonne/m²", 20955: "Bar (daN/cm²)", 20956: "Seconde", 20957: "Minute",
    20958: "Heure", 20959: "Degrés Celsius", 20960: "Degrés Fahrenheit", 20961: "Adim.", 20962: "Yard",
    20963: "KiloLivre", 20964: "LivreForce", 20965: "KiloLivreForce", 20966: "LivreForce par pouce²",
    20967: "Joule", 20968: "KiloJoule", 20969: "Millimètre/Seconde", 20970: "Centimètre/Seconde",
    20971: "Mètre/Seconde", 20972: "Mètre/Minute", 20973: "Kilomètre/Heure", 20974: "Pouce/Seconde",
    20975: "Pouce/Minute", 20976: "Pouce/Heure", 20977: "Pied/Seconde", 20978: "Pied/Minute", 20979: "Pied/Heure",
    20980: "Millimètre/Seconde²", 20981: "Centimètre/Seconde²", 20982: "Mètre/Seconde²", 20983: "Pouce/Seconde²",
    20984: "Pied/Seconde²", 20985: "Coefficient", 20986: "Pourcentage", 20987: "Hertz", 20989: "Livre*Pied",
    20995: "Kilogramme/m²", 20996: "Livre/Pouces²", 20997: "Livre/Pieds²",
    21000: "millimètres", 21001: "centimètres", 21002: "decimètres", 21003: "mètres", 21004: "pouces", 21005: "pied",
    21020: "sq in", 21021: "sq ft", 21022: "cu in", 21023: "cu ft", 21033: "Foot-Pound", 21034: "Degrés Kelvin",
    21038: "Foot-Inch", 21039: "Foot-Inch-Fraction", 21040: "Inch-Fraction", 21041: "Feet-Inches",
    21042: "Feet-Inches-Fractions", 21043: "Inches-Fractions", 21044: "Millimeter²", 21046: "Micrometer²",
    21047: "Meter²", 21048: "Centimenter²", 21049: "Inch²", 21051: "Yard²", 21052: "Foot-Inch²",
    21053: "Foot-Inch-Fraction²", 21054: "Decimeter²", 21055: "Foot²", 21056: "Inch-Fraction²",
}

CHOICE_COUNTS = [
    (1, 7), (2, 8), (3, 10), (4, 4), (5, 3), (6, 3), (7, 13), (8, 3), (9, 7), (10, 3), (11, 1), (12, 7), (13, 7),
    (14, 7), (15, 3), (16, 11), (17, 5), (18, 2), (19, 7), (20, 1), (21, 8), (22, 7), (23, 7), (24, 7), (25, 7), (26, 7),
]


def imperial_format(unit_range):
    return {8: 2, 9: 4, 10: 4}.get(unit_range, 3)


def catalogue(unit_id, unit_range):
    """(symbol, title, coefficient, type, format) or None."""
    if unit_id == 11:
        return "", STRINGS[20961], 1.0, 0, 0
    rows = ROWS.get(unit_id)
    if rows is None or not 0 <= unit_range < len(rows):
        return None
    symbol, title, coefficient = rows[unit_range]
    if unit_id == 26:
        title = TITLES_26[unit_range]
    if unit_id in LENGTH_IDS and unit_range >= 5:
        return symbol, STRINGS[title], coefficient, 1, imperial_format(unit_range)
    return symbol, STRINGS[title], coefficient, 0, 0


def get_string_units(unit_id, unit_range):
    if not 1 <= unit_id <= 26:
        return ""
    if unit_id == 11:
        return ""
    symbols = [row[0] for row in ROWS[unit_id]]
    if unit_id == 4:
        symbols = ["kg", "T", "lb", "klb"]
    if unit_range == -1:
        if unit_id == 7:
            symbols = ["Pa", "kPa", "Mpa", "daN/mm²", "kg/mm²", "kg/cm²", "t/m²", "psi", "lb/in²", "ksi"]
        if unit_id == 18:
            symbols = ["%"]
        return "\n".join(symbols)
    if 0 <= unit_range < len(symbols):
        return symbols[unit_range]
    return "---"


NAME_GROUPS = [
    ["µm", "N", "N*m", "°", "Pa", "s", "°C", "J", "mm/s", "mm/s²", "Hz"],
    ["mm", "daN", "daN*m", "Rad", "kPa", "min", "kJ", "cm/s", "cm/s²", "%"],
    ["cm", "kN", "kN*m", "Grad", "MPa", "h", "m/s", "m/s²"],
    ["dm", "MN", "MN*m", "daN/mm²", "m/min", "in/s²"],
    ["m", "kg", "kg*m", "kg/mm²", "km/h", "ft/s²"],
    ['"', "T", "T*m", "kg/cm²", "in/s"],
    ["'", "lb", "lb*in", "t/m²", "in/min"],
    ["Yd", "kip", "bar", "in/h"],
    ["psi", "ft/s"],
    ["ft/min"],
    ["ft/h"],
]
TITLE_GROUPS = [
    [20921, 20928, 20935, 20945, 20948, 20956, 20959, 20967, 20969, 20980],
    [20922, 20929, 20936, 20946, 20949, 20957, 20968, 20970, 20981, 20986],
    [20923, 20930, 20937, 20947, 20950, 20958, 20971, 20982],
    [20924, 20931, 20938, 20951, 20972, 20983],
    [20925, 20932, 20939, 20952, 20973, 20984],
    [20926, 20933, 20940, 20953, 20974],
    [20927, 20964, 20941, 20954, 20975],
    [20962, 20965, 20955, 20976],
    [20966, 20977, 21038],
    [20978, 21039],
    [20979, 21040],
]


def range_from_name(symbol):
    for unit_range, group in enumerate(NAME_GROUPS):
        if symbol in group:
            return unit_range
    return None


def range_from_title(title):
    for unit_range, group in enumerate(TITLE_GROUPS):
        if title in [STRINGS[i] for i in group]:
            return unit_range
    return None


def all_units_symbols(unit_id):
    if unit_id not in LENGTH_IDS:
        return []
    return ["µm", "mm", "cm", "dm", "m", '"', "'", "Yd", "'-\"", "' / \"", '/"']


def eliminate_units_symbol(unit_id, text):
    for symbol in all_units_symbols(unit_id):
        text = text.replace(symbol, "")
        text = text.replace(upper(symbol), "")
    return text


# ---------------------------------------------------------------------------------------------------------------------
# Unit

SQUARE_INCH, SQUARE_FOOT, CUBIC_INCH, CUBIC_FOOT = (STRINGS[i] for i in (21020, 21021, 21022, 21023))


def replace_until_none(text, pattern, replacement):
    while pattern in text:
        text = text.replace(pattern, replacement)
    return text


class Unit:
    current_separator = "."  # one for the whole process

    def __init__(self, unit_id=1, unit_range=4, precision=3, separator=".", metrics_factor=1.0, remove_zeroes=0):
        self.id = unit_id
        self.range = unit_range
        self.precision = precision
        self.exponent = 1
        self.separator = self.ruled(separator)
        self.name = ""
        self.title = ""
        self.coef = 1.0
        self.type = 0
        self.metrics_factor = metrics_factor
        self.remove_zeroes = remove_zeroes
        self.format = 0
        self.update()

    @staticmethod
    def ruled(separator):
        return Unit.current_separator if separator == "." else separator

    def update(self):
        row = catalogue(self.id, self.range)
        if row:
            symbol, title, coefficient, unit_type, unit_format = row
            self.set_type(unit_type)
            self.format = unit_format
            self.store_title(title)
            self.store_name(symbol)
            self.coef = coefficient
        self.separator = Unit.current_separator

    def store_name(self, text):
        self.name = text[:19]

    def store_title(self, text):
        self.title = text[:49]

    def assign(self, other):
        for field in ("id", "range", "precision", "exponent", "type", "format", "title", "name", "coef",
                      "metrics_factor", "remove_zeroes"):
            setattr(self, field, getattr(other, field))
        self.separator = self.ruled(other.separator)

    def copy(self):
        result = Unit()
        result.assign(self)
        return result

    def equals(self, other):
        return int(
            self.id == other.id
            and self.range == other.range
            and self.precision == other.precision
            and self.format == other.format
            and self.separator == other.separator
            and self.metrics_factor == other.metrics_factor
            and self.remove_zeroes == other.remove_zeroes
        )

    def set_id(self, unit_id):
        self.id = unit_id
        self.update()

    def set_range(self, unit_range):
        self.range = unit_range
        self.update()

    def set_id_and_range(self, unit_id, unit_range):
        self.id = unit_id
        self.range = unit_range
        self.update()

    def set_separator(self, separator):
        self.separator = self.ruled(separator)

    def set_metrics_factor(self, factor):
        self.metrics_factor = factor if self.id in LENGTH_IDS else 1.0

    def set_type(self, unit_type):
        self.type = unit_type
        if unit_type == 0:
            self.format = 0
        elif unit_type == 1:
            self.format = imperial_format(self.range)

    def set_exponent(self, exponent):
        old = self.exponent
        self.coef = power(self.coef, divide(float(exponent), float(old)))

        def changed(text):
            if old == 2:
                if len(text) >= 2 and text.endswith("²"):
                    text = text[:-1]
            elif old != 1 and str(old) in text:
                text = text[: text.index(str(old))]
            if exponent >= 2:
                text += "²" if exponent == 2 else str(exponent)
            return text

        name, title = changed(self.name), changed(self.title)
        if name:
            self.store_name(name)
        if title:
            self.store_title(title)
        self.store_name(self.get_name())
        self.get_title()
        self.exponent = exponent

    def get_name(self):
        text = self.name
        for pattern, replacement in (
            ('"²', SQUARE_INCH),
            ('"2', SQUARE_INCH),
            ('"3', CUBIC_INCH),
            ("'²", SQUARE_FOOT),
            ("'2", SQUARE_FOOT),
            ("'3", CUBIC_FOOT),
        ):
            text = replace_until_none(text, pattern, replacement)
        return text

    def get_title(self):
        text = self.title
        for pattern, replacement in (
            ('"²', SQUARE_INCH),
            ('"2', SQUARE_INCH),
            ('"3', CUBIC_INCH),
            ('"', STRINGS[20926]),
            ("'²", SQUARE_FOOT),
            ("'2", SQUARE_FOOT),
            ("'3", CUBIC_FOOT),
            ("'", STRINGS[20927]),
        ):
            text = replace_until_none(text, pattern, replacement)
        text = text.replace("²²", "²", 1)
        self.store_title(text)
        return self.title

    def get_title_plural(self):
        if self.id not in LENGTH_IDS:
            return ""
        plural = {1: 21000, 2: 21001, 3: 21002, 4: 21003, 5: 21004, 6: 21005, 8: 21041, 9: 21042, 10: 21043}
        return STRINGS[plural[self.range]] if self.range in plural else ""

    def si_to_double(self, value, use_metrics_factor):
        value = self.coef * value
        if use_metrics_factor:
            value = divide(value, self.metrics_factor)
        if self.id == 10 and self.range == 1:
            value += 32.0
        if self.id == 10 and self.range == 2:
            value += 273.15
        return value

    def double_to_si(self, value, use_metrics_factor):
        if self.id == 10 and self.range == 1:
            value -= 32.0
        if self.id == 10 and self.range == 2:
            value -= 273.15
        value = divide(value, self.coef)
        if use_metrics_factor:
            value = value * self.metrics_factor
        return value

    def times(self, other):
        result = self.copy()
        result.multiply(other)
        return result

    def over(self, other):
        result = self.copy()
        result.divide_by(other)
        return result

    def multiply(self, other):
        name = self.get_name() + other.get_name()
        self.coef = self.coef * other.coef
        self.store_name(name)

    def divide_by(self, other):
        name = self.get_name() + "/" + other.get_name()
        self.coef = divide(self.coef, other.coef)
        self.store_name(name)

    def make(self, exponent, pairs):
        """Composes in place; pairs are (unit, power)."""
        if exponent >= 2:
            self.coef = self.coef * self.coef if exponent == 2 else power(self.coef, float(exponent))
            suffix = "²" if exponent == 2 else str(self.exponent)
            self.store_name(self.get_name() + suffix)
            self.store_title(self.get_title() + suffix)
        for unit, p in pairs:
            self.coef = self.coef * (unit.coef * unit.coef if p == 2 else power(unit.coef, float(p)))
            name = unit.get_name()
            if p == 0:
                suffix = ""
            elif p == 1:
                suffix = "*" + name
            elif p == 2:
                suffix = "*" + name + "²"
            elif p >= 3:
                suffix = "*" + name + str(p)
            elif p == -1:
                suffix = "/" + name
            elif p == -2:
                suffix = "/" + name + "²"
            else:
                suffix = "/" + name + str(p)
            self.store_name(self.name + suffix)
            self.store_title(self.title + suffix)
        self.store_name(self.get_name())

    # Value text

    def length_like(self):
        return any(symbol in self.name for symbol in ("µm", "mm", "cm", "dm", "m", '"', "'"))

    def double_to_string(self, buffer, value, with_unit, pattern, metrics, remove_zeros, size, small, threshold,
                         superscript=None, drop_zero=0):
        """superscript None is the shorter overload, which also adds temperature offsets."""
        if self.type == 1 and self.exponent == 1 and self.format != 3:
            return self.imperial_to_string(buffer, value, with_unit, metrics, size)

        length_like = self.length_like()
        if self.id in (1, 12, 21, 22, 23, 24, 25, 26) and metrics:
            factor = self.metrics_factor
            m = factor * factor if self.exponent == 2 else power(factor, float(self.exponent))
            v = divide(value * self.coef, m)
        else:
            v = value * self.coef

        if superscript is None and self.id == 10:
            if self.range == 1:
                v = v + 32.0
            if self.range == 2:
                v = v + 273.15

        p = as_signed(self.precision)
        if length_like:
            v, p = self.rounded(v, p)

        out = apply_format(pattern, p, v)
        buffer.copy_limited(out, size - 1)

        if remove_zeros and self.separator in out:
            while out.endswith("0"):
                out = out[:-1]
            if out.endswith(self.separator):
                out = out[:-1]

        if small:
            if 0 <= threshold <= 5:
                limit = (0.1, 0.01, 0.001, 0.0001, 0.00001, 0.000001)[threshold]

                def tolerance(x):
                    return abs(x) * 1e-10 + 1e-10

                if v < limit - tolerance(limit) and v * v > 1e-20 and v - tolerance(v) > -limit:
                    out = exponential(as_signed(self.precision), v)
            buffer.copy_limited(out, size - 1)

        if superscript and length_like and self.type == 0:
            out = format_with_exponent(out, self.coef, self.separator, "", "<>", "", 1000.0, bool(drop_zero))

        printed = fixed(6, v)
        if printed in ("1.#INF00", "1.#IND00"):
            out = "INF"
        elif printed in ("-1.#INF00", "-1.#IND00"):
            out = "-INF"

        buffer.copy_limited(out, len(out) + 1)

        if not with_unit:
            buffer.copy_limited(out, size - 1)
        else:
            if self.name == "":
                s = out
            elif self.type == 1 and self.exponent == 2:
                s = out + " sq in"
            elif self.type == 1 and self.exponent == 3:
                s = out + " cu in"
            else:
                s = out + " " + self.get_name()
            buffer.copy_limited(s, size - 1)
        return buffer.text()

    def rounded(self, v, p):
        step = 1 / 100.0 if p == 2 else divide(1.0, power(10.0, float(self.precision)))
        q = floor(divide(v, step))
        base = q * step
        rem = v - base
        if q == 0.0:
            if divide(rem, self.coef) < 0.001 and self.id != 12:
                return 0.0, p
            text = fixed(12, v)
            s = text.find(self.separator)
            if s >= 0:
                for i in range(s + 1, len(text)):
                    if text[i] != "0":
                        return v, i - s
            return v, p
        half = step * 0.5
        tolerance = abs(half) * (step * 0.01) + step * 0.01
        return (base + step if rem >= half - tolerance else base), p

    def imperial_to_string(self, buffer, value, with_unit, metrics, size):
        if metrics:
            value = divide(value, self.metrics_factor)
        if self.length_like():
            if self.format == 2:
                text = format_feet_inches(value * FEET_PER_METRE, False, self.precision, self.separator, 2)
                buffer.copy_whole(text)
                return text
            if self.format == 4:
                text = ""
                if self.range == 9:
                    text = format_feet_inches(value * FEET_PER_METRE, False, self.precision, self.separator, 4)
                if self.range == 10:
                    text = format_feet_inches(value * INCHES_PER_METRE, True, self.precision, self.separator, 4)
                buffer.copy_whole(text)
                return text
        else:
            text = metre_to_imperial_text(value, as_signed(self.precision), self.range)
            if text is not None:
                buffer.copy_whole(text)
        text = buffer.text()
        if not with_unit:
            text = eliminate_units_symbol(self.id, text)
        buffer.copy_whole(text[:size])
        return text

    def string_to_double(self, text, metrics):
        """(value, ok); ok is None when it is left alone."""
        if not text:
            return 0.0, None
        ok = 1
        if self.type == 1 and self.exponent == 1:
            x = 0.0
            if 5 <= self.range <= 10:
                feet = parse_feet_inches(text, False, self.separator, self.format)
                if feet is None:
                    ok, feet = 0, 0.0
                x = feet * 12.0
            mf = self.metrics_factor
            if nearly_equal(mf, INCHES_PER_METRE):
                return (x if metrics else x / INCHES_PER_METRE), ok
            if nearly_equal(mf, FEET_PER_METRE):
                return (x / 12.0 if metrics else x / INCHES_PER_METRE), ok
            if nearly_equal(self.coef, FEET_PER_METRE):
                return (mf * (x / 12.0 / FEET_PER_METRE) if metrics else mf * (x / FEET_PER_METRE)), ok
            return mf * (x / INCHES_PER_METRE), ok
        d = read_double(text)
        if not metrics:
            return divide(d, self.coef), ok
        factor = self.metrics_factor
        m = factor * factor if self.exponent == 2 else power(factor, float(self.exponent))
        return divide(d, self.coef) * m, ok


class Buffer:
    """The caller's buffer. extent is one past the last character that may have been written or was there before."""

    def __init__(self, initial):
        self.content = initial
        self.extent = len(initial) + 1

    def text(self):
        return self.content

    def copy_whole(self, text):
        self.content = text
        self.extent = max(self.extent, len(text) + 1)

    def copy_limited(self, text, limit):
        """As lstrcpynW: at most limit - 1 characters; a limit of 0 writes nothing."""
        limit &= 0xFFFFFFFF
        if limit:
            self.copy_whole(text[: limit - 1])


def eliminate_precision(text):
    for separator in (".", ","):
        while separator in text:
            start = end = text.index(separator)
            while end < len(text) and text[end] in "Ee0123456789+-.,":
                end += 1
            text = text.replace(text[start:end], "")
    return text


def replace_number_separator(separator, text):
    if separator not in text or separator == Unit.current_separator:
        return False, text
    return True, text.replace(separator, Unit.current_separator)


def format_with_exponent(text, coef, separator, prefix, pattern, suffix, sub_units, drop_zero):
    number = text
    if pattern.lstrip(" ") == "":
        pattern = "<>" + pattern
    sup = ""
    if coef != 0.0 and divide(sub_units, coef) > 0.0:
        e = log10(divide(sub_units, coef)) - 1
        s = number.find(separator)
        if e >= 0 and e == floor(e) and s >= 0:
            length = len(number)
            right = length - e - s - 1
            left = s + 1 + e if e > 0 else s
            if 0 < right < length and 0 < left < length:
                sup = number[length - int(right):]
                number = number[: int(left)]
    if drop_zero and sup.strip("0") == "":
        sup = ""
    body = number if sup == "" else number + "{\\H0.6x;\\S" + sup + "^;}"
    text = prefix + pattern.replace("<>", body + suffix)
    if "\\A1;" not in text:
        text = "\\A1;" + text
    return text


# ---------------------------------------------------------------------------------------------------------------------
# Imperial lengths


def metre_to_whole(m, per_metre):
    x = m * per_metre
    f = to_int(x)
    return f, (x - f) / per_metre


def metre_to_fractions(m, p):
    k = power(2.0, float(p)) * INCHES_PER_METRE
    x = k * m
    rest = divide(x - truncate(x), k)
    return to_int(x + 0.5 if x > 0 else x - 0.5), rest


def metre_to_fractions_rest(m):
    return m - (m * INCHES_PER_METRE) / INCHES_PER_METRE


def metre_to_imperial(m, kind):
    """(positive, feet, inches, numerator, remainder)"""
    positive, feet, inches, remainder = m >= 0, 0, 0, 0.0
    if kind not in (5, 6):
        return positive, 0, 0, 0, abs(m * INCHES_PER_METRE)
    left = m
    if kind == 6:
        x = m * FEET_PER_METRE
        feet = absolute_int(to_int(x))
        left = (x - truncate(x)) / FEET_PER_METRE
    y = left * INCHES_PER_METRE
    inches = absolute_int(to_int(y))
    remainder = abs(y - truncate(y))
    return positive, feet, inches, 0, remainder


def fractions_to_metre(n, p):
    return divide(n / INCHES_PER_METRE, power(2.0, float(p)))


def imperial_to_metre(positive, feet, inches, numerator, p):
    value = fractions_to_metre(numerator, p) + (feet / FEET_PER_METRE + inches / INCHES_PER_METRE)
    return value if positive else -value


def metre_to_imperial_text(m, precision, kind):
    if kind not in (5, 6):
        return None
    _, feet, inches, _, remainder = metre_to_imperial(m, kind)
    sign = "-" if m < 0 else ""
    decimal = fixed(precision, inches + remainder)
    return sign + (f"{feet}'-" if kind == 6 else "") + decimal + '"'


def imperial_text(text, kind):
    """(ok, positive, feet, inches, numerator, denominator power): the token grammar."""
    positive, feet, inches, numerator, denominator = True, 0, 0, 0, 0
    text = text.lstrip(" ")
    if text.startswith("-"):
        positive = False
        text = text[1:].lstrip(" ")
    ok, state, fraction, inch_mark, feet_marked = True, 1, False, False, False

    while ok and text:
        digits = re.match("[0-9]*", text)[0]
        number = read_int(digits)
        terminator = text[len(digits):][:1]
        text = text[len(digits) + 1:]

        if terminator == "":
            if state == 1 and kind == 6:
                feet = number
            elif state == 1 and kind == 5:
                inches = number
            elif state == 2:
                inches = number
            elif state == 4:
                denominator = number
            else:
                ok = False
        elif terminator == " ":
            text = text.lstrip(" ")
            if state >= 5:
                ok = False
            elif state == 1 and kind == 6:
                feet, state = number, 2
                if text.startswith("-"):
                    text = text[1:]
                    if not text.startswith(" "):
                        ok = False
                    text = text.lstrip(" ")
            elif state in (1, 2):
                inches, state = number, 3
            elif state == 3:
                numerator, state = number, 4
            else:
                denominator, state = number, 5
        elif terminator == '"':
            if fraction:
                denominator = number
            else:
                inches = number
            ok = state < 5
            inch_mark = True
            state = 5
        elif terminator in "'-":
            if state == 1 and kind == 6:
                if terminator == "'" and text.startswith("-"):
                    text = text[1:]
                feet, feet_marked, state = number, True, 2
            else:
                ok = False
        elif terminator == "/":
            if state >= 4 and digits:
                ok = False
            else:
                fraction = True
                if state == 2 and not feet_marked:
                    inches, feet = feet, 0
                if digits:
                    numerator = number
                elif state == 2 and not feet_marked:
                    numerator, inches = inches, 0
                elif state == 3:
                    numerator = 0 if inch_mark else inches
                    inches = 0 if feet_marked else feet
                    feet = 0
                state = 4
        else:
            ok = False

    power_of_two = 0
    if fraction:
        set_bits = [i for i in range(9) if denominator & (1 << i)]
        ok = len(set_bits) == 1
        if ok:
            power_of_two = set_bits[0]
    return ok, positive, feet, inches, numerator, power_of_two


def imperial_text_to_metre(text, kind):
    ok, positive, feet, inches, numerator, p = imperial_text(text, kind)
    return ok, imperial_to_metre(positive, feet, inches, numerator, p)


def imperial_text_to_value(text, unit):
    """The value, or None when the unit is not imperial."""
    if unit.type != 1:
        return None
    for mark in "*+/":
        text = text.split(mark)[0]
    value = parse_feet_inches(text, unit.range == 5, unit.separator, unit.format)
    return 0.0 if value is None else value


def format_feet_inches(value, in_inches, precision, separator, unit_format):
    a = abs(value)
    text = ""
    if unit_format == 2:
        if in_inches:
            text = fixed(as_signed(precision), a) + '"'
        else:
            feet = truncate(a)
            x = (a - feet) * 12.0
            feet = to_int(feet)
            s = fixed(as_signed(precision), x)
            s = s.rstrip("0")
            if s.endswith(separator):
                s = s[:-1]
            s += '"'
            if feet == 0:
                text = s
            elif x * x > 1e-20:
                text = f"{feet}'-{s}"
            else:
                text = f"{feet}'"
    elif unit_format == 4:
        feet, x = 0, a
        if not in_inches:
            feet = truncate(a)
            x = (a - feet) * 12.0
        inches = truncate(x)
        d = 4.0 if precision == 2 else power(2.0, float(precision))
        n = to_int(d * (x - inches))
        step = 1 / (2 * d)
        if (x - inches) - n / d > step + (abs(step) * 1e-10 + 1e-10):
            n += 1
        d = int(d)
        if n == d:
            inches, n = inches + 1, 0
        else:
            while n and n % 2 == 0 and d % 2 == 0:
                n, d = n // 2, d // 2
        if not in_inches and inches == 12:
            feet, inches = feet + 1, 0
        feet, inches = to_int(feet), to_int(inches)
        fraction = f'{n}/{d}"' if inches == 0 else f'{inches} {n}/{d}"'
        if n and feet:
            text = f"{feet}'-" + fraction
        elif n:
            text = fraction
        elif feet:
            text = f"{feet}'" if inches == 0 else f"{feet}'-{inches}\""
        else:
            text = f'{inches}"'
    else:
        return ""
    return "-" + text if value < -1e-10 else text


def parse_feet_inches(text, in_inches, separator, unit_format):
    """Inches or feet, or None."""
    copy = text.split(" ")[0].split("\t")[0]
    negative = copy.startswith("-")
    if "." in text and unit_format not in (2, 4):
        value = read_double(text)
        if in_inches and "'" in text:
            value = value * 12.0
        if not in_inches and "'" not in text:
            value = value / 12.0
        return value * -1.0 if negative else value

    numbers, marks, last_was_number = [], [""], False
    for c in text:
        is_number = c in "0123456789" or c == separator
        if is_number:
            if not last_was_number:
                numbers.append("")
                marks.append("")
            numbers[-1] += c
        else:
            marks[-1] += c
        last_was_number = is_number
    if not 1 <= len(numbers) <= 4:
        return None
    numbers = [read_double(n) for n in numbers]
    if marks[0] == "-":
        marks[0] = ""
    marks = [mark.split(" ")[0].split("\t")[0] for mark in marks]
    if marks[0] != "":
        return None

    inner, final = marks[1:-1], marks[-1]
    foot_marks = ("'-", "'", "-")
    closed = final in ("", '"')
    if len(numbers) == 4 and inner[0] in foot_marks and inner[1] == "" and inner[2] == "/" and closed:
        inches = numbers[0] * 12 + numbers[1] + divide(numbers[2], numbers[3])
    elif len(numbers) == 3 and inner[0] in foot_marks + ("",) and inner[1] == "/" and closed:
        whole = numbers[0] if inner[0] == "" else numbers[0] * 12
        inches = divide(numbers[1], numbers[2]) + whole
    elif len(numbers) == 2 and inner[0] == "/" and closed:
        inches = divide(numbers[0], numbers[1])
    elif len(numbers) == 2 and inner[0] in foot_marks and closed:
        inches = numbers[0] * 12 + numbers[1]
    elif len(numbers) == 1 and final == "'":
        inches = numbers[0] * 12
    elif len(numbers) == 1 and closed:
        inches = numbers[0]
    else:
        return None
    value = inches if in_inches else inches / 12.0
    return -value if negative else value


# ---------------------------------------------------------------------------------------------------------------------
# String helpers


def exclude_char(text, chars):
    return "".join(c for c in text if c not in chars)


def include_char(text, chars):
    i = 0
    while i < len(text):
        if text[i] not in chars:
            text = text[:i] + text[i + 1:]
            i = max(i - 1, 0)
        i += 1
    return text


def tokenize(text, delimiter, plain):
    elements, token = [], ""
    for c in text:
        if c != delimiter:
            token += c
            continue
        if not plain and delimiter in "\n\\":
            token = token[:-1]
        elements.append(token)
        token = ""
    elements.append(token)
    return elements


def parse_string_to_long(text, allow_zero):
    def accepted(token):
        number = read_int(token)
        return number if number != 0 or (allow_zero == 1 and token.startswith("0")) else None

    values, excluded = [], []
    copy = text.replace(",", " ").strip(" ").rstrip("-").strip(" ")
    last = False
    while not last:
        copy = copy.strip(" ").lstrip("-").strip(" ")
        d = copy.find("-")
        b = copy.find(" ")
        if b < 0:
            b, last = len(copy), True
        if d < 0 or b <= d:
            token, copy = copy[:b], copy[b:]
            target = values
            if token.startswith("!"):
                token, target = token[1:], excluded
            number = accepted(token)
            if number is not None:
                target.append(number)
            continue
        first, copy = accepted(copy[:d]), copy[d + 1:]
        b = copy.find(" ")
        if b < 0:
            b = len(copy)
        second, copy = accepted(copy[:b]), copy[b:]
        if first is None:
            continue
        if second is None:
            second = first
        values.extend(range(min(first, second), max(first, second) + 1))
    return [v for v in sorted(set(values)) if v not in excluded]


def compare_upper_case(a, b):
    a, b = upper(a), upper(b)
    return (a > b) - (a < b)
