#!/usr/bin/env python3
"""cli_test.py [--update] [--only CLASS] [WRAPPER...] VETOOLS: runs the `vetools` command and compares all that it prints, byte for byte.

Each test is named by the sentence it proves. Many values share a process, as a start under Wine costs most of the time.
Long outputs are files in golden/, which --update writes anew, to be reviewed as a diff.
"""

import argparse
import datetime
import json
import os
import shlex
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from pathlib import Path

GOLDEN = Path(__file__).parent / "golden"
PROGRAM = []
UPDATE = False

DONE, SOME_FAILED, USAGE = 0, 1, 2


def run(*arguments, given=b"", folder=None):
    """Exit code, standard output and standard error of the command, run in a folder."""
    if isinstance(given, str):
        given = given.encode()
    done = run_once(arguments, given, folder)
    # Wine now and then ends a program before it begins. The command itself never fails without a word.
    if len(PROGRAM) > 1 and done.returncode == SOME_FAILED and not done.stdout and not done.stderr:
        done = run_once(arguments, given, folder)
    return done.returncode, done.stdout, done.stderr.decode()


def run_once(arguments, given, folder):
    return subprocess.run([*PROGRAM, *arguments], input=given, capture_output=True, timeout=120, cwd=folder)


def csv_file(content):
    """The path of a file with this content, as the program is given it."""
    folder = new_folder()
    path = Path(folder) / "values.csv"
    path.write_bytes(content if isinstance(content, bytes) else content.encode())
    return os.path.relpath(path)


def new_folder():
    return tempfile.mkdtemp(dir=WORK)


class CommandTest(unittest.TestCase):
    maxDiff = None

    def prints(self, expected, *arguments, given=b"", code=DONE):
        """The command prints these lines and, when it is done, nothing on standard error."""
        actual_code, output, errors = run(*arguments, given=given)
        self.assertEqual((output.decode(), actual_code), (expected, code), f"{arguments}\n{errors}")
        if code == DONE:
            self.assertEqual(errors, "", arguments)
        return errors

    def streams(self, rows, *arguments, code=DONE):
        """Rows of (expected text, input line), all through one process."""
        expected = "".join(text + "\n" for text, _ in rows)
        given = "".join(line + "\n" for _, line in rows)
        return self.prints(expected, *arguments, given=given, code=code)

    def refuses(self, expected, *arguments):
        """A usage error: nothing on standard output, and the words on standard error."""
        code, output, errors = run(*arguments)
        self.assertEqual((code, output), (USAGE, b""), arguments)
        for words in [expected] if isinstance(expected, str) else expected:
            self.assertIn(words, errors, arguments)

    def golden(self, name, *arguments, code=DONE, folder=None):
        actual_code, output, errors = run(*arguments, folder=folder)
        self.assertEqual((actual_code, errors), (code, ""), f"{arguments}\n{output.decode()}")
        path = GOLDEN / name
        if UPDATE:
            path.write_bytes(output)
        self.assertEqual(output.decode(), path.read_bytes().decode(), arguments)


class Convert(CommandTest):
    def test_converts_a_value_from_one_unit_to_another(self):
        self.prints("2810.114 lb\n", "convert", "12.5", "kN", "lb")

    def test_reads_feet_inches_and_fractions(self):
        self.prints("1028.700 mm\n", "convert", "3'-4 1/2\"", "mm")
        self.streams(
            [
                ("0.000 mm", "0\""),
                ("304.800 mm", "1'"),
                ("25.400 mm", "1\""),
                ("25.400 mm", "1''"),
                ("11.113 mm", "7/16\""),
                ("161.925 mm", "6 3/8\""),
                ("1028.700 mm", "3' 4 1/2\""),
                ("1028.700 mm", "3'4 1/2\""),
                ("1028.700 mm", "3'-4.5\""),
                ("1028.700 mm", "3′-4 1/2″"),
                ("965.200 mm", "3'2"),
                ("-1028.700 mm", "-3'-4 1/2\""),
                ("-1028.700 mm", "−3'-4 1/2\""),
                ("12.500 mm", "12.5 mm"),
                ("12500.000 mm", "12.5m"),
                ("25.400 mm", "1 in"),
                ("914.400 mm", "3 Pied"),
            ],
            "convert",
            "mm",
        )

    def test_writes_feet_inches_and_fractions(self):
        self.prints("3'-4 9/16\"\n", "convert", "1.03", "m", "' / \"", "--precision", "4")
        self.prints("40 1/2\"\n", "convert", "1028.7", "mm", "/\"")

    def test_a_number_without_marks_counts_the_unit_that_was_named(self):
        self.streams(
            [("0.762 m", "2.5"), ("-0.762 m", "-2.5"), ("0.914 m", "3"), ("0.762 m", "2'-6\""), ("0.051 m", "2\"")],
            "convert", "'", "m",
        )
        self.streams([("0.051 m", "2.0"), ("-0.051 m", "-2.0"), ("0.305 m", "1'")], "convert", "\"", "m")
        self.streams([("2.286 m", "2.5"), ("-2.286 m", "-2.5")], "convert", "Yd", "m")
        self.streams([("0.064 m", "2.5"), ("0.051 m", "2"), ("0.762 m", "2'-6\"")], "convert", "' / \"", "m")

    def test_takes_a_value_with_its_symbol_and_negative_values(self):
        self.prints("2810.114 lb\n2810.114 lb\n-0.787 lb\n-0.112 lb\n", "convert", "12.5kN", "12.5 kN", "-3.5N", "-.5N", "lb")
        self.prints("-786.832 lb\n", "convert", "-3.5", "kN", "lb")

    def test_temperatures_keep_their_offsets(self):
        self.streams(
            [("100.000 °C", "212"), ("-40.000 °C", "-40"), ("-40.000 °C", "-40 °F"), ("0.000 °C", "32°F")],
            "convert", "°F", "°C",
        )
        self.streams([("273.150 K", "0 °C"), ("273.150 K", "32 degF"), ("5.000 K", "5 K")], "convert", "K")

    def test_areas_and_volumes_are_powers_of_lengths(self):
        for expected, *arguments in [
            ("0.025 m²", "250", "cm2", "m2"),
            ("0.025 m²", "250", "cm²", "m²"),
            ("0.025 m²", "250", "cm^2", "1:4^2"),
            ("10.764 sq ft", "1", "m2", "'2"),
            ("1550.003 sq in", "1", "m2", "in2"),
            ("35.315 cu ft", "1", "m3", "cu ft"),
            ("8356.000 cm4", "83560000", "mm4", "cm4"),
        ]:
            with self.subTest(arguments):
                self.prints(expected + "\n", "convert", *arguments)

    def test_other_spellings_name_the_same_unit(self):
        for expected, *arguments in [
            ("12500.000 N", "12.5", "KN", "n"),
            ("12500.000 N", "12.5", "KiloNewton", "newton"),
            ("12500.000 N", "12.5", "2:2", "force:N"),
            ("1.000 N*m", "1", "Nm", "N·m"),
            ("1.000 MPa", "1", "N/mm2", "MPa"),
            ("1000.000 µm", "1", "mm", "um"),
            ("1000.000 µm", "1", "mm", "μm"),
            ("180.000 °", "3.14159265358979", "rad", "deg"),
        ]:
            with self.subTest(arguments):
                self.prints(expected + "\n", "convert", *arguments)

    def test_the_other_side_decides_what_a_shared_symbol_means(self):
        self.prints("49.033 N\n", "convert", "5", "kg", "N")
        self.prints("5.000 kg\n", "convert", "49.03325", "N", "kg")
        self.prints("5.000 kg\n", "convert", "49.03325 N", "kg")
        self.prints("0.240 kip\n", "convert", "10", "kg", "klb")
        self.prints("11.023 lb\n", "convert", "5", "4:0", "lb")

    def test_a_shared_symbol_that_nothing_decides_is_asked_for_with_its_candidates(self):
        self.refuses(
            ["2:4  kg  KgForce (force)", "2:6  lb  LivreForce (force)", "4:0  kg  Kilogramme (mass)", "4:2  lb  Livre (mass)"],
            "convert", "5", "kg", "lb",
        )
        self.refuses(["2:7  kip  KiloLivreForce (force)", "4:3  kip  KiloLivre (mass)"], "format", "5", "kip")

    def test_units_that_measure_different_things_are_refused(self):
        self.refuses(["does not convert", "2:2  kN  KiloNewton (force)", "1:1  mm  Millimètre (length)"], "convert", "5", "kN", "mm")
        self.refuses(["(area)", "(length)"], "convert", "5", "m2", "m")

    def test_settings_change_the_text(self):
        for expected, *options in [
            ("2810 lb", "--precision", "0"),
            ("2810.11355 lb", "-p", "5"),
            ("2810,114 lb", "--separator", ","),
            ("2810.114", "--no-unit"),
        ]:
            with self.subTest(options):
                self.prints(expected + "\n", "convert", "12500", "N", "lb", *options)
        self.prints("12,5 kN\n", "convert", "12500,0", "N", "kN", "-s", ",", "--trailing-zeros", "remove")

    def test_json_gives_the_unrounded_value(self):
        self.prints(
            '{"input":"12.5","value":2810.113545400315,"unit":"lb","text":"2810.114 lb"}\n',
            "convert", "12.5", "kN", "lb", "--json",
        )


