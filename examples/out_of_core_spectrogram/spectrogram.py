"""The power spectrogram of a recording, in blocks of frames that any machine may compute."""

import dask.array as da
import numpy as np

import qsvgen


def frame_count(samples, length, hop):
    """How many whole frames of a length there are, a hop apart."""
    return max((samples - length) // hop + 1, 0)


def window(length):
    """Von Hann's, in the samples' precision; zero at its first sample alone, so that frames add up."""
    return (0.5 - 0.5 * np.cos(2 * np.pi * np.arange(length) / length)).astype(np.float32)


def frames_of(signal, length, hop):
    """Overlapping frames as rows, without copying a sample."""
    return np.lib.stride_tricks.sliding_window_view(signal, length)[::hop]


def power_of_frames(frames, length):
    """Rows of frames in, rows of length // 2 + 1 powers out: squares of the samples' units."""
    spectrum = qsvgen.rfft(frames * window(length))
    return spectrum.real**2 + spectrum.imag**2


def spectrogram(signal, length, hop):
    """Of a signal in memory: an array (frames, length // 2 + 1)."""
    return power_of_frames(frames_of(signal, length, hop), length)


def read_samples(path, first, count):
    """A part of a file of raw float32 samples, the only one that is read."""
    return np.fromfile(path, np.float32, count, offset=first * np.dtype(np.float32).itemsize)


def block_of_frames(path, length, hop, frames_of_a_block, total, block):
    """The spectrogram of one block of frames; what a worker does."""
    first = block * frames_of_a_block
    count = min(frames_of_a_block, total - first)
    samples = read_samples(path, first * hop, (count - 1) * hop + length)
    return spectrogram(samples, length, hop)


def lazy_spectrogram(path, samples, length, hop, frames_of_a_block):
    """Of a file of raw float32 samples: a dask array (frames, length // 2 + 1), nothing of which is read or
    computed until it is asked for.

    The blocks overlap in the file by length - hop samples, so that each is computed by itself: its frames are
    those of the whole signal, and so are the bits of their spectra.
    """
    total = frame_count(samples, length, hop)
    chunks = tuple(min(frames_of_a_block, total - first) for first in range(0, total, frames_of_a_block))
    def block(block_info=None):
        number = block_info[None]["chunk-location"][0]
        return block_of_frames(path, length, hop, frames_of_a_block, total, number)
    return da.map_blocks(block, chunks=(chunks, (length // 2 + 1,)), dtype=np.float32,
                         meta=np.empty((0, 0), np.float32))
