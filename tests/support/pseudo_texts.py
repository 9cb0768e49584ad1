#!/usr/bin/python3
"""Turns the English texts into those of a pseudo-language, to test with: letters with accents, and
about 40 % more of them, so that a text that is not translated or has no room shows. What stands in
angle brackets, marks, places of values and line ends stay, and so does all punctuation.

pseudo_texts.py ENGLISH PSEUDO: reads the one file and writes the other, whose name is the locale.
"""
import pathlib
import re
import sys
from xml.etree import ElementTree

SPACE = "urn:oasis:names:tc:xliff:document:1.2"
PLAIN = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
ACCENTED = "ÅƁÇÐÉƑĜĤÎĴĶĻṀÑÖÞǪŔŠŢÛṼŴẊÝŽåƀçðéƒĝĥîĵķļṁñöþǫŕšţûṽŵẋýž"
TWICE = "AEIOUNTaeiount"
ACCENTS = {
    ord(plain): accented * (2 if plain in TWICE else 1)
    for plain, accented in zip(PLAIN, ACCENTED, strict=True)
}
KEPT = re.compile(r"(<[^>]*>|&.|%\d|\n)")


def pseudo(text):
    """The text in the pseudo-language."""
    pieces = KEPT.split(text)
    return "".join(piece if KEPT.fullmatch(piece) else piece.translate(ACCENTS) for piece in pieces)


def main(source, target):
    ElementTree.register_namespace("", SPACE)
    document = ElementTree.parse(source)
    for file in document.iter(f"{{{SPACE}}}file"):
        file.set("target-language", pathlib.Path(target).stem)
    for unit in document.iter(f"{{{SPACE}}}trans-unit"):
        english = unit.find(f"{{{SPACE}}}source")
        made = ElementTree.Element(f"{{{SPACE}}}target")
        made.text = pseudo(english.text)
        unit.insert(list(unit).index(english) + 1, made)
    document.write(target, encoding="UTF-8", xml_declaration=True)


main(*sys.argv[1:])
