"""Solving one water per row of a DataFrame inside the C++ core."""

import numpy

from .water import fields_of


def solve_frame_columns(session, frame, jobs, options, species, solids):
    import pandas
    columns = [str(c) for c in frame.columns]
    values = numpy.ascontiguousarray(frame.to_numpy(dtype=float, na_value=numpy.nan), dtype=float)
    solids = list(solids or [])
    raw = session.solve_frame(columns, values, fields_of(options or {}), list(species or []), solids,
                              max(1, int(jobs)))
    out = {key: raw[key] for key in ("converged", "message", "consistency", "iterations", "pH",
                                     "ionic strength")}
    names = list(species or [])
    for row_names, _, _ in raw["species"]:
        for name in row_names:
            if name not in names:
                names.append(name)
    position = {name: i for i, name in enumerate(names)}
    concentrations = numpy.full((len(frame), len(names)), numpy.nan)
    activities = numpy.full((len(frame), len(names)), numpy.nan)
    for r, (row_names, row_conc, row_act) in enumerate(raw["species"]):
        for name, c, a in zip(row_names, row_conc, row_act):
            concentrations[r, position[name]] = c
            activities[r, position[name]] = a
    for i, name in enumerate(names):
        out["[%s]" % name] = concentrations[:, i]
        out["{%s}" % name] = activities[:, i]
    for i, solid in enumerate(solids):
        out["SI " + solid] = [row[i] for row in raw["saturation"]]
    return pandas.DataFrame(out, index=frame.index)


def frame_columns(species, solids):
    """The result columns for the named species and solids, with their dtypes."""
    columns = {"converged": bool, "message": object, "consistency": object, "iterations": "int64", "pH": float,
               "ionic strength": float}
    for name in species:
        columns["[%s]" % name] = float
        columns["{%s}" % name] = float
    for solid in solids:
        columns["SI " + solid] = float
    return columns


def empty_result(index, species, solids):
    """A result frame without rows (the meta data of a Dask result)."""
    import pandas
    return pandas.DataFrame({name: pandas.Series(dtype=kind) for name, kind in frame_columns(species, solids).items()},
                            index=index[:0])
