"""Makes sources of the samples of a document: samples.py DOCUMENT FOLDER

A sample in C++ or C becomes, in FOLDER,

    host.cpp, host_N.cpp, host_N.c  where it has a function main: a program, the first in C++ as host
    sample_N.cpp, sample_N.c        where it includes what it needs, or else, in C++, as a function's
                                    body, on what context.h has for all of them

with the document's line numbers; an item of a store becomes its file in parts/, and a sample of CMake
a project in project_N/, with main.cpp the document's host and wynconfig the component's sources.
"""

import os
import re
import shutil
import sys
import xml.etree.ElementTree as ElementTree


def write(text, *path):
    """Writes a file, along with its folder."""
    path = os.path.join(*path)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def write_item(text, folder):
    """Writes an item, or a catalogue, which has the name of its type."""
    root = ElementTree.fromstring(text.encode())
    kind, name = root.get("type"), root.get("name")
    write(text, folder, "parts", kind, name + (".vls" if name == kind else ".vla"))


def write_project(text, host, sources, folder):
    """Writes a project of these lines."""
    write(f"cmake_minimum_required(VERSION 3.21)\nproject(sample LANGUAGES CXX)\n{text}",
          folder, "CMakeLists.txt")
    write(host, folder, "main.cpp")
    os.symlink(sources, os.path.join(folder, "wynconfig"))


def main():
    document, folder = sys.argv[1:]
    with open(document, encoding="utf-8") as file:
        text = file.read()
    shutil.rmtree(folder, ignore_errors=True)
    found = list(re.finditer(r"^```(cpp|c|cmake|xml)\n(.*?)^```$", text, flags=re.MULTILINE | re.DOTALL))
    assert found, f"no samples in {document}"
    host = next((each[2] for each in found if each[1] == "cpp" and "int main(" in each[2]), "")
    sources = os.path.dirname(document)
    if os.path.basename(sources) == "docs":
        sources = os.path.dirname(sources)
    for number, sample in enumerate(found):
        language, lines = sample.groups()
        if language == "xml":
            write_item(lines, folder)
        elif language == "cmake":
            write_project(lines, host, sources, os.path.join(folder, f"project_{number}"))
        else:
            source = f'#line {text[:sample.start(2)].count(chr(10)) + 1} "{document}"\n{lines}'
            kind = "host" if "int main(" in lines else "sample"
            name = "host.cpp" if lines == host else f"{kind}_{number}.{language}"
            if language == "cpp" and "#include" not in lines:
                source = f'#include "context.h"\nvoid sample{number}() {{\n{source}}}\n'
            write(source, folder, name)


if __name__ == "__main__":
    main()
