"""A wheel of the Python package: python3 -m build --wheel --no-isolation

It carries the library with all its levels, of which the loader takes the highest that a processor has. They
are built by the preset x86-64-gcc, or taken from the build folder that QSVGEN_BUILD names.
"""

import os
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Distribution, setup
from setuptools.command.build_py import build_py

ROOT = Path(__file__).resolve().parent
SONAME = "libqsvgen.so.6"
# What setuptools writes on its way stays below the folder of builds.
WORK = Path("build/wheel")
WORK.mkdir(parents=True, exist_ok=True)


def built_package():
    """The package in a build folder, in which it is built first unless one was named."""
    if "QSVGEN_BUILD" in os.environ:
        return Path(os.environ["QSVGEN_BUILD"]) / "python/qsvgen"
    preset = "x86-64-gcc"
    for command in (["cmake", "--preset", preset, f"-DQSVG_PYTHON={sys.executable}"],
                    ["cmake", "--build", "--preset", preset, "--target", "python_package"]):
        subprocess.run(command, cwd=ROOT, check=True)
    return ROOT / "build" / preset / "python/qsvgen"


class BuildWithLibrary(build_py):
    """Takes the whole package from the build folder, the library in the place of the link to it."""

    def run(self):
        package, target = built_package(), Path(self.build_lib) / "qsvgen"
        shutil.rmtree(target, ignore_errors=True)
        target.mkdir(parents=True)
        files = [file for file in package.iterdir() if file.is_file()]
        # By its soname alone, beside the baseline and in each level's folder.
        files += [library for library in (package / "lib").rglob(SONAME)]
        for file in files:
            copy = target / file.relative_to(package)
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(file, copy)
            if ".so" in file.suffixes:
                subprocess.run(["strip", "--strip-unneeded", copy], check=True)


class PlatformDistribution(Distribution):
    """One for this interpreter and this machine, since the extension is."""

    def has_ext_modules(self):
        return True


setup(cmdclass={"build_py": BuildWithLibrary}, distclass=PlatformDistribution,
      options={"egg_info": {"egg_base": str(WORK)}, "build": {"build_base": str(WORK)}})
