"""What help() and type checkers show is true."""

import ast
import doctest
import inspect
import pathlib
import subprocess
import sys

import pytest

import qsvgen
import qsvgen.scipy_backend
from c_library import NAMES

PACKAGE = pathlib.Path(qsvgen.__file__).parent


@pytest.mark.parametrize("module", (qsvgen, qsvgen.scipy_backend))
def test_examples_of_docstrings_print_what_they_say(module):
    failed, attempted = doctest.testmod(module)
    assert failed == 0 and attempted > 0


@pytest.mark.parametrize("name", NAMES)
def test_every_function_tells_its_parameters_result_errors_scale_and_an_example(name):
    text = inspect.getdoc(getattr(qsvgen, name))
    for part in ("Parameters\n---", "Returns\n---", "Raises\n---", "Notes\n---", "Examples\n---", "in units of `a`",
                 "shape of `a`", f">>> qsvgen.{name}("):
        assert part in text, f"{name} does not tell: {part}"
    for parameter in inspect.signature(getattr(qsvgen, name)).parameters:
        assert f"\n{parameter} : " in text, f"{name} does not tell of {parameter}"
    assert getattr(qsvgen, name).__module__ == "qsvgen"


def test_stubs_name_what_there_is():
    def names(stub):
        tree = ast.parse((PACKAGE / stub).read_text())
        found = {node.name for node in tree.body if isinstance(node, ast.FunctionDef)}
        return found | {node.target.id for node in tree.body if isinstance(node, ast.AnnAssign)}

    assert (PACKAGE / "py.typed").exists()
    assert names("__init__.pyi") | {"scipy_backend"} == {*qsvgen.__all__, "__version__", "__all__"}
    for name in names("scipy_backend.pyi"):
        assert hasattr(qsvgen.scipy_backend, name)


def test_a_stub_has_the_parameters_of_the_functions():
    tree = ast.parse((PACKAGE / "__init__.pyi").read_text())
    [call] = [node for node in ast.walk(tree) if isinstance(node, ast.FunctionDef) and node.name == "__call__"]
    assert [argument.arg for argument in call.args.args] == \
        ["self", *inspect.signature(qsvgen.fft).parameters]


def test_importing_the_package_imports_nothing_of_scipy():
    program = "import sys, qsvgen, qsvgen.scipy_backend; print([m for m in sys.modules if m.startswith('scipy')])"
    done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, check=True)
    assert done.stdout == "[]\n"


def test_the_library_is_found_by_its_soname_beside_the_package():
    program = "import qsvgen; print([l.split()[-1] for l in open('/proc/self/maps') if 'libqsvgen' in l][0])"
    environment = {"PYTHONPATH": str(PACKAGE.parent), "PATH": "/usr/bin"}
    done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, check=True,
                          env=environment)
    loaded = pathlib.Path(done.stdout.strip())
    assert (PACKAGE / "lib").resolve() in loaded.resolve().parents
    extension, = PACKAGE.glob("_transforms.*.so")
    dynamic = subprocess.run(["readelf", "--dynamic", "--wide", extension], capture_output=True, text=True,
                             check=True).stdout
    assert "[libqsvgen.so.6]" in dynamic and "[$ORIGIN/lib]" in dynamic


def test_the_package_has_the_version_of_the_library_and_of_the_project():
    project = (pathlib.Path(__file__).parents[2] / "pyproject.toml").read_text()
    assert qsvgen.library_version().split()[0] == qsvgen.__version__
    assert f'version = "{qsvgen.__version__}"\n' in project
