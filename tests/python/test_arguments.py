"""What is not a transform is an exception that says why."""

import inspect

import numpy as np
import pytest

import qsvgen
from c_library import NAMES, input_type

X = {name: np.ones(16 if name != "irfft" else 9, input_type(name, np.float64)) for name in NAMES}
every_function = pytest.mark.parametrize("name", NAMES)


def call(name, *arguments, **keywords):
    return getattr(qsvgen, name)(*arguments, **keywords)


@every_function
def test_arguments_have_these_names_and_places(name):
    assert str(inspect.signature(getattr(qsvgen, name))) == \
        "(a, n=None, axis=-1, norm=None, out=None, workers=None)"
    out = np.empty_like(call(name, X[name]))
    by_place = call(name, X[name], 16, 0, "ortho", out, 1)
    by_name = call(name, workers=1, out=None, norm="ortho", axis=0, n=16, a=X[name])
    assert by_place is out and np.array_equal(by_name, out)
    assert np.array_equal(call(name, X[name], n=None, norm=None, out=None, workers=None), call(name, X[name]))


@every_function
@pytest.mark.parametrize("arguments, keywords, message", [
    ((), {}, "missing 1 required positional argument: 'a'"),
    ((1, 2, 3, 4, 5, 6, 7), {}, "takes from 1 to 6 positional arguments but 7 were given"),
    (("x",), {"a": 1}, "multiple values for argument 'a'"),
    (("x",), {"type": 4}, "unexpected keyword argument 'type'")])
def test_wrong_arguments_are_type_errors(name, arguments, keywords, message):
    with pytest.raises(TypeError, match=message):
        call(name, *arguments, **keywords)


KERNELS = r"lengths are 2 to 64$"
LENGTHS = {"fwht": r"powers of two from 2 to 8192$", "ifwht": r"powers of two from 2 to 8192$",
           "dct4": r"powers of two from 2 to 33554432$", "idct4": r"powers of two from 2 to 33554432$"}
OTHER_LENGTHS = {"fwht": (1, 3, 12, 16384), "ifwht": (1, 16384), "dct4": (1, 3, 2**26, 2**40), "idct4": (1, 48)}


@every_function
def test_a_length_without_a_kernel_is_a_value_error_that_names_those_there_are(name):
    for n in OTHER_LENGTHS.get(name, (1, 65, 128, 2**31 + 16, 2**62)):
        with pytest.raises(ValueError, match=LENGTHS.get(name, KERNELS)):
            call(name, X[name], n)
    with pytest.raises(ValueError, match=LENGTHS.get(name, KERNELS)):
        call(name, np.ones((3, 67), X[name].dtype))


def test_dct4_of_single_precision_names_its_own_longest_length():
    with pytest.raises(ValueError, match="powers of two from 2 to 67108864$"):
        qsvgen.dct4(np.ones(3, np.float32))


@every_function
@pytest.mark.parametrize("n", (0, -1, -16, -2**70))
def test_less_than_one_point_is_a_value_error(name, n):
    with pytest.raises(ValueError, match="invalid number of points"):
        call(name, X[name], n)


@every_function
def test_an_array_without_points_is_a_value_error(name):
    with pytest.raises(ValueError, match="invalid number of points"):
        call(name, np.empty((3, 0), X[name].dtype))


def test_one_bin_alone_has_no_inverse_of_its_own_length():
    with pytest.raises(ValueError, match="invalid number of points"):
        qsvgen.irfft(np.ones(1, np.complex64))
    assert qsvgen.irfft(np.ones(1, np.complex64), 2).shape == (2,)


@every_function
@pytest.mark.parametrize("axis", (1, -2, 5, 2**40, -2**70))
def test_an_axis_that_is_not_there_is_an_axis_error(name, axis):
    for error in (np.AxisError, ValueError, IndexError):
        with pytest.raises(error):
            call(name, X[name], axis=axis)


@every_function
def test_a_number_has_no_axis(name):
    with pytest.raises(np.AxisError):
        call(name, 3.0)
    with pytest.raises(np.AxisError):
        call(name, np.array(1.0), 8)


@every_function
@pytest.mark.parametrize("argument", ("n", "axis", "workers"))
@pytest.mark.parametrize("value", (1.0, "1", b"1", [1], np.float64(2), object()))
def test_what_is_no_integer_is_a_type_error(name, argument, value):
    with pytest.raises(TypeError, match=f"{argument} must be an integer"):
        call(name, X[name], **{argument: value})


@every_function
def test_integers_may_be_of_numpy(name):
    assert np.array_equal(call(name, X[name], np.int8(8), np.uint16(0), workers=np.int64(1)),
                          call(name, X[name], 8))


@every_function
def test_an_axis_of_none_is_a_type_error(name):
    with pytest.raises(TypeError, match="axis must be an integer, not None"):
        call(name, X[name], axis=None)


@every_function
@pytest.mark.parametrize("norm", ("Ortho", "", "none", 1, b"ortho", ["ortho"], np.array([1, 2]), 0))
def test_another_norm_is_a_value_error(name, norm):
    with pytest.raises(ValueError, match="invalid norm value"):
        call(name, X[name], norm=norm)


@every_function
@pytest.mark.parametrize("workers", (0, -10**6, -10**30))
def test_workers_out_of_range_are_a_value_error(name, workers):
    with pytest.raises(ValueError, match="workers must be"):
        call(name, X[name], workers=workers)


@every_function
@pytest.mark.parametrize("workers", (1, 2, 1000, 10**30, -1))
def test_any_number_of_workers_gives_the_same(name, workers):
    assert np.array_equal(call(name, X[name], workers=workers), call(name, X[name]))


@every_function
@pytest.mark.parametrize("a", [np.array(["1", "2"]), np.array([b"1", b"2"]), np.array([1, 2], object), [None, None],
                               np.zeros(4, "M8[s]"), np.zeros(4, "m8[s]"), np.zeros(4, [("x", "f8")]),
                               np.zeros(4, "V8"), {"a": 1}, "text"])
def test_what_holds_no_numbers_is_a_type_error(name, a):
    with pytest.raises(TypeError, match="takes numbers"):
        call(name, a)


@pytest.mark.filterwarnings("ignore::numpy.VisibleDeprecationWarning")
def test_rows_of_different_lengths_are_an_error():
    with pytest.raises((TypeError, ValueError)):
        qsvgen.fft([[1, 2], [3]])


def test_an_error_of_the_argument_itself_is_passed_on():
    class Broken:
        def __array__(self, dtype=None):
            raise RuntimeError("cannot be read")

        def __index__(self):
            raise RuntimeError("cannot be counted")

    with pytest.raises(RuntimeError, match="cannot be read"):
        qsvgen.fft(Broken())
    with pytest.raises(RuntimeError, match="cannot be counted"):
        qsvgen.fft(np.ones(4), Broken())


@pytest.mark.parametrize("name", [name for name in NAMES if X[name].dtype.kind == "f"])
@pytest.mark.parametrize("dtype", ("F", "D", "G"))
def test_complex_numbers_have_no_real_transform(name, dtype):
    with pytest.raises(TypeError, match="takes real numbers, not an array of complex"):
        call(name, np.ones(16, dtype))


def test_a_result_that_memory_cannot_hold_is_an_error():
    x = np.broadcast_to(np.ones(64), (2**50, 64))
    with pytest.raises(MemoryError):
        qsvgen.fft(x)
    with pytest.raises(ValueError):
        qsvgen.rfft(np.broadcast_to(np.ones(2, np.float32), (2**60, 2)), 64)
