"""The files of texts themselves: they are in the form that translators' tools open, say the same in
the same order in every language, and stand in one layout, so that a change shows as what it is.
"""
import os
import pathlib
import re
import subprocess
import unittest
from xml.etree import ElementTree

SPACE = "{urn:oasis:names:tc:xliff:document:1.2}"
SOURCE = pathlib.Path(os.environ["SOURCE"])
# The attributes of each element, in this order, and its children.
FORM = {
    "xliff": ("version", "file "),
    "file": ("original source-language( target-language)? datatype", "header body "),
    "header": ("", "(note )+"),
    "body": ("", "(group )+"),
    "group": ("id", "note (trans-unit )+"),
    "trans-unit": ("id", "source (target )?(note )*"),
    "source": ("", ""),
    "target": ("", ""),
    "note": ("", ""),
}
# The notes that quote a message have the words of their language.
QUOTE = re.compile(r'"[^"]*"')
# Scripts in which letters have no case, so that a note on case is left out.
WITHOUT_CASE = {"ar", "ja", "zh-Hans"}
# Languages whose two labels don't make the sentence that the English ones make.
OTHER_LABELS = {"ja", "zh-Hans"}


def name_of(element):
    return element.tag.removeprefix(SPACE)


def plain(text):
    return " ".join(text.split())


def units_of(root):
    """The units by their keys, in their order, each with the group it is in."""
    return {
        unit.get("id"): (group.get("id"), unit)
        for group in root.iter(f"{SPACE}group")
        for unit in group.iter(f"{SPACE}trans-unit")
    }


def notes_of(unit, tag):
    """The notes of a unit, by what all languages share of them."""
    notes = [QUOTE.sub('"..."', plain(note.text)) for note in unit.findall(f"{SPACE}note")]
    if tag in OTHER_LABELS:
        notes = [note.replace("In English this label", "This label") for note in notes]
    return notes


def english_notes(unit, tag):
    """The notes of an English unit, as the unit of another language is to have them."""
    notes = notes_of(unit, "en")
    if tag in WITHOUT_CASE:
        notes = [re.sub(r"; names are in upper case\.$", ".", note) for note in notes]
    return notes


class FilesOf:
    """The files of one folder."""
    maxDiff = None
    FOLDER = None

    @classmethod
    def setUpClass(cls):
        cls.files = sorted((SOURCE / cls.FOLDER).glob("*.xlf"))
        cls.roots = {file.stem: ElementTree.parse(file).getroot() for file in cls.files}
        cls.english = units_of(cls.roots["en"])

    def test_there_are_nine(self):
        self.assertEqual(len(self.files), 9)

    def test_each_is_well_formed(self):
        subprocess.run(["xmllint", "--noout", *self.files], check=True)

    def test_each_has_the_form(self):
        for tag, root in self.roots.items():
            self.assertEqual(root.tag, SPACE + "xliff")
            for element in root.iter():
                attributes, children = FORM[name_of(element)]
                there = "".join(name_of(child) + " " for child in element)
                self.assertRegex(" ".join(element.keys()), f"^{attributes}$")
                self.assertRegex(there, f"^{children}$", element.attrib)
                if children:
                    self.assertEqual((element.text or "").strip(), "")
                self.assertEqual((element.tail or "").strip(), "")
            file = root.find(f"{SPACE}file")
            self.assertEqual(file.get("source-language"), "en")
            self.assertEqual(file.get("target-language"), None if tag == "en" else tag)

    def test_each_has_the_units_of_english_in_their_order(self):
        for tag, root in self.roots.items():
            there = [(key, group) for key, (group, _) in units_of(root).items()]
            english = [(key, group) for key, (group, _) in self.english.items()]
            self.assertEqual(there, english, tag)
            self.assertEqual(len(there), len(list(root.iter(f"{SPACE}trans-unit"))))

    def test_each_source_is_the_english_text(self):
        for tag, root in self.roots.items():
            for key, (_, unit) in units_of(root).items():
                english = self.english[key][1].find(f"{SPACE}source").text
                self.assertEqual(unit.find(f"{SPACE}source").text, english, (tag, key))

    def test_each_text_is_translated_but_for_english(self):
        for tag, root in self.roots.items():
            for key, (_, unit) in units_of(root).items():
                self.assertEqual(unit.find(f"{SPACE}target") is None, tag == "en", (tag, key))

    def test_each_unit_has_a_note(self):
        for key, (_, unit) in self.english.items():
            self.assertIsNotNone(unit.find(f"{SPACE}note"), key)

    def test_the_notes_of_english_stand_in_each(self):
        for tag, root in self.roots.items():
            for key, (_, unit) in units_of(root).items():
                english = english_notes(self.english[key][1], tag)
                self.assertEqual(notes_of(unit, tag), english, (tag, key))
            for group, english in zip(
                root.iter(f"{SPACE}group"), self.roots["en"].iter(f"{SPACE}group"), strict=True
            ):
                self.assertEqual(group.find(f"{SPACE}note").text, english.find(f"{SPACE}note").text)

    def test_each_stands_in_one_layout(self):
        for file in self.files:
            lines = file.read_text(encoding="utf-8").splitlines()
            with self.subTest(file=file.name):
                self.assertEqual(lines[0], '<?xml version="1.0" encoding="UTF-8"?>')
                depth = 0
                for number, line in enumerate(lines[1:], 2):
                    opened = len(re.findall(r"<[a-z]", line))
                    closed = line.count("</")
                    indent = 2 * (depth - max(0, closed - opened))
                    self.assertEqual(len(line) - len(line.lstrip()), indent, number)
                    self.assertEqual(line, line.rstrip(), number)
                    depth += opened - closed
                    if "<source>" not in line and "<target>" not in line:
                        self.assertLessEqual(len(line), 100, number)


