#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks how packages/virtual_screen.sh runs a program, with stand-ins for the X server and the other programs.

    virtual_screen.py [ROOT]    ROOT is the source tree; by default the one that contains this script

Ctrl+C in its terminal ends it quietly with the exit code 130. No other program may receive it: it would end an X
server, and the program would complain about losing that.
"""

import os
import pathlib
import pty
import select
import shutil
import signal
import sys
import tempfile
import time

ROOT = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else __file__).resolve()
ROOT = ROOT if ROOT.is_dir() else ROOT.parent.parent
PATIENCE = 100  # seconds
BEFORE_PRESSING_AGAIN = 5  # seconds, on a machine so busy that the script is not there yet

# Each records the signals that it receives, and runs until it is stopped.
STAND_IN = """#!{python}
import os, signal, sys
def write(name, line):
    with open("{folder}/" + name, "a") as file: file.write(line + "\\n")
def complain(number, frame): write("complaints", os.path.basename(sys.argv[0]) + " got signal " + str(number))
signal.signal(signal.SIGINT, complain)
write("pids", str(os.getpid()))
{begin}
while True: signal.pause()
"""
BEGIN = {
    "Xvfb": "os.write(3, b'77\\n')",
    "openbox": "os.system(sys.argv[sys.argv.index('--startup') + 1])",
    "x11vnc": "open(sys.argv[sys.argv.index('-flag') + 1], 'w').write('PORT=5901\\n')",
    "wizard": "print('ready', flush=True)",
}


def run(folder, program, key):
    """Runs the script in a terminal of its own. Returns what it printed after the key, and its exit code."""
    child, terminal = pty.fork()
    if child == 0:
        os.environ["PATH"] = f"{folder}:{os.environ['PATH']}"
        os.execv("/bin/bash", ["bash", str(ROOT / "packages/virtual_screen.sh"), *program])
    written, ready, pressed, end = b"", 0, 0.0, time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if ready and time.monotonic() - pressed > BEFORE_PRESSING_AGAIN:
            os.write(terminal, key)
            pressed = time.monotonic()
        if not select.select([terminal], [], [], 0.1)[0]:
            continue
        try:
            piece = os.read(terminal, 4096)
        except OSError:  # the script has ended
            break
        if not piece:
            break
        written += piece
        if not ready and b"ready" in written:
            ready = len(written)
            time.sleep(0.2)
    else:
        os.kill(child, signal.SIGKILL)
    _, status = os.waitpid(child, 0)
    return written[ready:].decode(), os.waitstatus_to_exitcode(status)


def is_running(pid):
    try:
        os.kill(pid, 0)
    except ProcessLookupError:
        return False
    return True


def main():
    if not shutil.which("setpriv") or not shutil.which("setsid"):
        print("setpriv or setsid is not installed")
        return 77
    faults = []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        complaints = folder / "complaints"
        complaints.touch()
        for each, begin in BEGIN.items():
            (folder / each).write_text(STAND_IN.format(python=sys.executable, begin=begin, folder=folder))
            (folder / each).chmod(0o755)

        written, code = run(folder, ["wizard"], b"\x03")
        if written.replace("^C", "").strip():
            faults.append(f"a Ctrl+C is not quiet: {written!r}")
        if code != 130:
            faults.append(f"the exit code after a Ctrl+C is {code}")
        faults += complaints.read_text().splitlines()
        started = [int(pid) for pid in (folder / "pids").read_text().split()]
        if len(started) != len(BEGIN):
            faults.append(f"{len(started)} programs were started")
        faults += [f"process {pid} is left" for pid in started if is_running(pid)]

        for expected in (0, 7):
            _, code = run(folder, ["sh", "-c", f"echo ready; exit {expected}"], b"")
            if code != expected:
                faults.append(f"the exit code is {code}, not the program's {expected}")
    print("\n".join(faults) or "the virtual screen comes and goes quietly")
    return 1 if faults else 0


sys.exit(main())
