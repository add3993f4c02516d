"""The C library's single calls, one vector at a time: what every result of the package is compared with."""

import ctypes
import math

import numpy as np

# The soname that the package has loaded already: the loader gives the same file.
LIBRARY = ctypes.CDLL("libqsvgen.so.6")

FLAGS = {"forward, backward": 8, "forward, ortho": 4, "forward, forward": 1,
         "inverse, backward": 2, "inverse, ortho": 4, "inverse, forward": 8}
FUNCTIONS = {"fft": "DFTFwd_CToC", "ifft": "DFTInv_CToC", "rfft": "DFTFwd_RToCCS",
             "irfft": "DFTInv_CCSToR", "dht": "Hartley", "idht": "Hartley", "fwht": "WHT", "ifwht": "WHT"}
COMPLEX_INPUT = ("fft", "ifft", "irfft")
COMPLEX_RESULT = ("fft", "ifft", "rfft")
INVERSES = {"fft": "ifft", "rfft": "irfft", "dht": "idht", "fwht": "ifwht", "dct4": "idct4"}
NAMES = tuple(INVERSES) + tuple(INVERSES.values())
NORMS = ("backward", "ortho", "forward")


def lengths_of(name, longest_dct4=4096):
    if name in ("fwht", "ifwht"):
        return [2**k for k in range(1, 14)]
    if name in ("dct4", "idct4"):
        return [2**k for k in range(1, longest_dct4.bit_length())]
    return list(range(2, 65))


def complex_of(real):
    return {"f": np.complex64, "d": np.complex128}[np.dtype(real).char]


def input_type(name, precision):
    return np.dtype(complex_of(precision) if name in COMPLEX_INPUT else precision)


def result_type(name, precision):
    return np.dtype(complex_of(precision) if name in COMPLEX_RESULT else precision)


def input_length(name, n):
    return n // 2 + 1 if name == "irfft" else n


def flag_of(name, norm):
    direction = "inverse" if name in INVERSES.values() else "forward"
    return FLAGS[f"{direction}, {norm}"]


def _pointer(array):
    return array.ctypes.data_as(ctypes.c_void_p)


def _dct4(row, name, norm):
    """The unscaled sum of the C library times one factor."""
    n = len(row)
    suffix = "32f" if row.dtype == np.float32 else "64f"
    plan = ctypes.c_void_p()
    assert LIBRARY[f"qsvgDCT4InitAlloc_{suffix}"](ctypes.byref(plan), n) == 0
    result = np.empty_like(row)
    assert LIBRARY[f"qsvgDCT4_{suffix}"](_pointer(row), _pointer(result), plan) == 0
    LIBRARY[f"qsvgDCT4Free_{suffix}"](plan)
    if norm == "ortho":
        return result * row.dtype.type(math.sqrt(2 / n))
    return result * row.dtype.type(2 if (norm == "backward") == (name == "dct4") else 1 / n)


def single(name, row, n, norm="backward"):
    """The transform of length n of one contiguous vector of the type that the C library takes."""
    assert row.flags.c_contiguous and row.flags.aligned and row.ndim == 1 and row.dtype.isnative
    assert len(row) == input_length(name, n)
    if name in ("dct4", "idct4"):
        return _dct4(row, name, norm)
    precision = row.real.dtype
    result = np.empty(n // 2 + 1 if name == "rfft" else n, result_type(name, precision))
    suffix = ("32f" if precision == np.float32 else "64f") + ("c" if name in ("fft", "ifft") else "")
    function = LIBRARY[f"qsvg{FUNCTIONS[name]}_{suffix}"]
    if name in ("fwht", "ifwht"):
        arguments = (n.bit_length() - 1, flag_of(name, norm), None)
    else:
        arguments = (n, flag_of(name, norm))
    assert function(_pointer(row), _pointer(result), *arguments) == 0
    return result


def rows_of(name, a, n, axis):
    """The array with the axis last, of the type and as many elements as the C library takes."""
    if a.dtype.char in "gG":
        kept = "D" if a.dtype.char == "G" else "d"
    elif a.dtype.char == "e":
        kept = "f"
    else:
        kept = a.dtype.char if a.dtype.char in "fdFD" else "d"
    converted = a.astype(np.dtype(kept))
    converted = converted.astype(input_type(name, converted.real.dtype))
    rows = np.moveaxis(converted, axis, -1)[..., :input_length(name, n)]
    missing = input_length(name, n) - rows.shape[-1]
    return np.pad(rows, [(0, 0)] * (rows.ndim - 1) + [(0, missing)])


def transform(name, a, n=None, axis=-1, norm="backward"):
    """What the package's function of the name is to give, by single calls."""
    if n is None:
        n = 2 * (a.shape[axis] - 1) if name == "irfft" else a.shape[axis]
    rows = rows_of(name, a, n, axis)
    results = np.empty(rows.shape[:-1] + (n // 2 + 1 if name == "rfft" else n,),
                       result_type(name, rows.real.dtype))
    for index in np.ndindex(rows.shape[:-1]):
        results[index] = single(name, np.ascontiguousarray(rows[index]), n, norm)
    return np.moveaxis(results, -1, axis)


def bits(a):
    """Integers, so that zeros have signs and a NaN is one."""
    a = np.ascontiguousarray(a)
    return a.view(np.uint32 if a.real.dtype == np.float32 else np.uint64)


def assert_same_bits(got, wanted, what):
    assert got.dtype == wanted.dtype, f"{what}: type {got.dtype}, not {wanted.dtype}"
    assert got.shape == wanted.shape, f"{what}: shape {got.shape}, not {wanted.shape}"
    differing = np.argwhere(bits(got) != bits(wanted))
    if differing.size:
        at = tuple(differing[0])
        raise AssertionError(f"{what}: {len(differing)} words differ, the first at {at}: "
                             f"{bits(got)[at]:#x}, not {bits(wanted)[at]:#x}")


def random_array(rng, shape, dtype):
    """Numbers of both signs and of magnitudes around 1."""
    dtype = np.dtype(dtype)
    values = rng.standard_normal(shape)
    if dtype.kind == "c":
        values = values + 1j * rng.standard_normal(shape)
    return values.astype(dtype)
