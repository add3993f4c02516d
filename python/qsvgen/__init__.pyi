from typing import Any, Literal, Protocol, SupportsIndex

import numpy as np
from numpy.typing import ArrayLike, NDArray

from . import scipy_backend as scipy_backend

class _Transform(Protocol):
    __name__: str
    def __call__(
        self,
        a: ArrayLike,
        n: SupportsIndex | None = ...,
        axis: SupportsIndex = ...,
        norm: Literal["backward", "ortho", "forward"] | None = ...,
        out: NDArray[Any] | None = ...,
        workers: SupportsIndex | None = ...,
    ) -> NDArray[Any]: ...

fft: _Transform
ifft: _Transform
rfft: _Transform
irfft: _Transform
dht: _Transform
idht: _Transform
fwht: _Transform
ifwht: _Transform
dct4: _Transform
idct4: _Transform

def target_code() -> Literal["x64", "v3", "v4"]: ...
def library_version() -> str: ...

__version__: str
__all__: list[str]
