"""SciPy's functions by this package, and by SciPy where there is no kernel."""

import json
import os
import pathlib
import re
import subprocess
import sys

import numpy as np
import pytest
import scipy.fft

import qsvgen
from c_library import NORMS, assert_same_bits, random_array

HERE = pathlib.Path(__file__).parent


class Answered(list):
    """Names of the package's functions that were called."""

    def watch(self, monkeypatch):
        for name in ("fft", "ifft", "rfft", "irfft", "dct4", "idct4"):
            monkeypatch.setattr(qsvgen, name, self._watching(name, getattr(qsvgen, name)))

    def _watching(self, name, function):
        def call(*arguments, **keywords):
            self.append(name)
            return function(*arguments, **keywords)
        return call


@pytest.fixture
def answered(monkeypatch):
    """With the back end in the place of SciPy's own."""
    calls = Answered()
    calls.watch(monkeypatch)
    scipy.fft.set_global_backend(qsvgen.scipy_backend)
    yield calls
    scipy.fft.set_global_backend("scipy")


def test_without_being_asked_nothing_is_changed(monkeypatch):
    calls = Answered()
    calls.watch(monkeypatch)
    scipy.fft.fft(np.ones(16))
    assert calls == []


@pytest.mark.parametrize("name", ("fft", "ifft", "rfft", "irfft"))
def test_lengths_with_a_kernel_are_answered_here(name, answered, rng):
    for n in range(2, 65):
        x = random_array(rng, (3, n, 2), "f" if name == "rfft" else "F")
        for norm in NORMS:
            wanted = getattr(qsvgen, name)(x, n, 1, norm)
            answered.clear()
            got = getattr(scipy.fft, name)(x, n, 1, norm=norm)
            assert answered == [name]
            assert_same_bits(got, wanted, f"{name} of {n}")


@pytest.mark.parametrize("name", ("dct", "idct"))
def test_type_4_of_powers_of_two_is_answered_here(name, answered, rng):
    for n in (2, 4, 32, 1024):
        x = random_array(rng, (3, n), "d")
        for norm in NORMS:
            wanted = getattr(qsvgen, f"{name}4")(x, norm=norm)
            answered.clear()
            got = getattr(scipy.fft, name)(x, 4, norm=norm)
            assert answered == [f"{name}4"]
            assert_same_bits(got, wanted, f"{name} of {n}")


@pytest.mark.parametrize("call", [
    lambda f: f.fft(np.ones(65)), lambda f: f.fft(np.ones(1)), lambda f: f.fft(np.ones(16, "g")),
    lambda f: f.fft(np.ones(16, "G")), lambda f: f.rfft(np.ones(128)), lambda f: f.dct(np.ones(16)),
    lambda f: f.dct(np.ones(12), 4), lambda f: f.dct(np.ones(16) * 1j, 4), lambda f: f.idct(np.ones(16), 3),
    lambda f: f.dst(np.ones(16), 4), lambda f: f.fft2(np.ones((8, 8))), lambda f: f.ifftn(np.ones((4, 4, 4))),
    lambda f: f.rfftn(np.ones((8, 8))), lambda f: f.hfft(np.ones(9)), lambda f: f.ihfft(np.ones(16)),
    lambda f: f.dctn(np.ones((4, 4)), 4), lambda f: f.fht(np.ones(100), 0.1, 0.2)])
def test_all_else_is_answered_by_scipy(call, answered):
    got = call(scipy.fft)
    assert answered == []
    scipy.fft.set_global_backend("scipy")
    wanted = call(scipy.fft)
    assert got.dtype == wanted.dtype and np.array_equal(got, wanted)


@pytest.mark.parametrize("call", [
    lambda f: f.fft(np.ones(16), 0), lambda f: f.fft(np.ones(16), norm="none"), lambda f: f.fft(np.ones(16), axis=3),
    lambda f: f.rfft(np.ones(16) * 1j), lambda f: f.fft(np.ones(16), workers=0), lambda f: f.fft(np.ones(16), 1.5),
    lambda f: f.fft(np.ones(16), plan=1), lambda f: f.fft(np.ones(16), workers=1.5), lambda f: f.fft(),
    lambda f: f.dct(np.ones(16), 5), lambda f: f.fft(np.float64(3)), lambda f: f.fft(np.ones(16), wrong=1)])
def test_errors_are_scipys_own(call, answered):
    with pytest.raises(Exception) as here:
        call(scipy.fft)
    scipy.fft.set_global_backend("scipy")
    with pytest.raises(Exception) as there:
        call(scipy.fft)
    assert here.type is there.type and str(here.value) == str(there.value)
    assert answered == []


def test_scipys_number_of_workers_is_taken(answered, monkeypatch):
    seen = []
    monkeypatch.setattr(qsvgen, "fft", lambda *arguments: seen.append(arguments[-1]))
    with scipy.fft.set_workers(3):
        scipy.fft.fft(np.ones(16))
    scipy.fft.fft(np.ones(16), workers=2)
    scipy.fft.fft(np.ones(16))
    assert seen == [3, 2, 1]


def test_other_types_become_what_they_do_in_scipy(answered):
    for dtype in "?bhilef":
        assert scipy.fft.rfft(np.ones(16, dtype)).dtype == (np.complex64 if dtype in "ef" else np.complex128)
    assert answered == ["rfft"] * 7


def test_the_back_end_may_be_set_for_a_while(monkeypatch):
    calls = Answered()
    calls.watch(monkeypatch)
    with scipy.fft.set_backend(qsvgen.scipy_backend):
        scipy.fft.fft(np.ones(16))
        scipy.fft.fft(np.ones(100))
        with scipy.fft.skip_backend(qsvgen.scipy_backend):
            scipy.fft.fft(np.ones(16))
    assert calls == ["fft"]


def test_scipys_own_tests_pass_and_are_answered_here_in_part(tmp_path):
    counts = tmp_path / "answered.json"
    tests = pathlib.Path(scipy.fft.__file__).parent / "tests"
    path = os.pathsep.join([str(HERE), str(pathlib.Path(qsvgen.__file__).parents[1])])
    done = subprocess.run(
        [sys.executable, "-m", "pytest", "-q", "-p", "no:cacheprovider", "-p", "counting_backend", str(tests)],
        capture_output=True, text=True, timeout=600, cwd=tmp_path,
        env={**os.environ, "PYTHONPATH": path, "ANSWERED_CALLS": str(counts)})
    assert done.returncode == 0, done.stdout[-4000:] + done.stderr[-2000:]
    passed = int(re.search(r"(\d+) passed", done.stdout)[1])
    answered = json.loads(counts.read_text())
    print(f"{passed} tests of SciPy passed; answered here: {answered}")
    assert passed > 1000
    for name in ("fft", "ifft", "rfft", "irfft", "dct4", "idct4"):
        assert answered.get(name, 0) >= 10, answered
