"""The exceptions of the tormel package; each carries the program's own message."""


class Error(Exception):
    """Base class of every failure the package reports."""


class DatabaseError(Error):
    """The database (or the working folders or language file it needs) could not be loaded."""


class InputFileError(Error, ValueError):
    """An input file or a water's field was refused by the input reader."""


class UnsolvableInputError(Error, ValueError):
    """Values from which no calculation can start (a negative total, a criterion below 1)."""


class CalculationError(Error):
    """The calculation refused the water (for example a solid none of whose components has a total)."""


class NotConvergedError(CalculationError):
    """The solver stopped without reaching the convergence criterion."""


class OutputFileError(Error):
    """An output file could not be read."""


class FileWriteError(Error, OSError):
    """A file could not be written."""


class WaterTableError(Error, ValueError):
    """A table of waters could not be read."""


class ConsistencyWarning(UserWarning):
    """The consistency checks found errors or warnings; the water was calculated all the same."""
