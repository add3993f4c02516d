#pragma once

/** @file @brief What help() shows. Before the first blank line, the signature as inspect reads it.
 */

namespace python {

#define QSVGEN_SIGNATURE(name) \
    name "($module, a, n=None, axis=-1, norm=None, out=None, workers=None)\n--\n\n"

#define QSVGEN_PARAMETERS(source, n, result, lengths)                                             \
    "Parameters\n"                                                                                \
    "----------\n"                                                                                \
    "a : array_like\n"                                                                            \
    "    " source                                                                                 \
    "\n"                                                                                          \
    "    Any shape and any strides; nothing is copied but what has another byte order, another\n" \
    "    type or strides that are no multiples of its elements.\n"                                \
    "n : int, optional\n"                                                                         \
    "    " n                                                                                      \
    "\n"                                                                                          \
    "axis : int, optional\n"                                                                      \
    "    The axis that is transformed, the last one by default; all others are batches.\n"        \
    "norm : {\"backward\", \"ortho\", \"forward\"}, optional\n"                                   \
    "    Which direction is scaled: see Notes. \"backward\" by default.\n"                        \
    "out : ndarray, optional\n"                                                                   \
    "    Where to write the result, an array of its shape and type, of any strides. It may be "   \
    "`a`\n"                                                                                       \
    "    itself; where it overlaps `a` otherwise, `a` is copied first.\n"                         \
    "workers : int, optional\n"                                                                   \
    "    How many threads share a large batch, 1 by default; -1 for as many as there are\n"       \
    "    processors. The result has the same bits with any number.\n\n"                           \
    "Returns\n"                                                                                   \
    "-------\n"                                                                                   \
    "out : ndarray\n"                                                                             \
    "    " result                                                                                 \
    "\n\n"                                                                                        \
    "Raises\n"                                                                                    \
    "------\n"                                                                                    \
    "ValueError\n"                                                                                \
    "    The length is none of those that there are, " lengths                                    \
    "; `norm` or `workers` is out of\n"                                                           \
    "    range; `out` has another shape, is read-only or overlaps itself.\n"                      \
    "numpy.AxisError\n"                                                                           \
    "    `a` has no such axis (a ValueError and an IndexError).\n"                                \
    "TypeError\n"                                                                                 \
    "    `a` holds no numbers" QSVGEN_REFUSED                                                     \
    ", `out` is of another type, `n`, `axis` or `workers`\n"                                      \
    "    is no integer.\n\n"

#define QSVGEN_TYPES                                                                               \
    "Values of float32 and complex64 are transformed in single precision, float16 is widened to\n" \
    "that. All other numbers are converted to float64 or complex128, of which longdouble keeps\n"  \
    "53 bits.\n\n"

#define QSVGEN_COMPLEX_SCALE                                                                      \
    "`norm` \"backward\" leaves the forward transform unscaled and divides the inverse by n,\n"   \
    "\"forward\" does it the other way round, \"ortho\" divides both by sqrt(n). Each value is\n" \
    "multiplied once, by the factor rounded to its type.\n\n"

#define QSVGEN_REFUSED ""
constexpr const char* kFftDocumentation = QSVGEN_SIGNATURE("fft")
    "Discrete Fourier transform, y[k] = sum of x[j] exp(-2 pi i j k / n).\n\n"
    QSVGEN_PARAMETERS("Complex numbers; real ones are taken as complex.",
                      "Length of the transform, 2 to 64: `a` is cropped to it, or zeros follow. The axis's\n"
                      "    own by default.",
                      "Complex, in the shape of `a` but for `n` along the axis; in units of `a`.", "2 to 64")
    "Notes\n-----\n" QSVGEN_COMPLEX_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.fft(np.array([1.0, 2.0, 3.0, 4.0]))\n"
    "array([10.+0.j, -2.+2.j, -2.+0.j, -2.-2.j])\n"
    ">>> qsvgen.fft(np.ones((100, 15, 3), np.complex64), axis=1).shape\n"
    "(100, 15, 3)\n";

constexpr const char* kIfftDocumentation = QSVGEN_SIGNATURE("ifft")
    "Inverse discrete Fourier transform, x[j] = 1/n sum of y[k] exp(2 pi i j k / n).\n\n"
    QSVGEN_PARAMETERS("Complex numbers; real ones are taken as complex.",
                      "Length of the transform, 2 to 64: `a` is cropped to it, or zeros follow. The axis's\n"
                      "    own by default.",
                      "Complex, in the shape of `a` but for `n` along the axis; in units of `a`.", "2 to 64")
    "Notes\n-----\n" QSVGEN_COMPLEX_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.ifft(np.array([10, -2 + 2j, -2, -2 - 2j]))\n"
    "array([1.+0.j, 2.+0.j, 3.+0.j, 4.+0.j])\n";

constexpr const char* kIrfftDocumentation = QSVGEN_SIGNATURE("irfft")
    "Inverse of rfft: the real signal of half a spectrum.\n\n"
    QSVGEN_PARAMETERS("Bins 0 to n/2 of the spectrum, complex; real ones are taken as complex. Imaginary parts of\n"
                      "    bin 0 and, for even n, of bin n/2 are not looked at.",
                      "Length of the result, 2 to 64, 2 (m - 1) for m bins by default: of the bins the first\n"
                      "    n // 2 + 1 are taken, or zeros follow.",
                      "Real, in the shape of `a` but for `n` along the axis; in units of `a`.", "2 to 64")
    "Notes\n-----\n" QSVGEN_COMPLEX_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.irfft(np.array([15, -2.5 + 3.4409548j, -2.5 + 0.81229924j]), n=5).round(3)\n"
    "array([1., 2., 3., 4., 5.])\n";
#undef QSVGEN_REFUSED

#define QSVGEN_REFUSED ", or complex ones"
constexpr const char* kRfftDocumentation = QSVGEN_SIGNATURE("rfft")
    "Discrete Fourier transform of real numbers, bins 0 to n/2.\n\n"
    "y[k] = sum of x[j] exp(-2 pi i j k / n); bins above n/2 are the conjugates of those below.\n\n"
    QSVGEN_PARAMETERS("Real numbers.",
                      "Length of the transform, 2 to 64: `a` is cropped to it, or zeros follow. The axis's\n"
                      "    own by default.",
                      "Complex, in the shape of `a` but for n // 2 + 1 along the axis; in units of `a`.",
                      "2 to 64")
    "Notes\n-----\n" QSVGEN_COMPLEX_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.rfft(np.arange(1.0, 6.0)).round(3)\n"
    "array([15. +0.j   , -2.5+3.441j, -2.5+0.812j])\n";

#define QSVGEN_DHT_PARAMETERS                                                                   \
    QSVGEN_PARAMETERS(                                                                          \
        "Real numbers.",                                                                        \
        "Length of the transform, 2 to 64: `a` is cropped to it, or zeros follow. The axis's\n" \
        "    own by default.",                                                                  \
        "Real, in the shape of `a` but for `n` along the axis; in units of `a`.", "2 to 64")

constexpr const char* kDhtDocumentation = QSVGEN_SIGNATURE("dht")
    "Discrete Hartley transform, y[k] = sum of x[j] (cos + sin)(2 pi j k / n).\n\n"
    QSVGEN_DHT_PARAMETERS
    "Notes\n-----\n" QSVGEN_COMPLEX_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.dht(np.array([1.0, 2.0, 3.0, 4.0]))\n"
    "array([10., -4., -2.,  0.])\n";

constexpr const char* kIdhtDocumentation = QSVGEN_SIGNATURE("idht")
    "Inverse discrete Hartley transform: the Hartley transform divided by n.\n\n"
    QSVGEN_DHT_PARAMETERS
    "Notes\n-----\n" QSVGEN_COMPLEX_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.idht(np.array([10.0, -4.0, -2.0, 0.0]))\n"
    "array([1., 2., 3., 4.])\n";

#define QSVGEN_FWHT_PARAMETERS                                                               \
    QSVGEN_PARAMETERS(                                                                       \
        "Real numbers.",                                                                     \
        "Length of the transform, a power of two from 2 to 8192: `a` is cropped to it, or\n" \
        "    zeros follow. The axis's own by default.",                                      \
        "Real, in the shape of `a` but for `n` along the axis; in units of `a`.",            \
        "powers of two from 2\n    to 8192")

constexpr const char* kFwhtDocumentation = QSVGEN_SIGNATURE("fwht")
    "Fast Walsh-Hadamard transform in natural (Hadamard) order.\n\n"
    "y[k] = sum of x[j] times 1 or -1, by whether the binary digits of j & k have an even or an\n"
    "odd number of ones.\n\n"
    QSVGEN_FWHT_PARAMETERS
    "Notes\n-----\n" QSVGEN_COMPLEX_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.fwht(np.array([1.0, 2.0, 3.0, 4.0]))\n"
    "array([10., -2., -4.,  0.])\n";

constexpr const char* kIfwhtDocumentation = QSVGEN_SIGNATURE("ifwht")
    "Inverse Walsh-Hadamard transform: the Walsh-Hadamard transform divided by n.\n\n"
    QSVGEN_FWHT_PARAMETERS
    "Notes\n-----\n" QSVGEN_COMPLEX_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.ifwht(np.array([10.0, -2.0, -4.0, 0.0]))\n"
    "array([1., 2., 3., 4.])\n";

#define QSVGEN_DCT4_PARAMETERS                                                                  \
    QSVGEN_PARAMETERS(                                                                          \
        "Real numbers.",                                                                        \
        "Length of the transform, a power of two: `a` is cropped to it, or zeros follow. The\n" \
        "    axis's own by default.",                                                           \
        "Real, in the shape of `a` but for `n` along the axis; in units of `a`.",               \
        "powers of two from 2\n    to 2**26 in single and 2**25 in double precision")

#define QSVGEN_DCT4_SCALE                                                                   \
    "The library's unscaled sum is multiplied once: by 2 (dct4, \"backward\", and idct4,\n" \
    "\"forward\"), by 1/n (dct4, \"forward\", and idct4, \"backward\") or by sqrt(2/n) "    \
    "(\"ortho\"),\n"                                                                        \
    "which is what scipy.fft.dct and idct of type 4 are. Plans are kept for later calls.\n\n"

constexpr const char* kDct4Documentation = QSVGEN_SIGNATURE("dct4")
    "Discrete cosine transform of type 4.\n\n"
    "y[k] = 2 sum of x[j] cos(pi/n (j + 1/2) (k + 1/2))\n\n"
    QSVGEN_DCT4_PARAMETERS
    "Notes\n-----\n" QSVGEN_DCT4_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.dct4(np.array([1.0, 2.0, 3.0, 4.0])).round(3)\n"
    "array([10.182, -9.447,  5.01 , -4.69 ])\n";

constexpr const char* kIdct4Documentation = QSVGEN_SIGNATURE("idct4")
    "Inverse discrete cosine transform of type 4: dct4 divided by 2 n.\n\n"
    QSVGEN_DCT4_PARAMETERS
    "Notes\n-----\n" QSVGEN_DCT4_SCALE QSVGEN_TYPES
    "Examples\n--------\n"
    ">>> import numpy as np\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.idct4(qsvgen.dct4(np.array([1.0, 2.0, 3.0, 4.0]))).round(12)\n"
    "array([1., 2., 3., 4.])\n";
#undef QSVGEN_REFUSED

constexpr const char* kTargetCodeDocumentation =
    "target_code($module)\n--\n\n"
    "What processors the library that was loaded is for: 'x64', 'v3' (AVX2) or 'v4' (AVX-512).\n\n"
    "The dynamic loader takes the highest that this processor has. All give the same bits.\n\n"
    "Examples\n--------\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.target_code() in ('x64', 'v3', 'v4')\n"
    "True\n";

constexpr const char* kLibraryVersionDocumentation =
    "library_version($module)\n--\n\n"
    "Version of the library that was loaded, as text.\n\n"
    "Examples\n--------\n"
    ">>> import qsvgen\n"
    ">>> qsvgen.library_version().startswith('6.')\n"
    "True\n";

#undef QSVGEN_SIGNATURE
#undef QSVGEN_PARAMETERS
#undef QSVGEN_TYPES
#undef QSVGEN_COMPLEX_SCALE
#undef QSVGEN_DHT_PARAMETERS
#undef QSVGEN_FWHT_PARAMETERS
#undef QSVGEN_DCT4_PARAMETERS
#undef QSVGEN_DCT4_SCALE

}  // namespace python
