"""Arrays of any shape, strides, type, byte order and address."""

import numpy as np
import pytest
from hypothesis import given, settings
from hypothesis import strategies as st

import qsvgen
from c_library import (COMPLEX_INPUT, NAMES, NORMS, assert_same_bits, input_length, input_type, lengths_of, random_array,
                       transform)

PRECISIONS = (np.float32, np.float64)
COMMON_LENGTHS = (2, 3, 4, 5, 8, 13, 16, 32, 47, 64, 128)


def cut(array, step):
    """Every step-th of a wider array's elements along each axis, backwards where it is negative."""
    return array[tuple(slice(None, None, s) for s in step)]


@st.composite
def arrays(draw, dtype, axis_length=None):
    """(array, axis) of up to four axes and any strides."""
    shape = draw(st.lists(st.integers(1, 9), min_size=1, max_size=4))
    axis = draw(st.integers(0, len(shape) - 1))
    if axis_length is not None:
        shape[axis] = axis_length
    step = [draw(st.sampled_from((1, 1, 2, 3, -1, -2))) for _ in shape]
    order = draw(st.permutations(range(len(shape))))
    rng = np.random.default_rng(draw(st.integers(0, 2**20)))
    wide = [shape[k] * abs(step[k]) for k in order]
    # The axes in another order in memory than in the array.
    base = random_array(rng, wide, dtype).transpose(np.argsort(order))
    array = cut(base, step)
    kind = draw(st.sampled_from(("plain", "plain", "swapped", "misaligned", "field", "broadcast", "read-only")))
    if kind == "swapped":
        array = array.astype(array.dtype.newbyteorder())
    elif kind == "misaligned":
        array = misaligned(array)
    elif kind == "field":
        array = field(array)
    elif kind == "broadcast":
        array = np.broadcast_to(array, (3, *array.shape))
        axis += 1
    elif kind == "read-only":
        array.flags.writeable = False
    assert array.shape[axis] == shape[axis - (kind == "broadcast")]
    return array, axis - draw(st.sampled_from((0, array.ndim)))


def misaligned(array):
    memory = np.empty(array.nbytes + 1, np.uint8)
    copy = memory[1:].view(array.dtype).reshape(array.shape)
    copy[...] = array
    return copy


def field(array):
    """One field of records: strides that are no multiples of the element."""
    records = np.zeros(array.shape, [("before", np.uint8, 4), ("value", array.dtype)])
    records["value"] = array
    return records["value"]


@settings(max_examples=600)
@given(st.data())
def test_any_strides_give_the_bits_of_single_calls(data):
    name = data.draw(st.sampled_from(NAMES))
    n = data.draw(st.sampled_from([n for n in COMMON_LENGTHS if n in lengths_of(name)]))
    dtype = input_type(name, data.draw(st.sampled_from(PRECISIONS)))
    norm = data.draw(st.sampled_from(NORMS))
    workers = data.draw(st.sampled_from((None, 1, 3)))
    array, axis = data.draw(arrays(dtype, input_length(name, n)))
    before = array.copy()
    got = getattr(qsvgen, name)(array, n, axis, norm, workers=workers)
    assert_same_bits(got, transform(name, array, n, axis, norm),
                     f"{name} of {n}, shape {array.shape}, strides {array.strides}, axis {axis}, {norm}")
    assert got.flags.c_contiguous and got.flags.writeable and type(got) is np.ndarray
    assert before.tobytes() == array.tobytes(), "the input has changed"


@settings(max_examples=400)
@given(st.data())
def test_n_crops_or_pads_with_zeros(data):
    name = data.draw(st.sampled_from(NAMES))
    n = data.draw(st.sampled_from([n for n in COMMON_LENGTHS if n in lengths_of(name)]))
    precision = data.draw(st.sampled_from(PRECISIONS))
    kinds = (input_type(name, precision), np.dtype(precision))
    array, axis = data.draw(arrays(data.draw(st.sampled_from(kinds)), data.draw(st.integers(1, 70))))
    assert_same_bits(getattr(qsvgen, name)(array, n, axis), transform(name, array, n, axis),
                     f"{name} of {n}, shape {array.shape}, strides {array.strides}, axis {axis}")


