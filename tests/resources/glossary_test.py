"""The words of the texts: in each language the same thing has the same one, that of
docs/glossary.md.
"""
import os
import pathlib
import re
import unittest
from xml.etree import ElementTree

SPACE = "{urn:oasis:names:tc:xliff:document:1.2}"
SOURCE = pathlib.Path(os.environ["SOURCE"])
LANGUAGES = {
    "German": "de", "French": "fr", "Spanish": "es", "Italian": "it",
    "Portuguese (Brazil)": "pt", "Japanese": "ja", "Chinese (simplified)": "zh-Hans",
    "Arabic": "ar",
}
# Languages whose words stand in a text as they are, without endings.
WITHOUT_ENDINGS = {"ja", "zh-Hans"}


def plain(text):
    """A caption or message without marks of keys, of directions, and of joined letters."""
    text = re.sub(r"\(&\w\)", "", text or "").replace("&", "")
    return re.sub("[\u200c-\u200f\u0640\u064b-\u0652]", "", text)


def texts_of(tag):
    """The texts of the dialogs, and those of the sample host."""
    kind = "source" if tag == "en" else "target"
    texts = {}
    for folder in ("resources", "host/resources"):
        file = SOURCE / folder / f"{tag}.xlf"
        root = ElementTree.parse(file).getroot()
        for unit in root.iter(f"{SPACE}trans-unit"):
            texts[unit.get("id")] = plain(unit.find(SPACE + kind).text)
    return texts


def tables():
    """The tables of the page, each as a list of rows of cells, the head first."""
    page = (SOURCE / "docs" / "glossary.md").read_text(encoding="utf-8")
    for block in re.findall(r"(?:^\|.*\n)+", page, re.MULTILINE):
        rows = [[cell.strip() for cell in line.strip("|").split("|")]
                for line in block.splitlines()]
        yield [rows[0], *rows[2:]]


def words():
    """The word of each language for each English term: {term: {tag: word}}."""
    found = {}
    for head, *rows in tables():
        if head[0] != "English":
            continue
        for term, *others in rows:
            found.setdefault(term, {}).update(
                {LANGUAGES[name]: word for name, word in zip(head[1:], others)})
    return found


def left_out():
    """What does without its word: {(key, term, tag)}."""
    head, *rows = list(tables())[-1]
    assert head[0] == "key"
    return {(key.strip("`"), term, tag) for key, terms, tags, _ in rows
            for term in terms.split(", ") for tag in tags.split(", ")}


def form_of(word, tag):
    """A pattern of what a word may look like in a text: words have other endings there, vowels
    that go with them, and in Arabic the article may be joined to another word."""
    if tag in WITHOUT_ENDINGS:
        return re.escape(word)
    stems = []
    for each in word.split():
        if each == "…":
            stems.append(".*")
            continue
        stem = each.removeprefix("ال") if tag == "ar" else each
        endings = 0 if len(stem) < 4 else 1 if tag == "ar" else 2 if len(stem) < 8 else 3
        stems.append(re.escape(stem[:len(stem) - endings]) + r"\w*")
    between = r"\W+(?:\w{1,3}\W)?\w*" if tag == "ar" else r"\W+"
    return between.join(stems).replace(r"\W+.*\W+", ".*")


def terms_in(text, terms):
    """The terms of a text; one in a longer one does not count. What a token is called is no word."""
    text = re.sub("<[^>]*>", " ", text)
    for term in sorted(terms, key=len, reverse=True):
        pattern = re.compile(rf"\b{term}s?\b", re.IGNORECASE)
        if pattern.search(text):
            text = pattern.sub(" ", text)
            yield term


class Glossary(unittest.TestCase):
    def test_each_text_has_the_words_of_its_terms(self):
        english = texts_of("en")
        known = words()
        used = set()
        without = set()
        for tag in LANGUAGES.values():
            texts = texts_of(tag)
            for key, text in english.items():
                for term in terms_in(text, known):
                    used.add(term)
                    form = form_of(known[term][tag], tag)
                    if re.search(form, texts[key], re.IGNORECASE):
                        continue
                    without.add((key, term, tag))
                    with self.subTest(key=key, term=term, tag=tag):
                        self.assertTrue((key, term, tag) in left_out(), texts[key])
        self.assertEqual(used, set(known), "a term that no text has")
        self.assertEqual(without, left_out(), "what has its word by now")

    def test_each_term_has_a_word_in_each_language(self):
        for term, found in words().items():
            self.assertEqual(set(found), set(LANGUAGES.values()), term)
            self.assertTrue(all(found.values()), term)

    def test_a_form_is_one_of_its_word_alone(self):
        for word, tag, text, has in [
                ("Sitzung", "de", "in den Sitzungen", True), ("Sitzung", "de", "Profil", False),
                ("formato ricambi", "it", "Formati ricambi", True),
                ("formato ricambi", "it", "Formato", False),
                ("título … ventana", "es", "título/clase de ventana", True),
                ("جلسة", "ar", "للجلسة", True), ("جلسة", "ar", "تنسيق", False),
                ("会话", "zh-Hans", "该会话", True), ("会话", "zh-Hans", "零件", False)]:
            self.assertEqual(bool(re.search(form_of(word, tag), text, re.IGNORECASE)), has, text)


if __name__ == "__main__":
    unittest.main()
