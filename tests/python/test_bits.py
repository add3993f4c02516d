"""Every result has the bits of the C library's single calls."""

import os

import numpy as np
import pytest

import qsvgen
from c_library import (INVERSES, NAMES, NORMS, assert_same_bits, input_length, input_type, lengths_of, random_array,
                       transform)

PRECISIONS = (np.float32, np.float64)


@pytest.mark.parametrize("precision", PRECISIONS)
@pytest.mark.parametrize("name", NAMES)
def test_a_vector_of_every_length_has_the_bits_of_the_single_call(name, precision, rng):
    for n in lengths_of(name):
        x = random_array(rng, input_length(name, n), input_type(name, precision))
        for norm in NORMS:
            assert_same_bits(getattr(qsvgen, name)(x, n, norm=norm), transform(name, x, n, norm=norm),
                             f"{name} of {n}, {precision.__name__}, {norm}")
        if name != "irfft" or n % 2 == 0:
            assert_same_bits(getattr(qsvgen, name)(x), transform(name, x, n),
                             f"{name} of {n}, {precision.__name__}, alone")


@pytest.mark.parametrize("axis", (0, 1, 2))
@pytest.mark.parametrize("precision", PRECISIONS)
@pytest.mark.parametrize("name", NAMES)
def test_transforms_along_each_axis_have_the_bits_of_single_calls(name, precision, axis, rng):
    for n in (4, 15, 16, 47, 60, 64, 512):
        if n not in lengths_of(name):
            continue
        shape = [9, 3, 70]
        shape[axis] = input_length(name, n)
        x = random_array(rng, shape, input_type(name, precision))
        assert_same_bits(getattr(qsvgen, name)(x, n, axis), transform(name, x, n, axis),
                         f"{name} of {n}, {precision.__name__}, axis {axis} of {shape}")


@pytest.mark.parametrize("name", ("fft", "ifft", "irfft"))
@pytest.mark.parametrize("precision", PRECISIONS)
def test_real_numbers_are_taken_as_complex_ones(name, precision, rng):
    for axis, shape in ((1, (40, 8)), (0, (8, 40)), (1, (3, 8, 40))):
        x = random_array(rng, shape, precision)
        assert_same_bits(getattr(qsvgen, name)(x, axis=axis), transform(name, x, axis=axis),
                         f"{name} of real {shape}")


@pytest.mark.parametrize("name, inverse", INVERSES.items())
@pytest.mark.parametrize("norm", NORMS)
def test_there_and_back_gives_the_numbers_again(name, inverse, norm, rng):
    for n in lengths_of(name):
        x = random_array(rng, (3, n), input_type(name, np.float64))
        back = getattr(qsvgen, inverse)(getattr(qsvgen, name)(x, norm=norm), n=n, norm=norm)
        assert np.allclose(back, x, rtol=0, atol=1e-12), f"{name} of {n}, {norm}"


@pytest.mark.parametrize("axis", (0, 1))
@pytest.mark.parametrize("name", NAMES)
def test_a_nan_in_one_transform_leaves_the_bits_of_the_others_alone(name, axis, rng):
    shape = [37, 37]
    shape[axis] = input_length(name, 16)
    x = random_array(rng, shape, input_type(name, np.float32))
    clean = np.moveaxis(getattr(qsvgen, name)(x, axis=axis), axis, -1)
    np.moveaxis(x, axis, -1)[20, 3] = np.nan
    spoilt = np.moveaxis(getattr(qsvgen, name)(x, axis=axis), axis, -1)
    for k in range(37):
        if k == 20:
            assert np.isnan(spoilt[k]).any(), f"{name}: where is the NaN?"
        else:
            assert_same_bits(spoilt[k], clean[k], f"{name}, transform {k} along axis {axis}")


def test_the_library_is_that_of_the_level_which_the_test_is_for():
    wanted = os.environ.get("QSVGEN_TARGET_CODE")
    if wanted is None:
        pytest.skip("run without a level")
    assert qsvgen.target_code() == wanted