@settings(max_examples=400)
@given(st.data())
def test_out_of_any_strides_receives_the_bits_of_single_calls(data):
    name = data.draw(st.sampled_from(NAMES))
    n = data.draw(st.sampled_from([n for n in COMMON_LENGTHS if n in lengths_of(name)]))
    precision = data.draw(st.sampled_from(PRECISIONS))
    rng = np.random.default_rng(3)
    wanted_axis_length = n // 2 + 1 if name == "rfft" else n
    result_dtype = transform(name, np.ones(input_length(name, n), input_type(name, precision)), n).dtype
    out, axis = data.draw(arrays(result_dtype, wanted_axis_length))
    if not out.flags.writeable or not out.dtype.isnative:
        return
    shape = list(out.shape)
    shape[axis] = input_length(name, n)
    array = random_array(rng, shape, input_type(name, precision))
    guard = out.base.copy() if out.base is not None and out.base.dtype == out.dtype else None
    got = getattr(qsvgen, name)(array, n, axis, out=out)
    assert got is out
    assert_same_bits(out, transform(name, array, n, axis),
                     f"{name} of {n}, shape {out.shape}, out's strides {out.strides}, axis {axis}")
    if guard is not None and guard.size > out.size:
        changed = (out.base.view(np.uint8) != guard.view(np.uint8)).sum()
        assert changed <= out.nbytes, "what is between the elements of out has changed"


@pytest.mark.parametrize("name", NAMES)
def test_batches_of_no_transform_have_the_shape_and_type_of_others(name):
    x = np.empty((3, 0, input_length(name, 8)), input_type(name, np.float32))
    got = getattr(qsvgen, name)(x)
    one = getattr(qsvgen, name)(np.zeros(x.shape[-1], x.dtype))
    assert got.shape == (3, 0, len(one)) and got.dtype == one.dtype


@pytest.mark.parametrize("name", NAMES)
def test_an_empty_axis_is_padded(name):
    got = getattr(qsvgen, name)(np.empty((4, 0), input_type(name, np.float64)), 8)
    assert got.shape[0] == 4 and not got.any()


@pytest.mark.parametrize("name", NAMES)
@pytest.mark.parametrize("dtype, precision", [
    ("?", "d"), ("i1", "d"), ("u1", "d"), ("i2", "d"), ("u4", "d"), ("i8", "d"), ("u8", "d"), ("e", "f"), ("f", "f"),
    ("d", "d"), ("g", "d"), (">i4", "d"), (">f4", "f"), (">f8", "d")])
def test_other_types_are_converted(name, dtype, precision):
    x = (np.arange(15 if name == "irfft" else 16) % 3).astype(dtype)
    got = getattr(qsvgen, name)(x)
    same = transform(name, x.astype(precision))
    assert_same_bits(got, same, f"{name} of {dtype}")


@pytest.mark.parametrize("name", COMPLEX_INPUT)
@pytest.mark.parametrize("dtype, kept", [("F", "F"), ("D", "D"), ("G", "D"), (">c8", "F"), (">c16", "D")])
def test_complex_types_are_kept_or_narrowed_to_double(name, dtype, kept):
    x = (np.arange(9) * (1 + 2j)).astype(dtype)
    assert_same_bits(getattr(qsvgen, name)(x), transform(name, x.astype(kept)), f"{name} of {dtype}")


def test_lists_and_numbers_in_lists_are_arrays():
    assert_same_bits(qsvgen.fft([[1, 2, 3], [4, 5, 6]]), transform("fft", np.array([[1, 2, 3], [4, 5, 6]])), "lists")


@pytest.mark.filterwarnings("ignore:the matrix subclass")
def test_a_matrix_or_masked_array_is_a_plain_array_of_its_elements():
    x = np.arange(12.0).reshape(3, 4)
    for special in (np.matrix(x), np.ma.array(x)):
        got = qsvgen.rfft(special, axis=0)
        assert type(got) is np.ndarray
        assert_same_bits(got, transform("rfft", x, axis=0), type(special).__name__)


def test_an_array_may_have_as_many_axes_as_numpy_allows(rng):
    x = random_array(rng, (2,) * 4 + (1,) * 24 + (3, 4, 5, 2), np.float64)
    for axis in (0, -4, -2):
        assert_same_bits(qsvgen.rfft(x, axis=axis), transform("rfft", x, axis=axis), f"32 axes, axis {axis}")


def test_more_transforms_than_one_batch_has_are_all_done():
    x = np.arange(2 * (2**24 + 5), dtype=np.float32).reshape(-1, 2) % 1001
    got = qsvgen.fwht(x)
    assert np.array_equal(got[:, 0], x[:, 0] + x[:, 1]) and np.array_equal(got[:, 1], x[:, 0] - x[:, 1])


def test_transforms_that_stand_gigabytes_apart_are_reached(rng):
    # Memory that nobody touches takes none.
    memory = np.zeros(6 * 2**30, np.uint8)
    x = np.lib.stride_tricks.as_strided(memory.view(np.float64), (2, 4), (5 * 2**30, 8))
    x[...] = random_array(rng, (2, 4), np.float64)
    assert_same_bits(qsvgen.rfft(x), transform("rfft", x), "5 GiB apart")
