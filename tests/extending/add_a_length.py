#!/usr/bin/env python3
"""Adds the length of docs/extending.md to the complex DFT as the document tells it, in a scratch folder:
describes and proves its kernels, compiles them, and compares them with the definition.

    add_a_length.py --root ROOT --build BUILD --target TARGET --scratch FOLDER --compiler "COMMAND"
        --links "LIBRARIES"
"""

import argparse
import pathlib
import re
import shlex
import shutil
import subprocess

RECORDED = "transforms/dft_complex/recorded"
RULES = "transforms/dft_complex/rules"
FILES = [f"{RULES}/single_precision_table.cpp", f"{RULES}/double_precision_table.cpp",
         f"{RECORDED}/ia32/tuned_32fc.inc", f"{RECORDED}/ia32/tuned_64fc.inc"]


def run(command, **options):
    done = subprocess.run(command, capture_output=True, text=True, **options)
    assert done.returncode == 0, f"{shlex.join(map(str, command))}:\n{done.stdout}{done.stderr}"
    return done.stdout


def row_for(document, file):
    """The block that stands behind "into FILE"."""
    found = re.search(rf"<!-- into {re.escape(file)} -->\n```cpp\n(.*?)```", document, re.DOTALL)
    assert found, f"docs/extending.md shows no row of {file}"
    return found.group(1)


def with_row(text, row, file):
    if file.endswith(".inc"):
        return text + row
    end = text.index("        };\n    }();")
    return text[:end] + row + text[end:]


def main():
    parser = argparse.ArgumentParser()
    for name in ("root", "build", "scratch"):
        parser.add_argument("--" + name, type=pathlib.Path, required=True)
    parser.add_argument("--target", required=True)
    parser.add_argument("--compiler", type=shlex.split, required=True)
    parser.add_argument("--links", type=shlex.split, required=True)
    options = parser.parse_args()
    root, scratch = options.root, options.scratch

    document = (root / "docs/extending.md").read_text()
    shutil.rmtree(scratch, ignore_errors=True)
    for file in FILES:
        (scratch / file).parent.mkdir(parents=True, exist_ok=True)
        (scratch / file).write_text(with_row((root / file).read_text(), row_for(document, file), file))
    length = int(re.search(r"\d+", row_for(document, FILES[0])).group())

    # The changed files go before those of the library of descriptions.
    shutil.copy(root / RECORDED / "tuning.cpp", scratch / "tuning.cpp")
    describe = scratch / "describe"
    run([*options.compiler, "-std=c++20", "-O1", f"-I{scratch}", f"-I{root}",
         *[scratch / file for file in FILES if file.endswith(".cpp")], scratch / "tuning.cpp",
         root / "transforms/dft_complex/tools/describe_main.cpp", "-o", describe, *options.links])
    run([describe, options.target, scratch / "generated"])
    published_kernels = list((options.build / "generated" / options.target / "dft_complex").glob("*_*_*.cpp"))
    assert published_kernels, "the build has written no kernels"
    for published in published_kernels:
        assert published.read_text() == (scratch / "generated" / published.name).read_text(), \
            f"{published.name} is another kernel now"
    for bits in (32, 64):
        program = scratch / f"driver_{bits}"
        sources = [scratch / f"generated/{way}_{length}_{bits}fc.cpp" for way in ("fwd", "inv")]
        run([*options.compiler, "-std=c++20", "-O2", "-ffp-contract=off", f"-I{root}/library",
             f"-I{root}/include", f"-DQSVG_ADDED_LENGTH={length}", f"-DQSVG_ADDED_BITS={bits}", *sources,
             root / "tests/extending/added_length_driver.cpp", "-o", program])
        print(run([program]), end="")
        dispatcher = (scratch / f"generated/fwd_{bits}fc.cpp").read_text()
        assert f"qsvgDFTFwd_CToC_{length}_{bits}fc(src, dst, flag)" in dispatcher


main()
