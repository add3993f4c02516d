"""Errors beside scipy.fft, within the tolerance that its own tests have."""

import numpy as np
import pytest
import scipy.fft
from scipy.linalg import hadamard

import qsvgen
from c_library import NORMS, complex_of, input_length, input_type, lengths_of, random_array

# Of scipy.fft's tests: of single and of double precision.
TOLERANCE = {"f": 2e-6, "d": 1e-14}
PRECISIONS = ("f", "d")


def peer(name):
    """What defines the function of the name: f(x, n, axis, norm)."""
    if name in ("dct4", "idct4"):
        return lambda x, n, axis, norm: getattr(scipy.fft, name[:-1])(x, 4, n, axis, norm)
    return lambda x, n, axis, norm: getattr(scipy.fft, name)(x, n, axis, norm)


def assert_close(got, wanted, precision, what):
    assert got.dtype.char.lower() == precision
    scale = np.abs(wanted).max() or 1
    error = np.abs(got - wanted).max() / scale
    assert error < TOLERANCE[precision], f"{what}: an error of {error:.2g} of the largest value"


@pytest.mark.parametrize("precision", PRECISIONS)
@pytest.mark.parametrize("norm", NORMS)
@pytest.mark.parametrize("name", ("fft", "ifft", "rfft", "irfft", "dct4", "idct4"))
def test_results_are_those_of_scipy(name, norm, precision, rng):
    for n in lengths_of(name):
        x = random_array(rng, (4, input_length(name, n), 3), input_type(name, precision))
        wanted = peer(name)(x.astype(np.promote_types(x.dtype, "d")), n, 1, norm)
        got = getattr(qsvgen, name)(x, n, 1, norm)
        assert_close(got, wanted, precision, f"{name} of {n}, {norm}")
        assert got.dtype == peer(name)(x, n, 1, norm).dtype
        assert got.shape == wanted.shape


@pytest.mark.parametrize("precision", PRECISIONS)
@pytest.mark.parametrize("norm, scale", (("backward", lambda n: 1), ("ortho", lambda n: n**-0.5),
                                         ("forward", lambda n: 1 / n)))
def test_the_hartley_transform_is_the_sum_of_cosines_and_sines(norm, scale, precision, rng):
    for n in lengths_of("dht"):
        x = random_array(rng, n, precision)
        turns = np.outer(np.arange(n), np.arange(n)) % n
        angle = 8 * np.arctan(np.longdouble(1)) * turns / n
        wanted = (np.cos(angle) + np.sin(angle)) @ x.astype("g") * scale(n)
        assert_close(qsvgen.dht(x, norm=norm), wanted, precision, f"dht of {n}, {norm}")


@pytest.mark.parametrize("precision", PRECISIONS)
@pytest.mark.parametrize("norm, scale", (("backward", lambda n: 1), ("ortho", lambda n: n**-0.5),
                                         ("forward", lambda n: 1 / n)))
def test_the_walsh_hadamard_transform_is_in_natural_order(norm, scale, precision, rng):
    for n in (2, 4, 8, 64, 256, 1024):
        x = random_array(rng, n, precision)
        wanted = hadamard(n) @ x.astype("d") * scale(n)
        assert_close(qsvgen.fwht(x, norm=norm), wanted, precision, f"fwht of {n}, {norm}")


@pytest.mark.parametrize("precision", PRECISIONS)
@pytest.mark.parametrize("function", (scipy.fft.rfft, scipy.fft.fft, scipy.fft.irfft))
def test_real_input_and_its_types_are_as_of_scipy(function, precision, rng):
    x = random_array(rng, (3, 16), precision)
    got = getattr(qsvgen, function.__name__)(x)
    assert got.dtype == function(x).dtype == (precision if function is scipy.fft.irfft else complex_of(precision))
    assert_close(got, function(x.astype("d")), precision, function.__name__)


@pytest.mark.parametrize("dtype", "?bBhHiIlLef")
def test_types_of_results_are_those_of_scipy(dtype):
    x = np.ones(8, dtype)
    assert qsvgen.rfft(x).dtype == scipy.fft.rfft(x).dtype
    assert qsvgen.dct4(x).dtype == scipy.fft.dct(x, 4).dtype
