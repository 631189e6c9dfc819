"""The results of one water as pandas DataFrames, and the program's files."""

import warnings

from .errors import ConsistencyWarning


class Result:
    """Result set of one calculation (or of an output file read back).

    components  amounts per component (mol/L): dissolved, adsorbed, solid, organic, total
    species     the details tables: per component each species with its
                concentration and activity (mol/L), share of the component's
                total, intrinsic and conditional log K and literature
    solids      saturation index (and amount precipitated) per solid
    gases       partial pressure and ligand concentration per gas
    other_info  every value of the "Other info" report (block, row, column, text, value)
    """

    def __init__(self, core):
        self._core = core
        self._tables = None
        if core.consistency:
            warnings.warn(core.consistency, ConsistencyWarning, stacklevel=3)

    def _table(self, name):
        import pandas
        if self._tables is None:
            self._tables = self._core.tables()
        return pandas.DataFrame(self._tables[name])

    @property
    def components(self):
        return self._table("components")

    @property
    def species(self):
        return self._table("species")

    @property
    def solids(self):
        return self._table("solids")

    @property
    def gases(self):
        return self._table("gases")

    @property
    def other_info(self):
        return self._table("other_info")

    @property
    def ph(self):
        return self._core.ph

    @property
    def ionic_strength(self):
        return self._core.ionic_strength

    @property
    def iterations(self):
        return self._core.iterations

    @property
    def consistency(self):
        """The consistency report of the water ("" when nothing was found)."""
        return self._core.consistency

    def saturation_index(self, solid):
        return self._core.saturation_index(solid)

    def write_output(self, path):
        """Writes the output file (.o64) the program writes."""
        self._core.write_output(str(path))

    def to_csv(self, path, separator="\t"):
        """Writes the program's tab-separated export."""
        self._core.to_csv(str(path), separator)

    def to_xml(self, path):
        """Writes the program's XML spreadsheet export."""
        self._core.to_xml(str(path))

    def printed_tables(self, wide=False):
        """The result tables as tormel-cli prints them for an output file."""
        return self._core.printed_tables(wide)