class ComponentFiles(FilesOf, unittest.TestCase):
    FOLDER = "resources"

    def test_a_message_that_is_joined_has_notes_that_show_it_in_its_language(self):
        for tag, root in self.roots.items():
            units = units_of(root)
            for key in ("GLOBAL_MOD_ERROR", "GLOBAL_MOD_TEXT", "GLOBAL_MOD_PROCEDURE",
                        "MORAM_CONFIG_MSG_NAME_EXISTS", "MORAM_CONFIG_MSG_REENTER_NAME"):
                unit = units[key][1]
                text = unit.find(f"{SPACE}{'source' if tag == 'en' else 'target'}").text
                notes = unit.findall(f"{SPACE}note")
                self.assertTrue(notes)
                for note in notes:
                    # A no-break blank is a plain one in a note.
                    shown = plain(note.text).replace("\u00a0", " ")
                    self.assertIn(text.replace("\u00a0", " "), shown, (tag, key))


class HostFiles(FilesOf, unittest.TestCase):
    FOLDER = "host/resources"

    def texts(self):
        """Each text of another language: its tag, its key, the English text, and itself."""
        for tag, root in self.roots.items():
            for key, (_, unit) in units_of(root).items():
                target = unit.find(f"{SPACE}target")
                if target is not None:
                    yield tag, key, unit.find(f"{SPACE}source").text, target.text

    def test_each_has_the_places_of_english(self):
        for tag, key, english, text in self.texts():
            places = [sorted(re.findall("%.", each)) for each in (english, text)]
            self.assertEqual(places[1], places[0], (tag, key))

    def test_each_ends_as_english(self):
        for tag, key, english, text in self.texts():
            ends = [each[-1] if each[-1] in ".:?…" else "" for each in
                    (english, text.translate(str.maketrans("。：？؟", ".:??")))]
            self.assertEqual(ends[1], ends[0], (tag, key, text))

    def test_each_has_no_blanks_to_spare_and_is_not_much_longer(self):
        for tag, key, english, text in self.texts():
            self.assertEqual(text, text.strip(), (tag, key))
            self.assertNotRegex(text, "\\s\\s|[\t\n]", (tag, key))
            self.assertLessEqual(len(text), len(english) * 3 / 2 + 16, (tag, key, text))

    def test_each_is_translated_throughout(self):
        for tag, key, english, text in self.texts():
            # What stands alike in two languages is short: a name, a loan, or places alone.
            if text.replace("&", "") == english.replace("&", ""):
                self.assertLess(len(re.sub("%.", "", english)), 16, (tag, key))

    def test_those_that_mark_a_key_are_the_same(self):
        # A language with too few letters leaves these without.
        optional = {"SEND_FACTS", "SEND_FOR_FILE", "SEND_FOR_PROGRAM", "DELETED_TITLE",
                    "SESSIONS_TITLE", "CATALOGUE_GROUP"}
        for tag, key, english, text in self.texts():
            self.assertLessEqual(text.count("&"), 1, (tag, key))
            if key not in optional:
                self.assertEqual("&" in text, "&" in english, (tag, key))

    def test_captions_are_quoted_in_the_guide_as_they_are_seen(self):
        named = {
            "GUIDE_SEND_TEXT": ["PAGE_SEND", "SEND_BUTTON"],
            "GUIDE_SESSIONS_TEXT": ["PAGE_SESSIONS", "MENU_STORE"],
            "GUIDE_FORMATS_TEXT": ["MORAM_CONFIG_TAB_PART_FORMAT", "BUTTON_NEW"],
            "GUIDE_FILE": ["BUTTON_TALLYVANE"],
            "GUIDE_FILE_TEXT": ["BUTTON_TALLYVANE", "TVW_CONFIG_CHK_WRITE_FILE_ONLY"],
            "GUIDE_DELAYS_TEXT": ["BUTTON_ADVANCED"],
            "GUIDE_LANGUAGES_TEXT": ["MENU_TOOLS"],
            "DONE_NOT_STORED": ["MENU_DATABASE", "REFUSED_EDIT"],
            "REFUSED_KEPT": ["MENU_DATABASE", "REFUSED_EDIT"],
        }
        for tag, root in self.roots.items():
            dialogs = ElementTree.parse(SOURCE / "resources" / f"{tag}.xlf").getroot()
            kind = "source" if tag == "en" else "target"
            texts = {key: unit.find(SPACE + kind).text
                     for each in (dialogs, root) for key, (_, unit) in units_of(each).items()}
            for key, captions in named.items():
                for caption in captions:
                    seen = re.sub(r"\(&\w\)", "", texts[caption]).replace("&", "").rstrip("…")
                    plain_text = re.sub("[\u200e\u200f\u2066-\u2069]", "", texts[key])
                    self.assertIn(seen.strip("\u200f"), plain_text, (tag, key, caption))


if __name__ == "__main__":
    unittest.main()
