#!/usr/bin/python3
"""Prints, as JSON, what a report must tell of where and how it was measured."""

import argparse
import datetime
import json
import platform
import subprocess


def _output(*command):
    run = subprocess.run(command, capture_output=True, text=True, check=False)
    return run.stdout.strip() if run.returncode == 0 else ""


def _cpu():
    """What lscpu tells, by its English names."""
    lines = _output("env", "LC_ALL=C", "lscpu").splitlines()
    return dict((part.strip() for part in line.split(":", 1)) for line in lines if ":" in line)


# Debian's name of each target, and what a reader is told of it.
_TARGETS = {
    "x86-64": ("amd64", "libqsvgen", "64-bit x86 with SSE2"),
    "ia32": ("i386", "libqsvgent7", "32-bit x86 with SSE2"),
    "aarch64": ("arm64", "libqsvgen", "AArch64"),
}


def _kissfft_version(architecture):
    version = _output("dpkg-query", "--show", "--showformat=${Version}", f"libkissfft-dev:{architecture}")
    return f"KissFFT {version}" if version else "KissFFT"


def _revision():
    revision = _output("git", "rev-parse", "--short", "HEAD") or "unknown"
    return revision + (" with changes" if _output("git", "status", "--porcelain") else "")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--target", required=True, choices=sorted(_TARGETS))
    parser.add_argument("--core", required=True)
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--command", required=True)
    arguments = parser.parse_args()
    architecture, library, machine = _TARGETS[arguments.target]
    cpu = _cpu()
    system = platform.freedesktop_os_release().get("PRETTY_NAME", "Linux")
    print(json.dumps({
        "cpu": cpu.get("Model name", "unknown"),
        "hypervisor": cpu.get("Hypervisor vendor", ""),
        "system": f"{system}, Linux {platform.release()} {platform.machine()}",
        "revision": _revision(),
        "library": library,
        "target": machine,
        "kissfft": _kissfft_version(architecture),
        "date": datetime.datetime.now().astimezone().strftime("%Y-%m-%d %H:%M %Z"),
        "core": arguments.core,
        "quick": arguments.quick,
        "command": arguments.command,
    }, indent=2))


if __name__ == "__main__":
    main()
