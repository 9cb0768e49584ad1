"""Makes sources of the C++ samples of a document: samples.py DOCUMENT FOLDER

A sample with a function main becomes FOLDER/host.cpp, each other one a function of its own in
FOLDER/sample_N.cpp, on what context.h has for all of them. Their lines keep the document's numbers.
"""

import os
import re
import sys


def main():
    document, folder = sys.argv[1:]
    with open(document, encoding="utf-8") as file:
        text = file.read()
    os.makedirs(folder, exist_ok=True)
    found = list(re.finditer(r"^```cpp\n(.*?)^```$", text, flags=re.MULTILINE | re.DOTALL))
    assert found, f"no samples in {document}"
    for number, sample in enumerate(found):
        line = f'#line {text[:sample.start(1)].count(chr(10)) + 1} "{document}"\n'
        if "int main(" in sample[1]:
            name, source = "host.cpp", line + sample[1]
        else:
            name = f"sample_{number}.cpp"
            source = f'#include "context.h"\nvoid sample{number}() {{\n{line}{sample[1]}}}\n'
        with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
            file.write(source)


if __name__ == "__main__":
    main()
