#!/usr/bin/env python3
"""Tests of the generator: numbering of codes, names of places, rules of the texts, errors in tables."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True

import generate
import tables


class Numbering(unittest.TestCase):
    def test_a_range_of_cylinders_gives_one_place_each(self):
        self.assertEqual(tables.spread("c1..c3"), ["c1", "c2", "c3"])

    def test_a_range_of_letters_keeps_the_other_words(self):
        self.assertEqual(tables.spread("A..C b2"), ["A b2", "B b2", "C b2"])

    def test_the_third_coil_has_its_own_code(self):
        self.assertEqual(tables.read_codes()["P0353"], ("coil", "C", "ct"))

    def test_overspeed_follows_the_twelfth_cylinder(self):
        codes = tables.read_codes()
        self.assertEqual(codes["P0296"], ("injector_balance", "c12", "balance"))
        self.assertEqual(codes["P0297"], ("vehicle_overspeed", "", "event"))

    def test_no_code_is_from_1000_to_2000(self):
        self.assertFalse([code for code in tables.read_codes() if 1000 <= int(code[1:]) <= 2000])


class Wording(unittest.TestCase):
    def test_a_lambda_sensor_is_named_by_bank_and_sensor(self):
        self.assertEqual(generate.Writer("uk").description("lambda", "b1 s2", "slow"),
                         "Lambda sensor, bank 1, sensor 2: slow response")

    def test_two_sensors_are_separated_by_a_slash(self):
        self.assertEqual(generate.Writer("de").description("lambda_pair", "b1s1/b2s1", "swapped"),
                         "Lambdasonden, Bank 1, Sonde 1 / Bank 2, Sonde 1: Signale vertauscht")

    def test_french_puts_a_blank_before_the_colon(self):
        self.assertIn(" : ", generate.Writer("fr").description("coil", "A", "ct"))

    def test_a_caption_comes_from_the_message_file(self):
        writer = generate.Writer("it")
        self.assertEqual(writer.with_captions("in {1241}, {1134}...."),
                         f"in «{writer.messages['1241']}», «{writer.messages['1134']}...».")

    def test_a_lean_mixture_note_gives_the_remedies_on_gas(self):
        note = generate.Writer("uk").note("mixture", "lean")
        self.assertIn("low gas pressure", note)
        self.assertIn("Ctrl+T", note)


class MessageFiles(unittest.TestCase):
    def read(self, language):
        return (generate.LANGUAGE_FOLDER / f"Mivra_{language}.ini").read_bytes().decode("utf-8")

    def test_all_message_files_have_the_same_numbers(self):
        numbers = [line for line in self.read("uk").split("\n") if line.startswith("[")]
        self.assertEqual(len(numbers), len(set(numbers)))
        for language in tables.LANGUAGES:
            lines = self.read(language).removesuffix("\n").split("\n")
            self.assertEqual(lines[::2], numbers, language)
            self.assertTrue(all(text.strip() for text in lines[1::2]), language)
            self.assertFalse("\r" in self.read(language) or "\ufeff" in self.read(language), language)

    def test_texts_that_the_program_continues_end_in_a_blank(self):
        for language in tables.LANGUAGES:
            for number in ("1168", "1255"):
                text = generate.read_messages(language)[number]
                self.assertTrue(text.endswith(" ") and not text.endswith("  "), f"{language} {number}")


class BrokenTables(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.addCleanup(setattr, tables, "TABLES", tables.TABLES)
        tables.TABLES = Path(folder.name)

    def write(self, name, text):
        (tables.TABLES / name).write_text(text, encoding="utf-8")

    def test_a_missing_language_is_reported(self):
        self.write("gas_x.txt", "[map]\nit = a\nuk = b\npl = c\nde = d\n")
        with self.assertRaisesRegex(tables.TableError, r"\[map\] has no text for fr"):
            tables.read_blocks("gas_*.txt")

    def test_two_blocks_that_refer_to_each_other_are_an_error(self):
        self.write("gas_x.txt", "[map]\nsame = maf\n[maf]\nsame = map\n")
        with self.assertRaisesRegex(tables.TableError, "no texts of its own"):
            tables.read_blocks("gas_*.txt")

    def test_a_code_defined_twice_is_reported(self):
        self.write("codes_x.txt", "0100 | maf | | ct rp\n0101 | map | | ct\n")
        with self.assertRaisesRegex(tables.TableError, "P0101 is defined twice"):
            tables.read_codes()

    def test_a_row_with_a_missing_field_is_reported(self):
        self.write("codes_x.txt", "# comment\n0100 | maf | ct\n")
        with self.assertRaisesRegex(tables.TableError, "codes_x.txt:2: 3 fields"):
            tables.read_codes()


class Rules(unittest.TestCase):
    def entries(self, **changed):
        good = {language: [("P0001", f"{language} short", f"{language} note.")] for language in tables.LANGUAGES}
        return {**good, **changed}

    def problems(self, **changed):
        return [text for text in generate.problems_of(self.entries(**changed)) if "are required" not in text]

    def test_valid_entries_have_no_problems(self):
        self.assertEqual(self.problems(), [])

    def test_a_line_left_in_english_is_reported(self):
        self.assertRegex(self.problems(it=[("P0001", "uk short", "it note.")])[0], "left in English")

    def test_an_empty_line_is_reported(self):
        self.assertRegex(self.problems(de=[("P0001", "", "de note.")])[0], "empty line")

    def test_a_missing_code_is_reported(self):
        self.assertRegex(self.problems(pl=[])[0], "not the same codes")


if __name__ == "__main__":
    unittest.main()
