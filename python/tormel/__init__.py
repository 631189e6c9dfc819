"""TORMEL Next from Python: chemical equilibria of waters.

    import tormel
    db = tormel.Database()
    result = db.solve({"pH": 7.5, "Ca": 1e-3, "CO3": 2e-3, "Ionic strength model": 1})
    print(result.species)
    frame = db.solve_frame(waters_df, jobs=2)

Waters use the labels of the input file (see tormel.water). Failures raise
the classes of tormel.errors with the program's own messages.
"""

import functools

from . import _tormel
from ._program_folder import PROGRAM_FOLDER
from .errors import (CalculationError, ConsistencyWarning, DatabaseError, Error, FileWriteError,
                     InputFileError, NotConvergedError, OutputFileError, UnsolvableInputError,
                     WaterTableError)
from .frame import solve_frame_columns
from .result import Result
from .water import Water, fields_of

__all__ = ["Database", "Water", "Result", "read_input", "read_output", "read_waters", "default_database",
           "Error", "DatabaseError", "InputFileError", "UnsolvableInputError", "CalculationError",
           "NotConvergedError", "OutputFileError", "FileWriteError", "WaterTableError", "ConsistencyWarning"]


class Database:
    """The chemical database with the program's language and settings.

    Database() loads the database as tormel-cli does: the working copies in
    the working folder ($TORMEL64_HOME, else ~/.local/share/TORMEL64),
    refreshed from the shipped database when missing or older.
    Database(folder) loads the database files (*.D64) of that folder. Once
    loaded it is only read: any number of threads may solve from it.
    """

    def __init__(self, folder=None):
        self._session = _tormel.Session(PROGRAM_FOLDER, folder or "")

    @property
    def components(self):
        """The names of the database's components, in their order."""
        return self._session.component_names()

    def solve(self, water):
        """Solves a water (a Water, a dict or (label, value) pairs); returns a Result.

        Raises InputFileError, UnsolvableInputError, CalculationError or
        NotConvergedError with the program's message. Consistency findings do
        not stop the calculation; they are in result.consistency and are
        issued as a ConsistencyWarning.
        """
        return Result(self._session.solve(fields_of(water)))

    def input_file_lines(self, water):
        """The water as the input file writes it: (label, value text) pairs."""
        return self._session.input_lines(fields_of(water))

    def write_input(self, water, path):
        """Writes the water as an input file (.i64); returns the path written."""
        return self._session.write_input(fields_of(water), str(path))

    def read_input(self, path):
        """Reads an input file (.i64 or .inp) into a Water."""
        return Water(self._session.read_input(str(path)))

    def read_output(self, path):
        """Reads an output file (.o64) into a Result."""
        return Result(self._session.read_output(str(path)))

    def solve_frame(self, frame, jobs=1, options=None, species=None, solids=None):
        """Solves one water per row of a pandas DataFrame on `jobs` threads.

        Columns are water fields: component names (mol/L, or atm for a gas),
        "pH", "pe", "Name (type)" columns and numeric options such as
        "Temperature"; a missing value (NaN) leaves the field out of that row.
        `options` (a dict of water fields) applies to every row. Returns a
        DataFrame with the frame's index: "converged", "message" (why a row
        failed), "consistency" (the consistency report; the row
        is calculated all the same), "iterations", "pH", "ionic strength", "[species]" and
        "{species}" (concentration and activity, mol/L) of the free species
        or of the `species` named, and "SI solid" for each of `solids`.
        A row that fails never stops the others.
        """
        return solve_frame_columns(self._session, frame, jobs, options, species, solids)


@functools.lru_cache(maxsize=None)
def default_database():
    """The Database() of this process, loaded on first use."""
    return Database()


def read_input(path, database=None):
    """Reads an input file into a Water (component names from `database`, default: default_database())."""
    return (database or default_database()).read_input(path)


def read_output(path, database=None):
    """Reads an output file into a Result."""
    return (database or default_database()).read_output(path)


def read_waters(path):
    """Reads a tab-separated table of waters (a header line naming the columns) into a DataFrame."""
    import pandas
    columns, values = _tormel.read_water_table(str(path))
    return pandas.DataFrame(values, columns=columns)
