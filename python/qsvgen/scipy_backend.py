"""SciPy's transforms by this package: ``scipy.fft.set_global_backend(qsvgen.scipy_backend)``.

``fft``, ``ifft``, ``rfft``, ``irfft`` and ``dct`` and ``idct`` of type 4 run here where the length has a
kernel and the arguments are sound. All else, errors included, is SciPy's own affair and goes on to its
own implementation. Importing this imports nothing of SciPy.

Examples
--------
>>> import numpy as np
>>> import scipy.fft
>>> import qsvgen
>>> x = np.arange(15.0)
>>> with scipy.fft.set_backend(qsvgen.scipy_backend):
...     y = scipy.fft.rfft(x)
>>> np.array_equal(y, qsvgen.rfft(x))
True
"""

import functools
import operator
import os
import sys

import numpy as np

__all__ = ["__ua_domain__", "__ua_function__"]
__ua_domain__ = "numpy.scipy.fft"

_KERNELS = range(2, 65)
_LONGEST_DCT4 = {"f": 2**26, "d": 2**25}
_NORMS = (None, "backward", "ortho", "forward")


def _of_dft(x, n=None, axis=-1, norm=None, overwrite_x=False, workers=None, *, plan=None):
    return None if plan is not None else (x, n, axis, norm, workers)


def _of_dct(x, type=2, n=None, axis=-1, norm=None, overwrite_x=False, workers=None, orthogonalize=None):
    # Type 4 is orthogonal as it is.
    return None if type != 4 else (x, n, axis, norm, workers)


# SciPy's names: ours, what reads the arguments, and types of elements that stay what they are.
_ANSWERED = {
    "fft": ("fft", _of_dft, "fdFD"),
    "ifft": ("ifft", _of_dft, "fdFD"),
    "rfft": ("rfft", _of_dft, "fd"),
    "irfft": ("irfft", _of_dft, "fdFD"),
    "dct": ("dct4", _of_dct, "fd"),
    "idct": ("idct4", _of_dct, "fd"),
}


@functools.cache
def _scipy():
    """What is asked of SciPy, which is imported with the first call that it sends here."""
    from scipy.fft import get_workers
    from scipy.fft._backend import _named_backends
    # This back end may stand in place of SciPy's, behind which there is no other. A "with set_backend" for
    # the time of a call would do, but for threads: it changes the choice of the thread that had one first.
    return get_workers, _named_backends["scipy"].__ua_function__


@functools.cache
def _package():
    return sys.modules[__package__]


def _has_length(name, type_code, n):
    if name != "dct4" and name != "idct4":
        return n in _KERNELS
    return 2 <= n <= _LONGEST_DCT4[type_code] and n & (n - 1) == 0


def _call(name, types, x, n, axis, norm, workers):
    """The transform, to be called, and its arguments; None where SciPy is to answer."""
    if norm not in _NORMS:
        return None
    x = np.asarray(x)
    type_code = x.dtype.char
    if type_code not in types:
        # Integers become float64 there and here.
        type_code = "d" if x.dtype.kind in "biu" else "f" if x.dtype == np.float16 else None
        if type_code is None:
            return None
    axis = operator.index(axis)
    if not -x.ndim <= axis < x.ndim:
        return None
    if n is not None:
        n = points = operator.index(n)
    else:
        points = x.shape[axis]
        if name == "irfft":
            points = 2 * (points - 1)
    if not _has_length(name, type_code, points):
        return None
    if workers is None:
        workers = _scipy()[0]()
    elif operator.index(workers) == 0 or workers < -os.cpu_count():
        return None
    return getattr(_package(), name), (x, n, axis, norm, None, workers)


def __ua_function__(method, args, kwargs):
    """Answers a call of scipy.fft: by this package, or by SciPy's own implementation."""
    prepared = None
    answered = _ANSWERED.get(method.__name__)
    if answered is not None:
        name, arguments_of, types = answered
        try:
            arguments = arguments_of(*args, **kwargs)
            if arguments is not None:
                prepared = _call(name, types, *arguments)
        # What is wrong with the arguments is for SciPy to say.
        except (TypeError, ValueError):
            pass
    if prepared is None:
        return _scipy()[1](method, args, kwargs)
    transform, arguments = prepared
    return transform(*arguments)
