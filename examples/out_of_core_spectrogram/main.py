#!/usr/bin/python3
"""Makes the spectrogram of a signal that is larger than memory, block by block, on a dask cluster.

    PYTHONPATH=build/x86-64-gcc/python examples/out_of_core_spectrogram/main.py SAMPLES RESULT

SAMPLES is a file of raw float32 samples. RESULT becomes a NumPy file (.npy) of float32 powers, a row a frame;
each worker writes its blocks straight into it. Without --scheduler a cluster of local processes is started.
"""

import argparse
import os
import sys
import time

import dask.array as da
import numpy as np
from distributed import Client, LocalCluster

from spectrogram import frame_count, lazy_spectrogram


class ResultFile:
    """Where blocks are stored: a NumPy file that every worker opens for itself."""

    def __init__(self, path, shape):
        self.path = path
        np.lib.format.open_memmap(path, "w+", np.float32, shape)

    def __setitem__(self, place, values):
        np.lib.format.open_memmap(self.path, "r+")[place] = values


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("samples")
    parser.add_argument("result")
    parser.add_argument("--length", type=int, default=64, help="of a frame, in samples: 2 to 64")
    parser.add_argument("--hop", type=int, default=16, help="from a frame to the next, in samples")
    parser.add_argument("--block", type=int, default=1 << 16, help="frames of a block, which a worker holds at a time")
    parser.add_argument("--workers", type=int, default=2, help="processes of the local cluster")
    parser.add_argument("--memory", default="512MiB", help="of each of these")
    parser.add_argument("--scheduler", help="address of a cluster that is there, tcp://HOST:PORT, whose workers see the"
                                            " files by the same names")
    options = parser.parse_args()
    if not 2 <= options.length <= 64 or options.hop < 1 or options.block < 1:
        parser.error("a frame has 2 to 64 samples; a hop and a block have 1 or more")
    samples = os.path.getsize(options.samples) // np.dtype(np.float32).itemsize
    total = frame_count(samples, options.length, options.hop)
    if total == 0:
        sys.exit(f"{options.samples} has {samples} samples, less than a frame")
    paths = [os.path.abspath(path) for path in (options.samples, options.result)]
    lazy = lazy_spectrogram(paths[0], samples, options.length, options.hop, options.block)
    result = ResultFile(paths[1], lazy.shape)
    begin = time.monotonic()
    cluster = options.scheduler or LocalCluster(n_workers=options.workers, threads_per_worker=1,
                                                memory_limit=options.memory, dashboard_address=None)
    with Client(cluster) as client:
        if options.scheduler:
            # Workers of a local cluster find it as this program does.
            client.upload_file(os.path.join(os.path.dirname(os.path.abspath(__file__)), "spectrogram.py"))
        # Blocks end in the file, not in a worker's or this program's memory.
        da.store(lazy, result, lock=False)
        workers = len(client.scheduler_info()["workers"])
    print(f"{total} frames of {samples} samples by {workers} workers in {time.monotonic() - begin:.1f} s")


if __name__ == "__main__":
    main()
