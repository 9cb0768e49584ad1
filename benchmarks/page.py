#!/usr/bin/env python3
"""Measures and writes docs/performance.md: `./bench --page` runs it.

    page.py BENCH LIBRARIES TEXTS PAGE

BENCH is the program that prints the figures, LIBRARIES the folder of the shared libraries, TEXTS
that of the languages. Each figure has a line in page.tsv; one without is an error.
"""

import os
import pathlib
import platform
import statistics
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
RUNS = 9


def measured(program: str) -> dict[str, str]:
    """The figures that the program prints: what stands in the table, by name."""
    told = {}
    with subprocess.Popen([program], stdout=subprocess.PIPE, text=True) as run:
        for line in run.stdout:
            print(line, end="", flush=True)
            words = line.split()
            if len(words) >= 5 and words[0] != "figure":
                name, ratio, ours, reference, unit = words[:5]
                told[name] = f"{ratio} | {ours} {unit} | {reference} {unit}"
    if run.returncode:
        sys.exit(run.returncode)
    return told


def started(libraries: pathlib.Path, texts: str) -> dict[str, str]:
    """From loading the libraries to the end of the first init: times and memory."""
    told = {}
    with tempfile.TemporaryDirectory() as folder:
        program = f"{folder}/start"
        subprocess.run(["gcc", "-O2", HERE / "start.c", "-ldl", "-o", program], check=True)
        core = libraries / "libwynconfig.so"
        for name, more in (("start", []), ("start-qt", [libraries / "libwynconfig_qt.so"])):
            runs = []
            for number in range(RUNS):
                root = f"{folder}/{name}{number}/"
                os.mkdir(root)
                line = subprocess.run(
                    [program, root, texts, core, *more], capture_output=True, text=True,
                    env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, check=True).stdout
                runs.append([float(word) for word in line.split()])
            time, memory = (statistics.median(column) for column in zip(*runs))
            told[name] = f" | {time:.1f} ms | {memory / 1024:.1f} MiB"
            print(f"{name:28} {time:.1f} ms, {memory / 1024:.1f} MiB", flush=True)
    return told


def page(figures: dict[str, str], lines: list[list[str]]) -> str:
    processor = next((line.split(":")[1].strip() for line in open("/proc/cpuinfo", encoding="utf-8")
                      if line.startswith("model name")), platform.machine())
    text = f"""# Performance

`./bench --page` measured this and wrote it down: all in one run, on a machine with
{os.cpu_count()} cores ({processor}). Both sides of a figure took turns, and each number is the median
of its runs. What counts is the ratio: times are those of this machine and its disk. For the start
the last two columns are the time and the memory that it takes. What the pure parts cost in
instructions is counted, and held to bounds, by `scripts/instructions`.

| What | against what | ratio | ours | reference | what limits it |
|---|---|---|---|---|---|
"""
    for name, what, against, limit in lines:
        text += f"| {what} | {against} | {figures[name]} | {limit} |\n"
    return text


def main() -> None:
    program, libraries, texts, target = sys.argv[1:]
    lines = [line.split("\t") for line in (HERE / "page.tsv").read_text(encoding="utf-8").splitlines()]
    figures = {**measured(program), **started(pathlib.Path(libraries), texts)}
    odd = figures.keys() ^ {line[0] for line in lines}
    if odd:
        sys.exit("page.tsv and the figures differ in: " + ", ".join(sorted(odd)))
    pathlib.Path(target).write_text(page(figures, lines), encoding="utf-8")


if __name__ == "__main__":
    main()
