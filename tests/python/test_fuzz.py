"""Whatever a call is given, it answers by the right result or by an exception with a sentence."""

import subprocess
import sys
import textwrap

import numpy as np
from hypothesis import given, settings
from hypothesis import strategies as st
from hypothesis.extra import numpy as arrays_of

import qsvgen
from c_library import NAMES, NORMS, assert_same_bits, transform

DTYPES = st.one_of(arrays_of.scalar_dtypes(), arrays_of.unicode_string_dtypes(), arrays_of.byte_string_dtypes(),
                   st.just(np.dtype(object)), st.just(np.dtype([("x", "f4"), ("y", "c16")])))
ANYTHING = st.one_of(st.none(), st.integers(), st.integers(-70, 70), st.floats(), st.text(max_size=5), st.booleans(),
                     st.sampled_from(NORMS), st.lists(st.integers(), max_size=3), st.just(...), st.just(int))


@st.composite
def views(draw, shape=None):
    """Arrays with any strides inside their memory, overlapping ones among them."""
    dtype = draw(DTYPES)
    shape = tuple(draw(st.lists(st.integers(0, 20), max_size=4))) if shape is None else shape
    # Not any bytes are text, or what NumPy takes for objects.
    if dtype.hasobject or dtype.itemsize == 0 or dtype.kind == "U":
        return np.zeros(shape, dtype)
    memory = (np.arange(8192) % (2 if dtype.kind == "b" else 61)).astype(np.uint8)
    strides, first, room = [], draw(st.integers(0, 16)), 8192 - 16 - dtype.itemsize
    for extent in shape:
        reach = room // max(extent - 1, 1)
        stride = draw(st.one_of(st.integers(-reach, reach), st.just(0),
                                st.sampled_from((1, -1, 2, 8)).map(
                                    lambda k: max(-reach, min(reach, k * dtype.itemsize)))))
        room -= max(extent - 1, 0) * abs(stride)
        if stride < 0:
            first += max(extent - 1, 0) * -stride
        strides.append(stride)
    view = np.ndarray(shape, dtype, memory.data, first, strides)
    view.flags.writeable = draw(st.booleans())
    return view


@settings(max_examples=1500)
@given(st.data())
def test_any_call_is_answered(data):
    name = data.draw(st.sampled_from(NAMES))
    a = data.draw(st.one_of(views(), views(), ANYTHING))
    given_arguments = {}
    if data.draw(st.booleans()):
        given_arguments["n"] = data.draw(st.one_of(st.sampled_from((2, 4, 8, 16, 64)), ANYTHING))
    if data.draw(st.booleans()):
        given_arguments["axis"] = data.draw(st.one_of(st.integers(-4, 3), ANYTHING))
    if data.draw(st.booleans()):
        given_arguments["norm"] = data.draw(st.one_of(st.sampled_from(NORMS), ANYTHING))
    if data.draw(st.integers(0, 3)) == 0:
        given_arguments["workers"] = data.draw(st.one_of(st.integers(1, 4), ANYTHING))
    if data.draw(st.integers(0, 2)) == 0:
        shape = list(a.shape) if isinstance(a, np.ndarray) else [4]
        given_arguments["out"] = data.draw(st.one_of(views(tuple(shape)), views(), ANYTHING))
    before = a.copy() if isinstance(a, np.ndarray) else None
    with np.errstate(all="ignore"):
        try:
            got = getattr(qsvgen, name)(a, **given_arguments)
        except (TypeError, ValueError, MemoryError) as error:
            assert len(str(error)) > 10, repr(error)
            return
        if before is not None and before.dtype.kind != "O":
            norm = given_arguments.get("norm") or "backward"
            wanted = transform(name, before, given_arguments.get("n"), given_arguments.get("axis", -1), norm)
            if not np.isnan(wanted).any():
                assert_same_bits(got, wanted, f"{name}, {before.dtype}, {before.shape}, {a.strides}, {given_arguments}")


def test_running_out_of_memory_is_an_exception_and_no_crash():
    """In a process that may have little."""
    program = textwrap.dedent("""
        import resource
        import numpy as np
        import qsvgen
        x = np.ones(2**22)
        wide = np.ones((8192, 4))
        space = int(open("/proc/self/statm").read().split()[0]) * resource.getpagesize()
        for call in (lambda: qsvgen.dct4(x), lambda: qsvgen.fft(x.reshape(-1, 64)),
                     lambda: qsvgen.dct4(x, workers=8)):
            for more in range(0, 160 * 2**20, 8 * 2**20):
                resource.setrlimit(resource.RLIMIT_AS, (space + more, resource.RLIM_INFINITY))
                try:
                    call()
                except MemoryError:
                    pass
                finally:
                    resource.setrlimit(resource.RLIMIT_AS, (resource.RLIM_INFINITY, resource.RLIM_INFINITY))
        print("alive")
    """)
    done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, timeout=120)
    assert done.returncode == 0 and done.stdout == "alive\n", done.stderr
