"""What is measured: which transforms, of which arrays."""

from dataclasses import dataclass

import numpy as np

LENGTHS = (4, 8, 15, 16, 32, 47, 60, 64)
# Shape around the length, and the axis.
LAYOUTS = {"rows": ((10000, None), 1), "middle": ((100, None, 100), 1), "vector": ((None,), 0)}
FUNCTIONS = {"fft": ("dft_complex/fwd", "fc"), "ifft": ("dft_complex/inv", "fc"),
             "rfft": ("dft_real/fwd", "f"), "irfft": ("dft_real/inv", "f")}
PRECISIONS = {"32": np.float32, "64": np.float64}


@dataclass(frozen=True)
class Case:
    function: str
    precision: str
    layout: str
    length: int

    @property
    def family(self):
        return FUNCTIONS[self.function][0]

    @property
    def type(self):
        return self.precision + FUNCTIONS[self.function][1]

    @property
    def axis(self):
        return LAYOUTS[self.layout][1]

    @property
    def name(self):
        return f"{self.family}/{self.length}/{self.type}/{self.layout}"

    @property
    def transforms(self):
        return int(np.prod([extent for extent in LAYOUTS[self.layout][0] if extent is not None]))

    def array(self):
        """Numbers between -1 and 1: half spectra for irfft, real ones for rfft, complex ones else."""
        items = self.length // 2 + 1 if self.function == "irfft" else self.length
        shape = [items if extent is None else extent for extent in LAYOUTS[self.layout][0]]
        rng = np.random.default_rng(self.length)
        values = rng.uniform(-1, 1, shape)
        if self.function != "rfft":
            values = values + 1j * rng.uniform(-1, 1, shape)
        real = np.dtype(PRECISIONS[self.precision])
        return values.astype(real if self.function == "rfft" else np.result_type(real, np.complex64))


def all_cases():
    return [Case(function, precision, layout, length) for layout in LAYOUTS for function in FUNCTIONS
            for precision in PRECISIONS for length in LENGTHS]
