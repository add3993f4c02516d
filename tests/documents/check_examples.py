#!/usr/bin/env python3
"""Compiles and runs the examples of Markdown files, and finds their excerpts where they come from.

    check_examples.py --root ROOT --build BUILD --library LIB --target TARGET --mode=OPTION
                      [--peers LIBRARIES] [--python INTERPRETER] FILE...

A block of C or C++ is a whole program, which must compile without a warning and exit with 0; so is a block
of python, run by INTERPRETER with the package of BUILD in an empty folder, and for another target where
there is no INTERPRETER; a block of sh is run in ROOT. A block of text right behind either is what it must print. A block behind a
comment "from FILE" must stand in FILE of ROOT or BUILD, line by line; "from machine code of FUNCTION"
in the disassembly of the library. What ends with "for TARGET" is looked for by the builds for that target
alone. A block behind "into FILE" is for readers to put there, which a test of
its own does. Other blocks are figures, not examples.
"""

import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"(?:<!-- (?:from (?P<origin>[^\n]+?)(?: for (?P<target>[^\n ]+))?|into (?P<place>[^\n]+)) -->\n)?"
                   r"^```(?P<kind>\w+)\n(?P<text>.*?)^```$", re.MULTILINE | re.DOTALL)
TARGETS = ("ia32", "x86-64")
COMPILERS = {"c": ["gcc", "-xc", "-std=c99"], "cpp": ["g++", "-xc++", "-std=c++20"]}


class Failure(Exception):
    pass


def run(command, **options):
    done = subprocess.run(command, capture_output=True, text=True, timeout=120, **options)
    if done.returncode != 0:
        raise Failure(f"{' '.join(map(str, command))} exits with {done.returncode}\n"
                      f"{done.stdout}{done.stderr}")
    return done.stdout


class Examples:
    def __init__(self, options):
        self.root = options.root
        self.build = options.build
        self.library = options.library
        self.target = options.target
        self.mode = options.mode
        self.peers = options.peers.split()
        self.python = options.python

    def output_of_program(self, kind, text):
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder) / "example"
            program = pathlib.Path(folder) / "program"
            source.write_text(text)
            peers = self.peers if "fftw3.h" in text else []
            run([*COMPILERS[kind], self.mode, "-Wall", "-Wextra", "-Werror",
                 f"-I{self.root}/include", source, "-xnone", "-o", program, self.library,
                 f"-Wl,-rpath,{self.library.parent}", *peers, "-lm"])
            return run([program])

    def output_of_python(self, text):
        with tempfile.TemporaryDirectory() as folder:
            return run([self.python, "-B", "-W", "error", "-c", text], cwd=folder,
                       env={**os.environ, "PYTHONPATH": str(self.build / "python"), "MPLBACKEND": "agg"})

    def output_of_commands(self, text):
        path = f"{self.build}/bin:{os.environ['PATH']}"
        return run(["bash", "-euo", "pipefail", "-c", text], cwd=self.root,
                   env={**os.environ, "PATH": path})

    def origin_text(self, origin):
        function = re.fullmatch(r"machine code of (\w+)", origin)
        if function:
            listing = run(["objdump", "-d", "--no-show-raw-insn",
                           f"--disassemble={function[1]}", self.library])
            return "\n".join(line.split("\t", 1)[-1].strip() for line in listing.splitlines())
        for folder in (self.root, self.build):
            if (folder / origin).is_file():
                return (folder / origin).read_text()
        raise Failure(f"there is no {origin}")

    def check(self, block, expected):
        kind, text, origin = block["kind"], block["text"], block["origin"]
        if block["target"] not in (None, *TARGETS):
            raise Failure(f"there is no target {block['target']}")
        if block["target"] not in (None, self.target):
            return "other"
        if origin:
            if text not in self.origin_text(origin) + "\n":
                raise Failure(f"{origin} does not hold:\n{text}")
            return "excerpt"
        if kind == "python" and not self.python:
            return "other"
        if kind == "python":
            output = self.output_of_python(text)
        else:
            output = self.output_of_commands(text) if kind == "sh" else self.output_of_program(kind, text)
        if expected is not None and output != expected:
            raise Failure(f"prints\n{output}instead of\n{expected}")
        return "example"


def blocks_of(text):
    """Each block with what it must print, None where that is not told."""
    blocks = list(BLOCK.finditer(text))
    for block, following in zip(blocks, [*blocks[1:], None]):
        if block["place"] or (block["kind"] not in (*COMPILERS, "python", "sh") and not block["origin"]):
            continue
        adjacent = (following and following["kind"] == "text"
                    and not text[block.end():following.start()].strip())
        yield block, following["text"] if adjacent else None


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    for name in ("root", "build", "library"):
        parser.add_argument(f"--{name}", type=pathlib.Path, required=True)
    parser.add_argument("--target", required=True, choices=TARGETS)
    parser.add_argument("--mode", required=True, help="what makes gcc compile for the target")
    parser.add_argument("--peers", default="", help="libraries for examples that include fftw3.h")
    parser.add_argument("--python", default="", help="interpreter whose package is in the build folder")
    parser.add_argument("files", type=pathlib.Path, nargs="+")
    options = parser.parse_args()
    examples = Examples(options)
    counts = {"example": 0, "excerpt": 0, "other": 0}
    failures = 0
    for file in options.files:
        text = file.read_text()
        for block, expected in blocks_of(text):
            line = text.count("\n", 0, block.start("text"))
            try:
                counts[examples.check(block, expected)] += 1
            except (Failure, subprocess.TimeoutExpired) as failure:
                failures += 1
                print(f"{file}:{line}: {failure}")
    print(f"{counts['example']} examples and {counts['excerpt']} excerpts hold, {failures} do not"
          + (f"; {counts['other']} are for another target" if counts["other"] else ""))
    return 1 if failures or not counts["example"] else 0


if __name__ == "__main__":
    sys.exit(main())
