"""The waters on a local Dask cluster: two worker processes give the numbers
of the threads inside the core, also when a worker is killed mid-run."""

import os
import signal

import pandas
import pandas.testing
import pytest

from conftest import WATER_OPTIONS

dd = pytest.importorskip("dask.dataframe")
distributed = pytest.importorskip("distributed")


@pytest.fixture(scope="module")
def client(home):
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, host="127.0.0.1",
                                  dashboard_address=None) as cluster, distributed.Client(cluster) as client:
        yield client


def test_cluster_solves_the_same_numbers_and_loses_no_row_to_a_killed_worker(db, waters, client):
    import tormel.dask
    expected = db.solve_frame(waters, jobs=2, options=WATER_OPTIONS)
    lazy = tormel.dask.solve_frame(dd.from_pandas(waters, npartitions=40), options=WATER_OPTIONS)

    # the partitions as futures: once one is done, the worker holding it is killed
    futures = client.compute(lazy.to_delayed())
    first = next(iter(distributed.as_completed(futures)))
    holder = next(iter(client.who_has([first]).values()))[0]
    pid = client.run(os.getpid, workers=[holder])[holder]
    os.kill(pid, signal.SIGKILL)

    got = pandas.concat(client.gather(futures))
    assert pid not in client.run(os.getpid).values()  # the worker was replaced, its partitions rerun
    assert len(got) == len(waters)
    pandas.testing.assert_frame_equal(got, expected[got.columns], check_exact=True)
