"""Solving the waters of a Dask DataFrame, on one machine or on a cluster.

    import dask.dataframe as dd
    from distributed import Client
    import tormel.dask
    client = Client("tcp://scheduler:8786")      # or a LocalCluster
    results = tormel.dask.solve_frame(dd.read_csv("waters-*.tsv", sep="\\t"), jobs=2).compute()

Each partition is solved with Database.solve_frame on the worker that holds
it; every worker process loads the database once and keeps it. Dask reruns
the partitions of a worker that dies, so no row is lost.
"""

import functools

import tormel

from .frame import empty_result, frame_columns


@functools.lru_cache(maxsize=None)
def worker_database(folder=None):
    """The database of this process (one per worker process, loaded on first use)."""
    return tormel.Database(folder) if folder else tormel.default_database()


def _solve_partition(partition, jobs, options, species, solids, folder):
    result = worker_database(folder).solve_frame(partition, jobs=jobs, options=options, species=species,
                                                 solids=solids)
    return result.astype(frame_columns(species, solids))


def solve_frame(ddf, jobs=1, options=None, species=None, solids=None, database_folder=None):
    """Database.solve_frame over every partition of the Dask DataFrame `ddf`.

    `jobs` threads per partition (one suits workers with one thread each).
    Without `species`, the free species of the first rows are reported for
    every row, so that all partitions have the same columns.
    Returns a lazy Dask DataFrame; call .compute() (or client.compute) on it.
    """
    solids = list(solids or [])
    sample = ddf.head(20, npartitions=1)
    if species is None:
        probe = worker_database(database_folder).solve_frame(sample, options=options)
        species = [c[1:-1] for c in probe.columns if c.startswith("[")]
    species = list(species)
    meta = empty_result(sample.index, species, solids)
    return ddf.map_partitions(_solve_partition, jobs, options, species, solids, database_folder, meta=meta,
                              align_dataframes=False)
