#!/usr/bin/python3
"""Turns the English texts into those of a pseudo-language, to test with: letters with accents, and
about 40 % more of them, so that a text that is not translated or has no room shows. What stands in
angle brackets, marks and line ends stay, and so does all punctuation.

pseudo_texts.py ENGLISH PSEUDO: reads the one file and writes the other, whose name is the locale.
"""
import pathlib
import re
import sys

PLAIN = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
ACCENTED = "ÅƁÇÐÉƑĜĤÎĴĶĻṀÑÖÞǪŔŠŢÛṼŴẊÝŽåƀçðéƒĝĥîĵķļṁñöþǫŕšţûṽŵẋýž"
TWICE = "AEIOUNTaeiount"
ACCENTS = {
    ord(plain): accented * (2 if plain in TWICE else 1)
    for plain, accented in zip(PLAIN, ACCENTED, strict=True)
}
KEPT = re.compile(r"(<[^>]*>|&.|\\u[0-9A-Fa-f]{4}|\\.)")


def pseudo(text):
    """The text of one string literal."""
    pieces = KEPT.split(text)
    return "".join(piece if KEPT.fullmatch(piece) else piece.translate(ACCENTS) for piece in pieces)


def main(source, target):
    lines = pathlib.Path(source).read_text(encoding="utf-8").splitlines()
    texts = [line for line in lines if not line.lstrip().startswith("//")]
    made = [re.sub(r'"([^"]*)"', lambda found: f'"{pseudo(found[1])}"', line) for line in texts]
    body = "\n".join(made).replace("en {", pathlib.Path(target).stem + " {", 1)
    pathlib.Path(target).write_text(body + "\n", encoding="utf-8")


main(*sys.argv[1:])
