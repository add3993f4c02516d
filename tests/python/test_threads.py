"""Threads, the interpreter's lock, and processes that are forked."""

import os
import signal
import subprocess
import sys
import threading
import time

import numpy as np
import pytest

import qsvgen
from c_library import NAMES, assert_same_bits, input_length, input_type, random_array, transform


def batch_of(name, rng, precision=np.float32, n=32):
    return random_array(rng, (4000, input_length(name, n)), input_type(name, precision))


@pytest.mark.parametrize("name", NAMES)
def test_a_batch_that_workers_share_has_the_same_bits(name, rng):
    for shape, axis in (((4001, 32), 1), ((32, 4001), 0), ((67, 32, 61), 1), ((3, 32, 1501), 1)):
        shape = list(shape)
        shape[axis] = input_length(name, 32)
        x = random_array(rng, shape, input_type(name, np.float32))
        alone = getattr(qsvgen, name)(x, axis=axis, workers=1)
        for workers in (2, 3, 7, 64):
            assert_same_bits(getattr(qsvgen, name)(x, axis=axis, workers=workers), alone,
                             f"{name} of {shape} along {axis} by {workers} workers")


def test_workers_are_threads_of_their_own():
    """More of them are there while a large batch runs than before and afterwards."""
    def threads():
        return len(os.listdir("/proc/self/task"))

    x = np.ones((100000, 64))
    before = threads()
    most = before
    running = threading.Thread(target=lambda: [qsvgen.fft(x, workers=5) for _ in range(8)])
    running.start()
    while running.is_alive():
        most = max(most, threads())
    running.join()
    assert most >= before + 1 + 4, f"{most} threads at most, {before} before"
    # The system takes a moment to be rid of one that has ended.
    deadline = time.monotonic() + 10
    while threads() > before and time.monotonic() < deadline:
        time.sleep(0.01)
    assert threads() == before


@pytest.mark.parametrize("name", ("fft", "dct4"))
def test_the_interpreters_lock_is_released_while_a_batch_runs(name):
    """Another thread goes on counting although the interpreter takes the lock from nobody."""
    x = np.ones((200000, 64), input_type(name, np.float64))
    transform_it = getattr(qsvgen, name)
    out = transform_it(x)
    interval = sys.getswitchinterval()
    counted = [0]
    stop = threading.Event()

    def count():
        while not stop.is_set():
            counted[0] += 1
            time.sleep(0)

    sys.setswitchinterval(1000)
    counter = threading.Thread(target=count)
    try:
        counter.start()
        before = counted[0]
        for _ in range(10):
            transform_it(x, out=out)
        during = counted[0] - before
    finally:
        stop.set()
        sys.setswitchinterval(interval)
        counter.join()
    assert during > 100, f"{during} steps of another thread"


def test_threads_of_the_program_may_call_at_once(rng):
    """Among them of one length of the DCT-IV, whose plans serve one call at a time."""
    work = []
    for name in ("fft", "irfft", "fwht", "dct4", "idct4"):
        x = batch_of(name, rng, n=64)[:600]
        work.append((name, x, transform(name, x)))
    faults = []

    def run():
        try:
            for _ in range(20):
                for name, x, wanted in work:
                    assert_same_bits(getattr(qsvgen, name)(x, workers=2), wanted, name)
        except BaseException as fault:
            faults.append(fault)

    threads = [threading.Thread(target=run) for _ in range(6)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not faults, faults[0]


def in_a_fork(work, seconds=60):
    """Whether work() has returned in a child process, and not hung there."""
    child = os.fork()
    if child == 0:
        status = 1
        try:
            signal.alarm(seconds)
            work()
            status = 0
        finally:
            os._exit(status)
    _, status = os.waitpid(child, 0)
    return status == 0


@pytest.mark.parametrize("name", ("fft", "rfft", "fwht", "dct4"))
def test_a_forked_process_transforms_also_where_workers_ran_before(name, rng):
    x = batch_of(name, rng)
    wanted = getattr(qsvgen, name)(x, workers=4)

    def work():
        assert_same_bits(getattr(qsvgen, name)(x, workers=4), wanted, f"{name} in a fork")
        assert in_a_fork(lambda: assert_same_bits(getattr(qsvgen, name)(x, workers=3), wanted, "fork of a fork"))

    assert in_a_fork(work)
    assert_same_bits(getattr(qsvgen, name)(x, workers=4), wanted, f"{name} after a fork")


def test_a_process_that_is_forked_while_others_transform_does_not_hang(rng):
    x = batch_of("dct4", rng, n=1024)
    wanted = qsvgen.dct4(x)
    stop = threading.Event()
    threads = [threading.Thread(target=lambda: [qsvgen.dct4(x, workers=2) for _ in iter(stop.is_set, True)])
               for _ in range(2)]
    for thread in threads:
        thread.start()
    try:
        for _ in range(10):
            assert in_a_fork(lambda: assert_same_bits(qsvgen.dct4(x, workers=2), wanted, "in a fork"))
    finally:
        stop.set()
        for thread in threads:
            thread.join()


def test_many_lengths_of_the_dct4_leave_little_memory_behind():
    """Plans are kept, but not without end."""
    program = """
import ctypes, os
import numpy as np
import qsvgen
library = ctypes.CDLL("libqsvgen.so.6")

def resident():
    return int(open("/proc/self/statm").read().split()[1]) * os.sysconf("SC_PAGESIZE")

lengths = [2**k for k in range(16, 23)]
plans = 0
for n in lengths:
    size = ctypes.c_int32()
    library.qsvgDCT4GetSize_64f(n, ctypes.byref(size))
    plans += size.value
before = resident()
for n in lengths:
    qsvgen.dct4(np.ones(n))
print(plans // 2**20, (resident() - before) // 2**20)
"""
    done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, check=True)
    plans, left = (int(word) for word in done.stdout.split())
    assert plans > 200, f"{plans} MiB of plans: too few to tell"
    assert left < 100, f"{left} MiB of {plans} MiB of plans are still there"


def test_calls_that_are_refused_or_not_leave_no_references_behind(rng):
    x = random_array(rng, (3, 16), np.complex64)
    out = np.empty_like(x)
    qsvgen.fft(x, out=out)
    before = sys.getrefcount(x), sys.getrefcount(out), sys.getrefcount(x.dtype)
    for _ in range(1000):
        qsvgen.fft(x, out=out)
        qsvgen.fft(x)
        qsvgen.fft(x[::-1].astype(">c8"), 8, 1, "ortho")
        for arguments in ({"n": 65}, {"axis": 3}, {"out": out[:2]}, {"norm": "x"}, {"workers": 0}, {"n": "x"}):
            with pytest.raises((ValueError, TypeError)):
                qsvgen.fft(x, **{"out": out, **arguments})
    after = sys.getrefcount(x), sys.getrefcount(out), sys.getrefcount(x.dtype)
    assert all(abs(a - b) < 10 for a, b in zip(before, after)), (before, after)
