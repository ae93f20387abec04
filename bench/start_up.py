#!/usr/bin/env python3
"""How long the real program takes from its start to its painted main window.

    bench/start_up.py BIN_FOLDER [FORM...]

Runs BIN_FOLDER/sheetwright on the offscreen platform with a home of its own, once to warm the caches and ten times more,
and reads from the log of painted windows when the frame is on screen. Tells the median, and the most memory of a run.
"""

import os
import resource
import signal
import statistics
import subprocess
import sys
import tempfile
import time

RUNS = 10
SHOWN = 'Flushing'


def run_once(program, forms, home):
    environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=home, XDG_CONFIG_HOME=home, XDG_DATA_HOME=home,
                       QT_QPA_PLATFORM='offscreen', QT_LOGGING_RULES='qt.widgets.painting=true',
                       SHEETWRIGHT_CHANNEL='bench', LC_ALL='C.UTF-8')
    start = time.perf_counter()
    process = subprocess.Popen([program, *forms], env=environment, stderr=subprocess.PIPE, text=True)
    shown = None
    for line in process.stderr:
        if SHOWN in line and 'mdiSheetwright' in line:
            shown = time.perf_counter() - start
            break
    process.send_signal(signal.SIGTERM)
    process.stderr.read()
    process.wait()
    return shown


def main():
    program = os.path.join(os.path.abspath(sys.argv[1]), 'sheetwright')
    forms = [os.path.abspath(form) for form in sys.argv[2:]]
    with tempfile.TemporaryDirectory() as home:
        os.chmod(home, 0o700)
        times = [run_once(program, forms, home) for _ in range(RUNS + 1)][1:]
    if None in times:
        sys.exit('the main window was not shown')
    memory = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
    print(f'start to painted window: median {statistics.median(times) * 1000:.0f} ms, '
          f'{min(times) * 1000:.0f} to {max(times) * 1000:.0f} ms; most memory {memory:.0f} MB')


main()
