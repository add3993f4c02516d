"""Discrete transforms of small fixed sizes, of NumPy's arrays.

Each function transforms one axis of an array, any number of transforms in a call::

    f(a, n=None, axis=-1, norm=None, out=None, workers=None)

================  ===========================  =========================================
``fft, ifft``     complex DFT                  lengths 2 to 64
``rfft, irfft``   DFT of real numbers          lengths 2 to 64
``dht, idht``     Hartley transform            lengths 2 to 64
``fwht, ifwht``   Walsh-Hadamard transform     powers of two from 2 to 8192
``dct4, idct4``   DCT-IV                       powers of two from 2 to 2**25 and more
================  ===========================  =========================================

Conventions are those of ``scipy.fft``; single and double precision are kept. What a transform gives has
the bits of one call of the C library, whatever the strides, the batch, the number of threads and the
processor. ``scipy.fft.set_global_backend(qsvgen.scipy_backend)`` has SciPy's functions run here where
there is a kernel.
"""

from . import scipy_backend
from ._transforms import (dct4, dht, fft, fwht, idct4, idht, ifft, ifwht, irfft, library_version, rfft,
                          target_code)

__version__ = "6.1"
__all__ = ["dct4", "dht", "fft", "fwht", "idct4", "idht", "ifft", "ifwht", "irfft", "library_version",
           "rfft", "scipy_backend", "target_code"]

for _name in __all__:
    if _name != "scipy_backend":
        globals()[_name].__module__ = __name__
del _name
