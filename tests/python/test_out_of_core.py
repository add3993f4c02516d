"""Transforms on a dask cluster, of signals that no machine need hold: the bits are those of one machine."""

import importlib
import os
import pathlib
import re
import subprocess
import sys

import dask.array as da
import numpy as np
import pytest
from distributed import Client, LocalCluster, get_task_stream

import qsvgen
from c_library import assert_same_bits, random_array

EXAMPLE = pathlib.Path(__file__).parents[2] / "examples/out_of_core_spectrogram"


@pytest.fixture(scope="module")
def example():
    # Workers import it by its name, as those of the program do.
    sys.path.insert(0, str(EXAMPLE))
    yield importlib.import_module("spectrogram")
    sys.path.remove(str(EXAMPLE))


@pytest.fixture(scope="module")
def client(example):
    with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster, Client(cluster) as client:
        yield client


@pytest.fixture(scope="module")
def recording(tmp_path_factory):
    path = tmp_path_factory.mktemp("recording") / "samples.raw"
    random_array(np.random.default_rng(7), 400_003, np.float32).tofile(path)
    return path


@pytest.mark.parametrize("length, hop, block", ((64, 16, 5000), (60, 60, 999), (47, 100, 1000), (16, 1, 100_000)))
def test_blocks_on_two_workers_have_the_bits_of_one_machine(example, client, recording, length, hop, block):
    lazy = example.lazy_spectrogram(str(recording), 400_003, length, hop, block)
    with get_task_stream(client) as stream:
        got = lazy.compute()
    wanted = example.spectrogram(np.fromfile(recording, np.float32), length, hop)
    assert_same_bits(got, wanted, f"frames of {length}, {hop} apart, in blocks of {block}")
    assert len({task["worker"] for task in stream.data}) == 2


def test_a_block_reads_no_more_of_the_file_than_its_frames(example, recording, monkeypatch):
    read = []
    monkeypatch.setattr(example, "read_samples",
                        lambda path, first, count: read.append((first, count)) or np.zeros(count, np.float32))
    example.lazy_spectrogram(str(recording), 400_003, 64, 16, 10_000).compute(scheduler="synchronous")
    assert sorted(read) == [(0, 160_048), (160_000, 160_048), (320_000, 80_000)]


def test_the_program_writes_what_one_machine_computes(example, recording, tmp_path):
    result = tmp_path / "result.npy"
    path = os.pathsep.join([str(pathlib.Path(qsvgen.__file__).parents[1])])
    done = subprocess.run([sys.executable, "-B", EXAMPLE / "main.py", recording, result, "--block", "3000"],
                          capture_output=True, text=True, timeout=120, env={**os.environ, "PYTHONPATH": path})
    assert done.returncode == 0, done.stderr
    assert re.match(r"24997 frames of 400003 samples by 2 workers in [0-9.]+ s\n$", done.stdout)
    assert_same_bits(np.load(result), example.spectrogram(np.fromfile(recording, np.float32), 64, 16), "the program")


@pytest.mark.parametrize("arguments, message", (
    (("samples.raw", "out.npy", "--length", "65"), "2 to 64 samples"), (("samples.raw", "out.npy", "--hop", "0"), "1 or more"),
    (("short.raw", "out.npy"), "less than a frame")))
def test_the_program_refuses_what_has_no_spectrogram(recording, tmp_path, arguments, message):
    (tmp_path / "short.raw").write_bytes(bytes(4 * 63))
    (tmp_path / "samples.raw").write_bytes(bytes(4 * 640))
    done = subprocess.run([sys.executable, "-B", EXAMPLE / "main.py", *arguments], capture_output=True, text=True,
                          timeout=120, cwd=tmp_path)
    assert done.returncode != 0 and message in done.stderr


def test_an_array_of_any_chunks_is_transformed_by_apply_gufunc(client, rng):
    x = random_array(rng, (300, 16), np.float32)
    lazy = da.apply_gufunc(qsvgen.rfft, "(i)->(k)", da.from_array(x, chunks=(70, 16)), output_dtypes=np.complex64,
                           output_sizes={"k": 9})
    assert_same_bits(lazy.compute(), qsvgen.rfft(x), "apply_gufunc")


def test_an_array_is_transformed_chunk_by_chunk_by_map_blocks(client, rng):
    x = random_array(rng, (64, 300), np.float32)
    lazy = da.from_array(x, chunks=(64, 70)).map_blocks(qsvgen.fft, axis=0, dtype=np.complex64)
    assert_same_bits(lazy.compute(), qsvgen.fft(x, axis=0), "map_blocks")