class Format(CommandTest):
    def test_writes_si_values_in_a_unit(self):
        self.prints("12.500 kN\n-3.500 kN\n", "format", "12500", "-3500 N", "kN")
        self.prints("212.000 °F\n", "format", "100", "°F")
        self.prints("3'-4 9/16\"\n", "format", "1.03", "1:9", "--precision", "4")
        self.prints("0.100 %\n", "format", "0.1", "%")

    def test_trailing_zeros_are_kept_or_removed(self):
        self.prints("12.500 m\n", "format", "12.5", "m", "--trailing-zeros", "keep")
        self.prints("12.5 m\n12 m\n", "format", "12.5", "12", "m", "--trailing-zeros", "remove")

    def test_small_values_are_written_with_exponents_below_the_threshold(self):
        self.prints("2.000e-05 MN\n1.000 MN\n", "format", "20", "1e6", "MN", "--exponent-notation", "3")
        self.prints("0.000 MN\n", "format", "20", "MN")

    def test_superscripts_are_drawing_mark_up(self):
        self.prints("\\A1;1.23{\\H0.6x;\\S5^;} m\n", "format", "1.235", "m", "--superscript")
        self.prints("\\A1;1,23{\\H0.6x;\\S5^;} m\n", "format", "1,235", "m", "--superscript", "--separator", ",")
        self.prints("\\A1;1.23 m\n", "format", "1.23", "m", "--superscript", "--drop-zero-superscript")
        self.prints("212.000 °F\n", "format", "100", "°F", "--superscript")

    def test_a_metrics_factor_divides_lengths(self):
        self.prints("2.500 m\n", "format", "5", "m", "--metrics-factor", "2")
        self.prints("1.250 m²\n", "format", "5", "m2", "--metrics-factor", "2")
        self.refuses("expected a unit of length", "format", "5", "kN", "--metrics-factor", "2")

    def test_infinities_and_lengths_of_nothing(self):
        self.prints("INF µm\n", "format", "1e308", "µm")
        self.prints("0.000 m\n", "format", "1e-400", "m")


class Parse(CommandTest):
    def test_reads_texts_as_si_values(self):
        self.streams(
            [("12500", "12.5"), ("12500", "12.5 kN"), ("-100", "-.1"), ("1e+20", "1e17"), ("0.3", "0.0003")],
            "parse", "kN",
        )

    def test_the_offsets_of_temperatures_are_undone(self):
        self.prints("100\n-40\n", "parse", "212", "-40 °F", "°F")
        self.prints("0\n", "parse", "273.15", "K")

    def test_reads_feet_and_inches(self):
        self.streams(
            [("1.0287", "3'-4 1/2\""), ("0.127", "5"), ("-0.3048", "-1'")], "parse", "' / \"",
        )

    def test_reads_the_separator_and_the_metrics_factor(self):
        self.prints("12500\n", "parse", "12,5 kN", "kN", "--separator", ",")
        self.prints("5\n", "parse", "2.5", "m", "--metrics-factor", "2")
        self.prints("10\n", "parse", "2.5", "m2", "--metrics-factor", "2")
        self.prints("0.6096\n", "parse", "1'", "'", "--metrics-factor", "2")
        self.prints("1.0287\n", "parse", "3'-4,5\"", "'", "--separator", ",")

    def test_json_names_the_si_unit(self):
        self.prints('{"input":"12.5","value":12500,"unit":"N","text":"12500"}\n', "parse", "12.5", "kN", "--json")
        self.prints('{"input":"1","value":1e-04,"unit":"m²","text":"1e-04"}\n', "parse", "1", "cm2", "--json")


class BadValues(CommandTest):
    def test_what_is_no_number_is_named_and_the_good_values_are_still_written(self):
        errors = self.streams(
            [
                ("1.000 kN", "1000"),
                ("", "abc"),
                ("", "12x"),
                ("", "1.2.3"),
                ("", "1,5"),
                ("", "12 kN"),
                ("", "inf"),
                ("", "nan"),
                ("", "0x10"),
                ("", "-"),
                ("", "1e999"),
                ("", ""),
                ("2.000 kN", " 2e3 N "),
            ],
            "convert", "N", "kN", code=SOME_FAILED,
        )
        lines = errors.splitlines()
        self.assertEqual(len(lines), 10, errors)
        self.assertEqual(lines[0], "vetools: line 2: “abc”: expected a number such as 12.5 or 12.5 N")
        self.assertEqual(lines[-1], "vetools: line 11: “1e999”: expected a number that a double can hold, up to 1.8e308")

    def test_feet_and_inches_that_make_no_sense_are_named(self):
        errors = self.streams(
            [("", "3'-4'"), ("", "1.2.3'"), ("", "3' abc"), ("", "1/0\""), ("", "'"), ("", "1 2 3 4 5\""), ("305 mm", "1'")],
            "convert", "mm", "-p", "0", code=SOME_FAILED,
        )
        self.assertEqual(len(errors.splitlines()), 6, errors)
        self.assertIn("3'-4 1/2\"", errors)

    def test_a_bad_argument_is_named(self):
        errors = self.prints("1.000 kN\n", "convert", "abc", "1000", "N", "kN", code=SOME_FAILED)
        self.assertEqual(errors, "vetools: “abc”: expected a number such as 12.5 or 12.5 N\n")
        errors = self.prints("", "convert", "12.5", "kN", code=SOME_FAILED)
        self.assertEqual(errors, "vetools: “12.5”: expected a number with a unit of force such as 12.5 kN\n")

    def test_invalid_utf8_is_named_with_its_byte(self):
        errors = self.prints("\n1.000 kN\n", "convert", "N", "kN", given=b"12\xff\n1000\n", code=SOME_FAILED)
        self.assertEqual(errors, "vetools: line 1: “12\ufffd”: expected UTF-8 text, which byte 3 is not\n")
        for bad in (b"\xc0\xaf", b"\xed\xa0\x80", b"\xf4\x90\x80\x80", b"\xc3", b"\x80"):
            errors = self.prints("\n", "convert", "N", "kN", given=bad + b"\n", code=SOME_FAILED)
            self.assertIn("UTF-8", errors)

    def test_json_tells_the_error_beside_the_input(self):
        self.prints(
            '{"line":1,"input":"1","value":0.001,"unit":"kN","text":"0.001 kN"}\n'
            '{"line":2,"input":"a\\"\\u0001","error":"expected a number such as 12.5 or 12.5 N"}\n'
            '{"line":3,"input":"","value":null}\n',
            "convert", "N", "kN", "--json", given="1\na\"\x01\n\n", code=SOME_FAILED,
        )

    def test_a_line_without_end_is_cut(self):
        errors = self.prints("\n1.000 kN\n", "convert", "N", "kN", given=b"1" * (3 << 20) + b"\n1000\n", code=SOME_FAILED)
        self.assertIn("longer than a megabyte", errors)


