"""A plugin of pytest that sets the package as SciPy's back end, and writes how many calls were answered
here, by name, to the file that the environment names."""

import collections
import json
import os

import pytest
import scipy.fft

import qsvgen

_answered = collections.Counter()


def _counting(name, function):
    def count(*arguments, **keywords):
        _answered[name] += 1
        return function(*arguments, **keywords)
    return count


def pytest_configure(config):
    for name in ("fft", "ifft", "rfft", "irfft", "dct4", "idct4"):
        setattr(qsvgen, name, _counting(name, getattr(qsvgen, name)))


@pytest.fixture(autouse=True)
def _package_as_global_backend():
    # Before each test: some set another, and SciPy's own back again.
    scipy.fft.set_global_backend(qsvgen.scipy_backend)


def pytest_sessionfinish(session):
    with open(os.environ["ANSWERED_CALLS"], "w") as file:
        json.dump(_answered, file)
