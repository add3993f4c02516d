"""The families of transforms that the report shows, and how each is found in the measurements."""

from dataclasses import dataclass

PRECISIONS = {"32": "single precision", "64": "double precision"}


@dataclass(frozen=True)
class Family:
    id: str
    name: str
    measured_as: str  # in the programs' JSON
    exported: str  # of exported names: DFTFwd_CToC
    manifest: str  # the folder whose manifest tells its counts
    type_suffix: str  # behind the precision: "f" or "fc"
    x_kind: str = "linear"
    x_label: str = "length N"
    x_heading: str = "N = "
    has_batches: bool = True

    def type(self, precision):
        return precision + self.type_suffix

    def kernel(self, length, precision):
        return f"qsvg{self.exported}_{length}_{self.type(precision)}"

    def x_axis(self):
        return {"kind": self.x_kind, "label": self.x_label, "heading": self.x_heading}


FAMILIES = (
    Family("complex_fwd", "Complex DFT, forward", "dft_complex/fwd", "DFTFwd_CToC", "dft_complex",
           "fc"),
    Family("complex_inv", "Complex DFT, inverse", "dft_complex/inv", "DFTInv_CToC", "dft_complex",
           "fc"),
    Family("real_fwd", "Real DFT, forward", "dft_real/fwd", "DFTFwd_RToCCS", "dft_real", "f"),
    Family("real_inv", "Real DFT, inverse", "dft_real/inv", "DFTInv_CCSToR", "dft_real", "f"),
    Family("hartley", "Hartley", "hartley", "Hartley", "hartley", "f"),
    Family("wht", "Walsh-Hadamard", "walsh_hadamard", "WHT", "walsh_hadamard", "f",
           x_label="order k (length 2^k)", x_heading="order "),
    Family("dct4", "DCT-IV", "dct4", "DCT4", "dct4", "f", x_kind="log2",
           has_batches=False),
)

# Everyone who is measured. The page has a colour, a dash and a marker for each.
PARTIES = {
    "ours": "this library",
    "fftw": "FFTW",
    "kissfft": "KissFFT",
    "redft11": "FFTW REDFT11",
    "composed": "composed of FFTW's complex DFT",
    "loop": "textbook loop",
    "single_calls": "single calls in a loop",
}

# Where the transforms of a batch stand, and whom they are measured against.
BATCH_LAYOUTS = ("contiguous", "columns")
BATCH_PEERS = ("fftw", "single_calls")

# The same of the Python package.
PYTHON_LAYOUTS = {"rows": "(10000, N)", "middle": "(100, N, 100)", "vector": "one vector"}
PYTHON_PEERS = {"scipy": "scipy.fft", "numpy": "numpy.fft"}


def peers_of(family):
    """Whom the family is measured against, the first of them being the one to beat."""
    if family.id == "wht":
        return ("loop",)
    if family.id == "dct4":
        return ("redft11", "composed")
    return ("fftw",) if family.id == "hartley" else ("fftw", "kissfft")
