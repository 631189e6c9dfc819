#!/usr/bin/env python3
"""Waters per second for the 1,000 shared benchmark waters (../shared/bench/waters1000.tsv):
Database.solve_frame on 1 and 2 threads, tormel.dask.solve_frame on a local
Dask cluster of 2 worker processes, and tormel-cli /batch: with 1 and 2 jobs
(one output file per water), each timed as the best of three runs.

    PYTHONPATH=build/python /usr/bin/python3 bench/python_waters.py [build]
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
BUILD = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "build"
WATERS = ROOT.parent / "shared" / "bench" / "waters1000.tsv"
OPTIONS = {"Ionic strength model": 1, "Convergence criterion": 1.0001}


def best_of(runs, work):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        work()
        times.append(time.perf_counter() - start)
    return min(times)


def main():
    if not WATERS.exists():
        sys.exit("%s not found: the benchmark needs the shared waters beside the repository" % WATERS)
    with tempfile.TemporaryDirectory(prefix="tormel-python-bench-") as home:
        os.environ["TORMEL64_HOME"] = home
        measure(home)


def measure(home):
    import tormel
    import tormel.dask
    import dask.dataframe as dd
    import distributed

    db = tormel.Database()
    waters = tormel.read_waters(WATERS).set_index("n")
    count = len(waters)
    rows = []
    for jobs in (1, 2):
        seconds = best_of(3, lambda: db.solve_frame(waters, jobs=jobs, options=OPTIONS))
        rows.append(("solve_frame, %d thread%s" % (jobs, "s" if jobs > 1 else ""), seconds))

    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, host="127.0.0.1",
                                  dashboard_address=None) as cluster, distributed.Client(cluster):
        frame = dd.from_pandas(waters, npartitions=8)
        tormel.dask.solve_frame(frame, options=OPTIONS).compute()  # each worker loads the database once
        seconds = best_of(3, lambda: tormel.dask.solve_frame(frame, options=OPTIONS).compute())
        rows.append(("Dask LocalCluster, 2 worker processes", seconds))

    cli = BUILD / "bin" / "tormel-cli"
    inputs = pathlib.Path(home) / "Input"
    inputs.mkdir(parents=True, exist_ok=True)
    batch = []
    for n, row in waters.iterrows():
        name = "water%d" % n
        db.write_input(dict(row, **OPTIONS), inputs / (name + ".i64"))
        batch.append("%s.i64 %s.o64\n" % (name, name))
    (inputs / "waters.txt").write_text("".join(batch))
    for jobs in (1, 2):
        def run():
            subprocess.run([str(cli), "/batch:waters.txt", "--jobs", str(jobs)], check=True,
                           capture_output=True)
        rows.append(("tormel-cli /batch:, %d job%s (with start-up)" % (jobs, "s" if jobs > 1 else ""),
                     best_of(3, run)))

    print("%-48s %10s %12s" % ("%d waters" % count, "seconds", "waters/s"))
    for what, seconds in rows:
        print("%-48s %10.3f %12.0f" % (what, seconds, count / seconds))
    print("load average (1, 5, 15 min): %.2f %.2f %.2f on %d cores" % (os.getloadavg() + (os.cpu_count(),)))


if __name__ == "__main__":
    main()