class Lines(CommandTest):
    def test_line_ends_byte_order_mark_and_a_missing_last_line_end(self):
        self.prints("1.000 kN\n2.000 kN\n\n3.000 kN\n", "convert", "N", "kN", given=b"\xef\xbb\xbf1000\r\n2000\n\r\n3000")
        self.prints("1.000 kN\n", "convert", "-", "N", "kN", given="1000\n")
        self.prints("", "convert", "N", "kN")

    def test_two_hundred_thousand_lines_stream_through(self):
        count = 200_000
        given = "".join(f"{index}\n" for index in range(count))
        started = time.monotonic()
        code, output, errors = run("convert", "N", "kN", given=given)
        self.assertEqual((code, errors), (DONE, ""))
        self.assertEqual(output.decode(), "".join(f"{index // 1000}.{index % 1000:03} kN\n" for index in range(count)))
        self.assertLess(time.monotonic() - started, 30)

    def test_an_answer_comes_before_the_next_question(self):
        with subprocess.Popen([*PROGRAM, "convert", "N", "kN"], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as program:
            for question, answer in ((b"1000\n", b"1.000 kN\n"), (b"2000\n", b"2.000 kN\n")):
                program.stdin.write(question)
                program.stdin.flush()
                self.assertEqual(program.stdout.readline(), answer)
            program.stdin.close()
            self.assertEqual(program.wait(), DONE)

    def test_a_reader_that_leaves_is_no_error(self):
        with subprocess.Popen(
            [*PROGRAM, "convert", "N", "kN"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE
        ) as program:
            program.stdout.close()
            try:
                for _ in range(50):
                    program.stdin.write(b"1000\n" * 10_000)
                program.stdin.close()
            except BrokenPipeError:
                pass
            self.assertEqual(program.stderr.read(), b"")


class Csv(CommandTest):
    TABLE = (
        b"\xef\xbb\xbfName,\"Load [kN]\",\"Remark, if\r\nany\"\r\n"
        b"B1,12.5,\r\n"
        b"\"B \"\"2\"\"\",\"13.5\",\"two\nlines\"\r\n"
        b"\r\n"
        b"B3,,empty\n"
        b"B4\n"
        b"B5,abc,bad\n"
        b"B6,\"1\"2,bad quote\n"
        b"B7, 14.5 kN ,last"
    )

    def test_values_come_from_a_column_named_or_numbered(self):
        path = csv_file(self.TABLE)
        expected = "12500.000 N\n13500.000 N\n\n\n\n\n14500.000 N\n"
        named = self.prints(expected, "convert", "kN", "N", "--csv", path, "--column", "Load [kN]", code=SOME_FAILED)
        numbered = self.prints(expected, "convert", "kN", "N", "--csv", path, "--column", "2", code=SOME_FAILED)
        piped = self.prints(expected, "convert", "kN", "N", "--csv", "-", "--column", "2", given=self.TABLE, code=SOME_FAILED)
        self.assertEqual(
            named,
            "vetools: line 8: “”: no column 2 in this row\n"
            "vetools: line 9: “abc”: expected a number such as 12.5 or 12.5 kN\n"
            "vetools: line 10: “12”: text after a closing quote\n",
        )
        self.assertEqual(named, numbered)
        self.assertEqual(named, piped)

    def test_other_delimiters_and_tables_without_a_header(self):
        self.prints("0,5 kN\n", "convert", "N", "kN", "--csv", csv_file("x;500,0\n"), "--column", "2",
                    "--delimiter", ";", "--no-header", "-s", ",", "-p", "1")
        self.prints("0.5 kN\n", "convert", "N", "kN", "--csv", csv_file("a\tb\nx\t500\n"), "--column", "b",
                    "--delimiter", "tab", "-p", "1")

    def test_a_quote_that_is_not_closed_is_named(self):
        path = csv_file("a,b\n1,2\n3,\"4\n5,6\n")
        errors = self.prints("0.002 kN\n\n", "convert", "N", "kN", "--csv", path, "--column", "b", code=SOME_FAILED)
        self.assertEqual(errors, "vetools: line 3: “4?5,6?”: a quote that is not closed\n")

    def test_a_column_or_file_that_is_not_there_is_refused(self):
        path = csv_file("a,b\n1,2\n")
        self.refuses("there are: a, b", "convert", "N", "kN", "--csv", path, "--column", "c")
        self.refuses("numbered from 1", "convert", "N", "kN", "--csv", path, "--column", "0")
        self.refuses("no header", "convert", "N", "kN", "--csv", path, "--column", "a", "--no-header")
        self.refuses("cannot be opened: No such file or directory", "convert", "N", "kN", "--csv", "not-there.csv", "--column", "1")
        self.refuses("found nothing", "convert", "N", "kN", "--csv", csv_file(""), "--column", "1")
        self.refuses("--column", "convert", "N", "kN", "--csv", path)


class Usage(CommandTest):
    def test_wrong_arguments_are_refused_with_the_help_to_read(self):
        self.refuses("vetools --help")
        self.refuses("vetools convert --help", "convert")
        self.refuses(["“kX” is no unit", "vetools units"], "convert", "5", "kX", "mm")
        self.refuses("--precision", "convert", "5", "m", "mm", "--precision", "16")
        self.refuses("0 to 8", "convert", "5", "m", "1:9", "--precision", "9")
        self.refuses("--exponent-notation", "format", "5", "m", "--exponent-notation", "6")
        self.refuses("one character", "format", "5", "m", "--separator", "1")
        self.refuses("trailing-zeros", "format", "5", "m", "--trailing-zeros", "maybe")
        self.refuses("is no quantity", "units", "colour")
        self.refuses("--unknown", "convert", "5", "m", "mm", "--unknown")

    def test_help_teaches_by_examples(self):
        self.golden("help.txt", "--help")
        for command in ("convert", "format", "parse", "units", "recognise", "style", "log", "build-info"):
            self.golden(f"help-{command}.txt", command, "--help")
        for action in ("show", "new", "set", "diff", "check"):
            self.golden(f"help-style-{action}.txt", "style", action, "--help")

    def test_the_examples_of_the_help_run(self):
        folder = new_folder()
        for name, options in (("site.vus", ()), ("defaults.vus", ("--defaults",)), ("old.vus", ())):
            run("style", "new", name, *options, folder=folder)
        Path(folder, "Log.log").write_bytes(LogTest.PROCESS_LOG)
        Path(folder, "VeDesignLog.log").write_bytes(LogTest.DESIGN_LOG)
        for page in sorted(GOLDEN.glob("help*.txt")):
            for line in page.read_text(encoding="utf-8").splitlines():
                if not line.startswith("  vetools "):
                    continue
                arguments = shlex.split(line, comments=True)[1:]
                if "<" in arguments or "--csv" in arguments or "-f" in arguments:
                    continue
                with self.subTest(line):
                    code, _, errors = run(*arguments, folder=folder)
                    good = (DONE, SOME_FAILED) if "diff" in arguments else (DONE,)
                    self.assertIn(code, good)
                    self.assertEqual(errors, "")

    def test_the_version_is_printed(self):
        code, output, errors = run("--version")
        self.assertEqual((code, errors), (DONE, ""))
        self.assertRegex(output.decode(), r"^vetools \d+\.\d+\.\d+\n$")


class Units(CommandTest):
    def test_the_catalogue_is_an_aligned_table(self):
        self.golden("units.txt", "units")
        self.golden("units-force.txt", "units", "force")

    def test_a_quantity_is_named_by_id_or_in_english(self):
        by_name = run("units", "stress")
        self.assertEqual(by_name, run("units", "7"))
        self.assertEqual(by_name, run("units", "Pressure"))

    def test_json_gives_one_object_per_unit(self):
        code, output, _ = run("units", "force", "--json")
        rows = [json.loads(line) for line in output.decode().splitlines()]
        self.assertEqual((code, len(rows)), (DONE, 8))
        self.assertEqual(rows[4], {"id": 2, "range": 4, "symbol": "kg", "title": "KgForce", "coefficient": 0.10197162129779283,
                                   "type": "metric", "format": "decimal", "quantity": "force"})


class Recognise(CommandTest):
    def test_tells_which_unit_a_host_takes_a_text_for(self):
        self.golden("recognise.txt", "recognise", "m", "CM4", "''2", "'", "MPa", "kN", "kg", "dan/mm2", "m/m/m", "daN/mm²",
                    "kn/m²", "m ", "/m", "foo", "", code=SOME_FAILED)

    def test_an_unknown_text_fails_and_an_empty_one_does_not(self):
        for code, *texts in ((DONE, "m"), (DONE, "m", ""), (SOME_FAILED, "m", "foo"), (SOME_FAILED, "foo")):
            with self.subTest(texts):
                self.assertEqual(run("recognise", *texts)[0], code)

    def test_forces_are_named_for_the_masses_that_they_are_taken_for(self):
        _, output, _ = run("recognise", "--json", given="N\ndaN\nkN\nMN\nkg\nt\nlb\nkip\nmpa\nm/kN\nkN/kN\n")
        rows = [json.loads(line) for line in output.decode().splitlines()]
        self.assertEqual([(row["id"], row["range"]) for row in rows[:8]], [(4, index) for index in range(8)])
        for index, row in enumerate(rows[:8]):
            self.assertIn(f"the force is 2:{index}", row["note"])
            self.assertEqual("no range" in row["note"], index >= 4, row)
        self.assertNotIn("note", rows[8])
        self.assertIn("“kN” is taken for a mass", rows[9]["note"])
        self.assertEqual(rows[10]["note"].count("is taken for a mass"), 1)

    def test_lines_keep_their_place(self):
        code, output, errors = run("recognise", given=b"m\n\nfoo\n\xff\nm")
        self.assertEqual((code, errors), (SOME_FAILED, ""))
        self.assertEqual([line.split()[:2] for line in output.decode().splitlines()],
                         [["m", "ok"], ["empty"], ["foo", "unknown"], ["\ufffd", "unknown"], ["m", "ok"]])

    def test_json_gives_one_object_per_text(self):
        self.prints(
            '{"input":"cm4","status":"ok","id":1,"range":2,"exponent":4,"symbol":"cm4","title":"Centimètre4","coefficient":1e+08}\n'
            '{"input":"foo","status":"unknown"}\n'
            '{"input":"","status":"empty"}\n',
            "recognise", "cm4", "foo", "", "--json", code=SOME_FAILED,
        )


class StyleTest(CommandTest):
    """Style files are taken apart and put together here without the library."""

    HEADER, RECORD = 40, 740
    FIELDS = {"unit id": (0, 100), "range": (100, 100), "precision": (200, 100), "unit format": (300, 100),
              "separator": (400, 100), "title": (500, 100), "symbol": (600, 40), "coefficient": (640, 100)}

    def setUp(self):
        self.folder = new_folder()

    def style(self, *arguments, code=DONE):
        actual_code, output, errors = run("style", *arguments, folder=self.folder)
        self.assertEqual(actual_code, code, (arguments, output, errors))
        return output.decode() if code != USAGE else errors

    def new(self, name, *options):
        self.assertEqual(self.style("new", name, *options), "")
        return bytearray(self.path(name).read_bytes())

    def path(self, name):
        return Path(self.folder) / name

    def write(self, name, content):
        self.path(name).write_bytes(content)
        return name

    def byte_of(self, unit_id, field):
        return self.HEADER + self.RECORD * (unit_id - 1) + self.FIELDS[field][0]

    def version(self, whole, version, ids):
        """A file of another version with the records of these ids."""
        header = str(version).encode("utf-16-le").ljust(self.HEADER, b"\0")
        return header + b"".join(whole[self.byte_of(each, "unit id"):][:self.RECORD] for each in ids)

    def findings(self, contents):
        """The findings of each of these files, checked in few processes."""
        names = [self.write(f"{index}", content) for index, content in enumerate(contents)]
        found = {name: [] for name in names}
        for begin in range(0, len(names), 400):
            _, output, errors = run("style", "check", "--json", *names[begin:begin + 400], folder=self.folder)
            self.assertEqual(errors, "")
            for line in output.decode().splitlines():
                finding = json.loads(line)
                found[finding["file"]].append(finding)
        return [found[name] for name in names]


class Styles(StyleTest):
    def test_a_new_style_holds_the_units_that_a_host_starts_with(self):
        whole = self.new("site.vus")
        self.assertEqual(len(whole), 19280)
        self.assertEqual(whole[:40], "1002".encode("utf-16-le").ljust(40, b"\0"))
        self.golden("style-show.txt", "style", "show", "site.vus", folder=self.folder)

    def test_the_default_units_are_another_set(self):
        self.new("site.vus")
        self.new("defaults.vus", "--defaults")
        self.golden("style-show-defaults.txt", "style", "show", "defaults.vus", folder=self.folder)
        self.golden("style-diff.txt", "style", "diff", "site.vus", "defaults.vus", code=SOME_FAILED, folder=self.folder)
        lines = self.style("diff", "site.vus", "defaults.vus", "--json", code=SOME_FAILED).splitlines()
        self.assertEqual(json.loads(lines[0]), {"id": 2, "quantity": "force", "property": "unit", "left": "2:2", "right": "2:5"})

    def test_a_style_is_the_same_as_itself(self):
        self.new("site.vus")
        self.assertEqual(self.style("diff", "site.vus", "site.vus"), "")

    def test_a_unit_is_set_by_range_symbol_or_title(self):
        for arguments, unit, precision in [
            (("2", "5"), "2:5", 2),
            (("force", "kN"), "2:2", 2),
            (("force", "KiloNewton", "-p", "0"), "2:2", 0),
            (("length", "' / \"", "--precision", "4"), "1:9", 4),
            (("26", "3"), "26:3", 2),
            (("7", "-p", "15"), "7:2", 15),
        ]:
            with self.subTest(arguments):
                self.new("site.vus")
                self.assertEqual(self.style("set", "site.vus", *arguments), "")
                rows = [json.loads(line) for line in self.style("show", "site.vus", "--json").splitlines()]
                row = rows[int(unit.split(":")[0]) - 1]
                self.assertEqual((f"{row['unitId']}:{row['range']}", row["precision"]), (unit, precision))
                self.assertEqual(self.style("check", "site.vus"), "site.vus: whole, version 1002, 26 units\n")

    def test_what_cannot_be_set_is_refused_and_the_file_stays(self):
        whole = self.new("site.vus")
        for words, *arguments in [
            ("no quantity", "27", "1"),
            ("no quantity", "colour", "1"),
            ("is no unit", "2", "8"),
            ("is no unit", "force", "m"),
            ("no powers", "1", "m2"),
            ("nothing to set", "1"),
            ("--precision", "1", "-p", "16"),
            ("0 to 8", "1", "9", "-p", "9"),
        ]:
            with self.subTest(arguments):
                self.assertIn(words, self.style("set", "site.vus", *arguments, code=USAGE))
        self.assertEqual(self.path("site.vus").read_bytes(), whole)

    def test_files_of_older_versions_say_what_they_lack(self):
        whole = self.new("site.vus", "--defaults")
        self.write("1001.vus", self.version(whole, 1001, range(1, 22)))
        self.write("named.vus", self.version(whole, 1000, [*range(1, 13), *range(15, 22)]))
        self.write("unnamed.vus", self.version(whole, 1000, [*range(1, 12), *range(13, 22)]))
        self.golden("style-show-1001.txt", "style", "show", "1001.vus", folder=self.folder)
        self.golden("style-show-1000-named.txt", "style", "show", "named.vus", folder=self.folder)
        self.golden("style-show-1000-unnamed.txt", "style", "show", "unnamed.vus", "--loader", "unnamed", folder=self.folder)
        for name, version, records in (("1001.vus", 1001, 21), ("named.vus", 1000, 19), ("unnamed.vus", 1000, 20)):
            lines = self.style("check", name).splitlines()
            self.assertEqual(lines[-1], f"{name}: whole, version {version}, {records} units")
        self.style("set", "1001.vus", "1", "1")
        self.assertEqual(len(self.path("1001.vus").read_bytes()), 19280)

    def test_a_path_may_hold_any_characters_and_be_long(self):
        deep = "/".join(["ü" * 60] * 5)
        self.path(deep).mkdir(parents=True)
        for name in ("plain", ".hidden", "two.dots.vus", "é ü 長", "n" * 200 + ".vus", "e." + "x" * 200, f"{deep}/site.vus"):
            with self.subTest(name):
                self.assertEqual(len(self.new(name)), 19280)
                self.assertEqual(self.style("diff", name, name), "")

    def test_a_file_that_is_not_there_or_takes_nothing_is_named(self):
        self.assertIn("nope.vus cannot be opened: No such file or directory", self.style("show", "nope.vus", code=USAGE))
        self.assertIn("“vetools style check --help”", self.style("check", "nope.vus", code=USAGE))
        self.assertIn("cannot be opened", self.style("check", ".", code=USAGE))
        self.assertIn("at most 773 characters", self.style("show", "x" * 774, code=USAGE))
        self.assertIn("the name of the style file is empty", self.style("show", "", code=USAGE))
        for target in ("no-folder/site.vus", "."):
            code, output, errors = run("style", "new", target, folder=self.folder)
            self.assertEqual((code, output), (SOME_FAILED, b""))
            self.assertIn(f"{target} cannot be written: ", errors)
        self.assertEqual(os.listdir(self.folder), [])

    def test_a_damaged_file_is_shown_but_neither_changed_nor_compared(self):
        whole = self.new("site.vus")
        damaged = self.write("damaged.vus", whole[:5000])
        code, output, errors = run("style", "show", damaged, folder=self.folder)
        self.assertEqual((code, len(output.splitlines())), (SOME_FAILED, 28))
        self.assertIn("damaged.vus is damaged", errors)
        self.style("set", damaged, "1", "1", code=SOME_FAILED)
        self.style("diff", damaged, "site.vus", code=USAGE)
        self.assertEqual(self.path(damaged).read_bytes(), whole[:5000])


class StyleChecks(StyleTest):
    def assert_one_problem(self, found, byte, words, what):
        problems = [(each["byte"], each.get("field", "")) for each in found if each["kind"] == "problem"]
        self.assertEqual([each[0] for each in problems], [byte], (what, found))
        self.assertIn(words, json.dumps(found, ensure_ascii=False), what)

    def test_the_first_character_of_every_field_of_every_record_is_checked(self):
        whole = self.new("site.vus")
        cases = []
        for unit_id in range(1, 27):
            for field in self.FIELDS:
                byte = self.byte_of(unit_id, field)
                damaged = bytearray(whole)
                damaged[byte] = ord("x")
                cases.append((byte, field, bytes(damaged)))
                damaged = bytearray(whole)
                damaged[byte + 1] = 1
                cases.append((byte + 1, field, bytes(damaged)))
        for (byte, field, _), found in zip(cases, self.findings([each[2] for each in cases])):
            self.assert_one_problem(found, byte, f'"field": "{field}"', (byte, field))

    def test_every_bit_that_changes_a_record_is_found(self):
        whole = self.new("site.vus")
        cases = []
        for field in self.FIELDS:
            begin = self.byte_of(2, field)
            text = whole[begin:begin + self.FIELDS[field][1]].decode("utf-16-le").split("\0")[0]
            for byte in range(begin, begin + 2 * len(text) + 2):
                for bit in range(8):
                    damaged = bytearray(whole)
                    damaged[byte] ^= 1 << bit
                    new_text = damaged[begin:begin + self.FIELDS[field][1]].decode("utf-16-le", "replace").split("\0")[0]
                    if not self.means_the_same(field, text, new_text):
                        cases.append((byte, field, bytes(damaged)))
        self.assertGreater(len(cases), 300)
        for (byte, field, _), found in zip(cases, self.findings([each[2] for each in cases])):
            self.assert_one_problem(found, byte, f'"field": "{field}"', (byte, field))

    @staticmethod
    def means_the_same(field, old, new):
        if field == "precision":
            return new.isascii() and new.isdigit()
        if field == "separator":
            return new in (".", ",")
        if field == "coefficient" and new.isascii() and all(each in "0123456789." for each in new) and new.count(".") == 1:
            return float(new) == float(old)
        return False

    def test_a_file_cut_anywhere_ends_where_it_ends(self):
        whole = self.new("site.vus")
        ends = [0, 1, 39, 40, 41, *range(40, 19280, 740), *range(41, 19280, 740), *range(77, 19280, 370), 19278, 19279]
        for end, found in zip(ends, self.findings([whole[:end] for end in ends])):
            self.assert_one_problem(found, end, "the file", end)

    def test_what_follows_the_last_record_is_found(self):
        whole = self.new("site.vus")
        ends = [whole + b"\0", whole + whole, self.version(whole, 1001, range(1, 27)), whole + b"x" * 100_000]
        bytes_and_words = [(19280, "1 byte behind"), (19280, "19280 bytes behind"), (15580, "the size of version 1002"),
                           (19280, "more than")]
        for (byte, words), found in zip(bytes_and_words, self.findings(ends)):
            self.assert_one_problem(found, byte, words, words)

    def test_a_header_that_is_none_is_found(self):
        whole = self.new("site.vus")
        rows = [
            # byte  words                  header
            (0, "expected the version", b""),
            (0, "expected the version", "x1002".encode("utf-16-le")),
            (8, "expected the version", "1002x".encode("utf-16-le")),
            (3, "expected the version", b"1\x000\x010\x002\x00"),
            (6, "unknown version", "1003".encode("utf-16-le")),
            (0, "unknown version", "0".encode("utf-16-le")),
            (0, "unknown version", "-1002".encode("utf-16-le")),
            (4, "means records of 840 bytes", "1012".encode("utf-16-le")),
            (38, "no terminating zero", "1002".encode("utf-16-le") + b"9\0" * 16),
        ]
        contents = [header.ljust(40, b"\0") + whole[40:] for _, _, header in rows]
        for (byte, words, header), found in zip(rows, self.findings(contents)):
            self.assert_one_problem(found, byte, words, header)

    def test_what_contradicts_the_catalogue_is_blamed_on_one_field(self):
        whole = self.new("site.vus")
        for unit_id, field, text, byte, words in [
            (2, "unit id", "4", 0, "“4”, expected “2”"),
            (2, "unit id", "99", 0, "unknown “99”, expected “2”"),
            (2, "unit id", "22", 2, "“22”, expected “2”"),
            (2, "range", "3", 0, "“3”, expected “2” of the unit 2:2  kN"),
            (2, "range", "12", 0, "“12”, expected “2” of the unit 2:2  kN"),
            (2, "range", "99999999999", 0, "expected a whole number"),
            (2, "unit format", "2", 0, "“2”, expected “0”"),
            (2, "separator", "", 0, "expected a separator"),
            (2, "separator", "..", 2, "expected one character"),
            (2, "title", "KiloNewtom", 18, "“KiloNewtom”, expected “KiloNewton”"),
            (2, "symbol", "KN", 0, "“KN”, expected “kN”"),
            (2, "coefficient", "0.0011", 10, "“0.0011”, expected “0.001"),
            (2, "coefficient", "nan", 0, "expected a number"),
            (2, "title", "K" * 50, 98, "no terminating zero"),
        ]:
            with self.subTest(f"{field} {text}"):
                begin, size = self.byte_of(unit_id, field), self.FIELDS[field][1]
                damaged = bytearray(whole)
                damaged[begin:begin + size] = text.encode("utf-16-le").ljust(size, b"\0")
                self.assert_one_problem(self.findings([damaged])[0], begin + byte, words, text)

    def test_records_in_the_wrong_order_have_wrong_ids(self):
        whole = self.new("site.vus")
        swapped = self.version(whole, 1002, [1, 3, 2, *range(4, 27)])
        found = self.findings([swapped])[0]
        self.assertEqual([each["byte"] for each in found], [780, 1520], found)

    def test_what_is_unusual_in_a_whole_file_is_a_note(self):
        whole = self.new("site.vus")
        padded = bytearray(whole)
        padded[20] = padded[850] = 0xCD
        comma = bytearray(whole)
        comma[self.byte_of(2, "separator")] = ord(",")
        coefficient = self.byte_of(2, "coefficient")
        comma[coefficient:coefficient + 100] = "0,001".encode("utf-16-le").ljust(100, b"\0")
        further = "1012".encode("utf-16-le").ljust(40, b"\0") + b"".join(
            whole[begin:begin + 300] + bytes(100) + whole[begin + 300:begin + 740] for begin in range(40, 19280, 740))
        for found, byte, words in zip(self.findings([padded, comma]), (20, self.byte_of(2, "separator")), ("2 bytes behind", "“,”")):
            self.assertEqual([(each["kind"], each["byte"]) for each in found], [("note", byte)], found)
            self.assertIn(words, found[0]["text"])
        self.assertEqual(self.findings([further])[0], [])
        self.write("padded.vus", padded)
        self.assertEqual(self.style("check", "padded.vus").splitlines()[-1], "padded.vus: whole, version 1002, 26 units")
        self.write("further.vus", further)
        self.assertEqual(self.style("check", "further.vus"), "further.vus: whole, version 1012, 26 units\n")

    def test_findings_are_lines_that_name_file_byte_record_and_field(self):
        whole = self.new("site.vus")
        whole[self.byte_of(4, "range")] = ord("x")
        self.write("damaged.vus", whole[:19000])
        self.golden("style-check.txt", "style", "check", "site.vus", "damaged.vus", code=SOME_FAILED, folder=self.folder)


class LogTest(CommandTest):
    """Logs of both kinds, as the library writes them and as they may be found."""

    PROCESS_LOG = (
        b"PID:4312 Log started\n"
        b"PID:4312 Monday, January 18, 2021, 14:05:09, PID = 4312 QM2020.0.0\n"
        b"PID:4312 14:05:09 Message : 12 beams read from frame.vem\n"
        b"PID:77 14:05:10 Message : PID:5 has ended, PID: is no number\n"
        b"PID:4312 veutilitiescommon(198)14:05:11 Error : error (112) writing in file\nsecond line\r\n  third\n"
        b"PID:4312 C:\\My Files\\reader.cpp(12) Exception : thrown\n"
        b"PID:4312 14:05:12 Message : PID:77 14:05:12 Exception Message : behind an empty message\n"
        b"PID:4312  Comment : without time\n"
        b"PID:4312 14:05:13without level\n"
        b"PID:4312 without level and time\n"
        b"PID:77 23:59:59 Warning : late\n"
        b"PID:77 00:00:01 Warning : early\n"
        b"PID:4312 Tuesday, January 19, 2021, 00:00:02, PID = 4312, Entries = 5, Errors = 2 \n"
        b"PID:4312 Log ended\n"
    )
    DESIGN_LOG = (
        b"\nMonday, January 18, 2021 14:05:09 [INFORMATION] : opened"
        b"\nMonday, January 18, 2021 14:05:10 [DEBUG]       : x [ERROR] : y"
        b"\na line of its own"
        b"\n"
        b"\nTuesday, January 19, 2021 00:05:09 [EXCEPTION]   : thrown"
        b"\nTuesday, January 19, 2021 00:05:09 [ERROR]       : no beams"
    )

    def setUp(self):
        self.folder = new_folder()
        self.write("Log.log", self.PROCESS_LOG)
        self.write("VeDesignLog.log", self.DESIGN_LOG)

    def write(self, name, content):
        Path(self.folder, name).write_bytes(content)

    def log(self, *arguments, given=b"", code=DONE):
        actual_code, output, errors = run("log", *arguments, given=given, folder=self.folder)
        self.assertEqual(actual_code, code, (arguments, output[:1000], errors))
        if code == DONE:
            self.assertEqual(errors, "", arguments)
        return output.decode() if code == DONE else errors

    def entries(self, *arguments, given=b""):
        return [json.loads(line) for line in self.log(*arguments, "--json", given=given).splitlines()]

    def messages(self, *arguments, given=b""):
        return [entry["message"] for entry in self.entries(*arguments, given=given)]


class Log(LogTest):
    def test_both_kinds_are_shown_in_columns_or_as_json(self):
        for name, file in (("process", "Log.log"), ("design", "VeDesignLog.log")):
            self.golden(f"log-{name}.txt", "log", file, folder=self.folder)
            self.golden(f"log-{name}.json", "log", file, "--json", folder=self.folder)
            self.golden(f"log-{name}-count.txt", "log", file, "--count", "--errors", folder=self.folder)

    def test_the_log_may_come_from_standard_input(self):
        self.assertEqual(self.log("-", given=self.PROCESS_LOG), self.log("Log.log"))
        self.assertEqual(self.log("-", "--count", given=self.DESIGN_LOG), self.log("VeDesignLog.log", "--count"))

    def test_line_ends_of_windows_make_no_difference(self):
        self.assertEqual(self.log("-", given=self.PROCESS_LOG.replace(b"\r", b"").replace(b"\n", b"\r\n")), self.log("Log.log"))
        self.assertEqual(self.log("-", given=self.DESIGN_LOG.replace(b"\n", b"\r\n")), self.log("VeDesignLog.log"))

    def test_levels_are_chosen_by_name_or_from_a_name_on(self):
        for expected, file, *options in [
            (["Error"], "Log.log", "--level", "error"),
            (["Exception Message", "Comment"], "Log.log", "--level", "Comment,EXCEPTION MESSAGE"),
            (["Exception Message", "Comment"], "Log.log", "-l", "comment", "-l", "exception-message"),
            (["Error", "Exception", "Exception Message", "Comment"], "Log.log", "-l", "exceptionmessage+", "-l", "comment"),
            (["Error", "Exception"], "Log.log", "--errors"),
            (["EXCEPTION", "ERROR"], "VeDesignLog.log", "--level", "exception+"),
            (["EXCEPTION", "ERROR"], "VeDesignLog.log", "-e"),
            (["DEBUG"], "VeDesignLog.log", "--level", "debug,comment"),
        ]:
            with self.subTest(options):
                self.assertEqual([entry["level"] for entry in self.entries(file, *options)], expected)

    def test_a_level_that_the_log_has_not_is_refused(self):
        self.assertIn("“fatal” is no level: expected Comment, Warning,", self.log("Log.log", "--level", "fatal", code=USAGE))
        self.assertIn("no level “debug”: its levels are Comment, ", self.log("Log.log", "--level", "debug", code=USAGE))
        self.assertIn("its levels are INFORMATION, ", self.log("VeDesignLog.log", "--level", "comment+", code=USAGE))

    def test_processes_are_chosen_by_their_ids(self):
        self.assertEqual({entry["pid"] for entry in self.entries("Log.log", "--pid", "77")}, {77})
        self.assertEqual(len(self.entries("Log.log", "--pid", "77,4312")), 15)
        self.assertEqual(self.log("Log.log", "--pid", "5"), "")
        for bad in ("x", "-1", "", "1,x"):
            self.assertIn("--pid", self.log("Log.log", "--pid", bad, code=USAGE))

    def test_times_are_a_window_of_each_day_also_over_midnight(self):
        def times(*options):
            return [entry["time"] for entry in self.entries("Log.log", *options)]
        self.assertEqual(times("--since", "14:05:10", "--until", "14:05:11"), ["14:05:10", "14:05:11"])
        self.assertEqual(times("--since", "14:05:13"), ["14:05:13", "23:59:59"])
        self.assertEqual(times("--until", "00:00:01"), ["00:00:01"])
        self.assertEqual(times("--since", "23:00:00", "--until", "00:00:02"), ["23:59:59", "00:00:01", "00:00:02"])
        for bad in ("24:00:00", "12:60:00", "1:02:03", "12:00", "noon", ""):
            self.assertIn("expected a time such as 14:05:09", self.log("Log.log", "--since", bad, code=USAGE))

    def test_the_last_entries_are_those_of_the_selected_ones(self):
        self.assertEqual(self.messages("Log.log", "-n", "1"), ["Log ended"])
        self.assertEqual(self.messages("Log.log", "-n", "2", "--level", "warning"), ["late", "early"])
        self.assertEqual(self.messages("Log.log", "-n", "1000", "--level", "warning"), ["late", "early"])
        self.assertEqual(self.messages("Log.log", "-n", "0"), [])
        self.assertIn("--last", self.log("Log.log", "-n", "-1", code=USAGE))

    def test_counts_are_of_all_entries_and_of_the_selected_ones(self):
        rows = self.entries("Log.log", "--count", "--pid", "77")
        self.assertEqual([(row.get("level", row["kind"]), row["all"], row["selected"]) for row in rows],
                         [("Comment", 1, 0), ("Warning", 2, 2), ("Message", 3, 1), ("Exception Message", 1, 1), ("Error", 1, 0),
                          ("Exception", 1, 0), ("opened", 1, 0), ("closed", 1, 0), ("text", 4, 0)])
        self.assertIn("--last", self.log("Log.log", "--count", "-n", "1", code=USAGE))

    def test_the_kind_can_be_given(self):
        self.assertEqual(len(self.entries("Log.log", "--kind", "design")), 16)
        self.assertEqual(len(self.entries("VeDesignLog.log", "--kind", "process")), 1)
        self.assertIn("--kind", self.log("Log.log", "--kind", "other", code=USAGE))

    def test_what_is_no_log_is_named(self):
        for content in (b"value,unit\n1,m\n", bytes(range(256)) * 300, b"x" * 1_000_000, b"\0" * 100_000, b"PID: 12 x", b"PID:12"):
            with self.subTest(content[:20]):
                self.assertIn("standard input does not begin as a log", self.log("-", given=content, code=SOME_FAILED))
                for kind in ("process", "design"):
                    self.log("-", "--kind", kind, given=content)

    def test_files_that_are_not_there_or_empty(self):
        self.assertIn("nope.log cannot be opened: No such file or directory", self.log("nope.log", code=USAGE))
        self.assertIn(". cannot be opened: Is a directory", self.log(".", code=USAGE))
        self.write("empty.log", b"")
        self.assertEqual(self.log("empty.log"), "")
        self.assertEqual(self.log("empty.log", "--count").splitlines()[-1].split(), ["total", "0", "0"])

    def test_bytes_that_are_no_text_are_shown_as_such(self):
        self.assertEqual(self.log("-", given=b"PID:1 10:00:00 Message : a\0b\x1b[31m\x7f\ttab\n").splitlines()[1],
                         "10:00:00        1  Message            a?b?[31m?\ttab")
        self.assertEqual(self.messages("-", given=b"PID:1 10:00:00 Message : a\0b\x1b\n"), ["a\0b\x1b"])
        self.assertEqual(self.messages("-", given=b"\nx\xff\xc3 y"), ["x\ufffd\ufffd y"])

    def test_texts_are_in_the_encoding_in_which_the_library_writes_them(self):
        services = json.loads(run("build-info", "--json")[1])["textServices"]
        encoding = services.replace("code page ", "cp") if "code page" in services else "utf-8"
        text = "Träger"
        self.assertEqual(self.messages("-", given=f"PID:1 10:00:00 Message : {text}\n".encode(encoding)), [text])
        self.assertEqual(self.messages("-", given=f"\nMonday 10:00:00 [DEBUG]       : {text}".encode()), [text])

    def test_a_torn_entry_at_the_end_and_one_without_beginning_are_shown(self):
        self.assertEqual(self.entries("-", given=b"half of a line\nPID:1 10:00:00 Message : hal"), [
            {"kind": "text", "line": 1, "message": "half of a line"},
            {"kind": "entry", "line": 2, "pid": 1, "level": "Message", "time": "10:00:00", "message": "hal"}])

    def test_long_and_many_entries_stream_through(self):
        given = b"PID:1 10:00:00 Message : " + b"x" * 10_000_000 + b"\nPID:1 10:00:01 Message : y\n"
        self.assertEqual([len(text) for text in self.messages("-", given=given)], [10_000_000, 1])
        given = b"PID:1 10:00:00 Message : PID:2 a(1)10:00:00 Exception : " * 100_000
        self.assertEqual(self.log("-", "--count", given=given).splitlines()[-1].split(), ["total", "200000", "200000"])

    def test_an_unsuitable_request_is_refused(self):
        self.assertIn("FILE", self.log(code=USAGE).replace("file", "FILE"))
        self.assertIn("expected a file", self.log("-", "-f", code=USAGE))
        self.assertIn("--errors", self.log("Log.log", "--errors", "--level", "error", code=USAGE))
        self.assertIn("--follow", self.log("Log.log", "--count", "-f", code=USAGE))


class LogFollow(LogTest):
    def follow(self, *arguments):
        program = subprocess.Popen([*PROGRAM, "log", "-f", *arguments, "--json"], cwd=self.folder, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(self.end, program)
        # What never shows its next entry ends, so that waiting for it fails.
        limit = threading.Timer(120, program.kill)
        limit.daemon = True
        limit.start()
        self.addCleanup(limit.cancel)
        return program

    def end(self, program):
        program.kill()
        program.communicate()

    def add(self, text, name="Log.log"):
        with open(Path(self.folder, name), "ab") as file:
            file.write(text)

    def next_message(self, program):
        return json.loads(program.stdout.readline())["message"]

    def stop(self, program):
        """Nobody reads on; the next entry is the latest occasion to notice."""
        program.stdout.close()
        deadline = time.monotonic() + 60
        while program.poll() is None and time.monotonic() < deadline:
            self.add(b"PID:1 10:00:00 Message : to nobody\n")
            time.sleep(0.1)
        self.assertEqual((program.poll(), program.stderr.read()), (DONE, b""))

    def test_what_is_added_is_shown_when_it_is_whole(self):
        program = self.follow("Log.log", "-n", "1")
        self.assertEqual(self.next_message(program), "Log ended")
        self.add(b"PID:1 10:00:00 Message : one\nPID:1 10:00:00 Message : tw")
        self.assertEqual(self.next_message(program), "one")
        time.sleep(0.5)
        self.add(b"o\nPID:1 10:00:00 Message : three\nand more\n")
        self.assertEqual(self.next_message(program), "two")
        self.assertEqual(self.next_message(program), "three\nand more")
        self.stop(program)

    def test_text_behind_a_rest_goes_on_in_the_entry(self):
        self.add(b"PID:1 10:00:00 Message : zero\n")
        program = self.follow("Log.log", "-n", "1", "--pid", "1")
        self.assertEqual(self.next_message(program), "zero")
        self.add(b"PID:1 10:00:00 Error : one\n")
        self.assertEqual(self.next_message(program), "one")
        self.add(b"line\n")
        self.assertEqual(json.loads(program.stdout.readline()), {"kind": "continued", "line": 19, "pid": 1, "level": "Error",
                                                                 "time": "10:00:00", "message": "line"})
        self.stop(program)

    def test_design_logs_are_followed_too(self):
        program = self.follow("VeDesignLog.log", "--level", "error")
        self.assertEqual(self.next_message(program), "no beams")
        self.add(b"\nMonday 10:00:00 [DEBUG]       : one\nMonday 10:00:00 [ERROR]       : two", "VeDesignLog.log")
        self.assertEqual(self.next_message(program), "two")

    def test_the_log_may_be_cut_deleted_and_made_anew(self):
        path = Path(self.folder, "Log.log")
        program = self.follow("Log.log", "-n", "1")
        self.assertEqual(self.next_message(program), "Log ended")
        for number, text in enumerate((b"cut", b"cut again, and longer than it was before", b"cut once more")):
            path.write_bytes(b"PID:1 10:00:0%d Message : %s\n" % (number, text))
            self.assertEqual(self.next_message(program), text.decode())
        for text in (b"made anew", b"made again"):
            path.unlink()
            time.sleep(0.5)
            self.add(b"PID:1 10:00:09 Message : " + text + b"\n")
            self.assertEqual(self.next_message(program), text.decode())
        self.add(b"PID:1 10:00:09 Message : and on\n")
        self.assertEqual(self.next_message(program), "and on")
        self.stop(program)

    def test_a_log_that_is_empty_at_first_is_followed(self):
        self.write("Log.log", b"")
        program = self.follow("Log.log")
        time.sleep(0.5)
        self.add(b"PID:1 10:00:00 Message : first\n")
        self.assertEqual(self.next_message(program), "first")
        self.stop(program)

    def test_an_interruption_ends_it_well(self):
        # The one signal that Wine hands on, as Ctrl+C.
        for number in (signal.SIGINT,) if len(PROGRAM) > 1 else (signal.SIGINT, signal.SIGTERM):
            program = self.follow("Log.log", "-n", "1")
            self.assertEqual(self.next_message(program), "Log ended")
            program.send_signal(number)
            self.assertEqual((program.wait(60), program.stdout.read(), program.stderr.read()), (DONE, b"", b""))

    def test_a_log_must_be_there_and_be_a_file(self):
        self.assertIn("cannot be opened", self.log("-f", "nope.log", code=USAGE))
        self.assertIn("Is a directory", self.log("-f", ".", code=USAGE))


class BuildInfo(CommandTest):
    FACTS = {
        "version": r"\d+\.\d+\.\d+",
        "build number": r"-?\d+",  # the date may be set before 2009: reproducible builds often say 1970
        "build date": r"[A-Z][a-z]{2} [ 1-3]\d \d{4}",
        "configuration": r"\w+",
        "compiler": r"\w+ \d[\d.]*",
        "standard library": r"\S+ \d+.*",
        "target": r"(Linux|Windows) \w+",
        "processor": r"\S+",
        "framework": r"subset",
        "sanitizers": r"\S+",
        "text services": r"ICU [\d.]+|code page \d+",
    }

    def test_each_fact_of_the_build_stands_on_a_line(self):
        code, output, errors = run("build-info")
        self.assertEqual((code, errors), (DONE, ""))
        lines = output.decode().splitlines()
        self.assertEqual([line[:18].rstrip() for line in lines], list(self.FACTS))
        for line, pattern in zip(lines, self.FACTS.values()):
            self.assertRegex(line[18:], f"^({pattern})$", line)

    def test_json_has_the_same_facts(self):
        facts = json.loads(run("build-info", "--json")[1])
        lines = [line[18:] for line in run("build-info")[1].decode().splitlines()]
        self.assertEqual([str(fact) for fact in facts.values()], lines)

    def test_the_build_number_is_that_of_the_date(self):
        facts = json.loads(run("build-info", "--json")[1])
        date = datetime.datetime.strptime(facts["buildDate"], "%b %d %Y")
        self.assertEqual(facts["buildNumber"], (date - datetime.datetime(2009, 1, 1)).days)
        self.assertEqual(run("--version")[1].decode(), f"vetools {facts['version']}\n")


if __name__ == "__main__":
    options = argparse.ArgumentParser()
    options.add_argument("--update", action="store_true")
    options.add_argument("--only", metavar="CLASS")
    options.add_argument("program", nargs=argparse.REMAINDER)
    given = options.parse_args()
    UPDATE = given.update
    PROGRAM = [os.path.abspath(part) if os.path.exists(part) else part for part in given.program]
    with tempfile.TemporaryDirectory(dir=".") as WORK:
        unittest.main(argv=sys.argv[:1] + ([given.only] if given.only else []))
