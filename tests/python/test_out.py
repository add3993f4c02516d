"""Where results are written: any array of their shape and type whose elements are apart."""

import numpy as np
import pytest
from hypothesis import given, settings
from hypothesis import strategies as st

import qsvgen
from c_library import NAMES, assert_same_bits, input_length, input_type, random_array, result_type, transform

IN_PLACE = [name for name in NAMES if input_type(name, "f") == result_type(name, "f")]


@pytest.mark.parametrize("precision", (np.float32, np.float64))
@pytest.mark.parametrize("name", IN_PLACE)
def test_out_may_be_the_input_itself(name, precision, rng):
    for shape, axis, view in (((64,), 0, ...), ((50, 64), 1, ...), ((64, 50), 0, ...), ((7, 64, 33), 1, ...),
                              ((20, 64), 1, np.s_[::-1, ::-1]), ((20, 128), 1, np.s_[::2, ::2])):
        x = random_array(rng, shape, precision).astype(input_type(name, precision))[view]
        wanted = transform(name, x, axis=axis)
        assert getattr(qsvgen, name)(x, axis=axis, out=x, workers=2) is x
        assert_same_bits(x, wanted, f"{name} of {shape}, {view}, axis {axis}")


@pytest.mark.parametrize("name", IN_PLACE)
def test_out_may_be_the_part_of_the_input_that_is_transformed(name, rng):
    x = random_array(rng, (40, 100), np.float64).astype(input_type(name, np.float64))
    wanted = transform(name, x, 32)
    after = x[:, 32:].copy()
    getattr(qsvgen, name)(x, 32, out=x[:, :32])
    assert_same_bits(x[:, :32], wanted, name)
    assert np.array_equal(x[:, 32:], after)


@settings(max_examples=400)
@given(st.data())
def test_an_out_that_overlaps_the_input_receives_the_right_result(data):
    """Both are views of one piece of memory."""
    name = data.draw(st.sampled_from(NAMES))
    precision = np.dtype(data.draw(st.sampled_from(("f", "d"))))
    n = data.draw(st.sampled_from((2, 4, 8, 16)))
    rows = data.draw(st.integers(1, 20))
    memory = np.frombuffer(random_array(np.random.default_rng(5), 4000, np.float64).tobytes(), np.uint8).copy()
    memory.view(np.float64)[...] = random_array(np.random.default_rng(5), 4000, np.float64)

    def view(dtype, columns):
        step = data.draw(st.sampled_from((1, 1, 2, -1)))
        across = data.draw(st.booleans())
        shape = (columns * abs(step), rows) if across else (rows, columns * abs(step))
        offset = data.draw(st.integers(0, 40)) * precision.itemsize
        whole = memory[offset:offset + shape[0] * shape[1] * dtype.itemsize].view(dtype).reshape(shape)
        return whole[::step].T if across else whole[:, ::step]

    array = view(input_type(name, precision), input_length(name, n))
    out = view(result_type(name, precision), n // 2 + 1 if name == "rfft" else n)
    with np.errstate(all="ignore"):
        wanted = transform(name, array.copy(), n)
    getattr(qsvgen, name)(array, n, out=out)
    # A NaN among bytes read as other numbers may have any bits.
    assert np.array_equal(out, wanted, equal_nan=True), (name, n, array.strides, out.strides)


@pytest.mark.parametrize("name", NAMES)
def test_out_of_another_shape_is_a_value_error(name):
    x = np.ones((3, input_length(name, 16)), input_type(name, np.float64))
    right = getattr(qsvgen, name)(x)
    for shape in ((3, right.shape[1] + 1), (3, right.shape[1] - 1), (2, right.shape[1]), right.shape[1:],
                  (1, *right.shape), (right.size,), ()):
        with pytest.raises(ValueError, match="out must have the result's shape"):
            getattr(qsvgen, name)(x, out=np.empty(shape, right.dtype))


@pytest.mark.parametrize("name", NAMES)
def test_out_of_another_type_is_a_type_error(name):
    x = np.ones(input_length(name, 16), input_type(name, np.float64))
    right = getattr(qsvgen, name)(x)
    for dtype in "?bhilefdgFDGO":
        if np.dtype(dtype) != right.dtype:
            with pytest.raises(TypeError, match="out must be an array of"):
                getattr(qsvgen, name)(x, out=np.empty(right.shape, dtype))
    with pytest.raises(TypeError, match="out must be an array of"):
        getattr(qsvgen, name)(x, out=np.empty(right.shape, right.dtype.newbyteorder()))
    for other in (right.tolist(), "text", 5, (right,), memoryview(right)):
        with pytest.raises(TypeError, match="out must be an array, not"):
            getattr(qsvgen, name)(x, out=other)


@pytest.mark.parametrize("name", NAMES)
def test_a_read_only_out_is_a_value_error(name):
    x = np.ones((5, input_length(name, 16)), input_type(name, np.float32))
    out = getattr(qsvgen, name)(x)
    out.flags.writeable = False
    with pytest.raises(ValueError, match="read-only"):
        getattr(qsvgen, name)(x, out=out)


@pytest.mark.parametrize("shape, strides", [
    ((5, 16), (0, 8)), ((5, 16), (8, 8)), ((5, 16), (8, 0)), ((5, 16), (120, 8)), ((5, 16), (124, 8)),
    ((5, 16), (24, 16)), ((2**40, 16), (0, 8)), ((3, 4, 16), (128, 256, 8)), ((5, 16), (-8, 8))])
def test_an_out_that_overlaps_itself_is_a_value_error(shape, strides):
    memory = np.zeros(2000)
    out = np.lib.stride_tricks.as_strided(memory[500:], shape, strides)
    x = np.broadcast_to(np.ones(16), shape)
    with pytest.raises(ValueError, match="share memory with each other"):
        qsvgen.dht(x, out=out)
    assert not memory.any()


def test_an_out_whose_rows_interlock_is_taken(rng):
    # Multiples of 2 and of 5: no two are the same, though no axis strides over the other.
    out = np.lib.stride_tricks.as_strided(np.zeros(1000), (2, 4), (5 * 8, 2 * 8))
    x = random_array(rng, (2, 4), np.float64)
    assert_same_bits(qsvgen.dht(x, out=out), transform("dht", x), "interlocking rows")


def test_out_of_a_subclass_is_returned_as_it_is(rng):
    class Special(np.ndarray):
        pass

    x = random_array(rng, (5, 16), np.float32)
    out = np.empty((5, 16), np.float32).view(Special)
    assert qsvgen.dht(x, out=out) is out
    assert_same_bits(np.asarray(out), transform("dht", x), "subclass")


def test_a_refused_call_leaves_out_alone():
    out = np.full((3, 16), 7.0)
    for arguments in ({"norm": "none"}, {"axis": 5}, {"n": 65}, {"workers": 0}, {"n": 8}):
        with pytest.raises(ValueError):
            qsvgen.dht(np.ones((3, 16)), out=out, **arguments)
    assert (out == 7.0).all()
