"""solve_frame: one water per row on threads inside the core."""

import pandas
import pandas.testing
import pytest

import tormel

from conftest import WATER_OPTIONS


def test_same_numbers_with_one_and_two_threads(db, waters):
    one = db.solve_frame(waters, jobs=1, options=WATER_OPTIONS, solids=["Calcite"])
    two = db.solve_frame(waters, jobs=2, options=WATER_OPTIONS, solids=["Calcite"])
    assert len(one) == len(waters) and one["converged"].all()
    pandas.testing.assert_frame_equal(one, two, check_exact=True)
    # a row agrees with the same water solved on its own
    alone = db.solve(dict(waters.iloc[7], **WATER_OPTIONS))
    row = one.iloc[7]
    assert (row["pH"], row["ionic strength"], row["SI Calcite"]) == (
        alone.ph, alone.ionic_strength, alone.saturation_index("Calcite"))
    free_ca = alone.species.query("species == 'free Ca 2+'").iloc[0]
    assert (row["[free Ca 2+]"], row["{free Ca 2+}"]) == (free_ca["concentration"], free_ca["activity"])


def test_a_failing_row_never_stops_the_others(db):
    frame = pandas.DataFrame({"pH": [7.0] * 5, "Ca": [1e-3] * 5, "CO3": [2e-3] * 5})
    frame.loc[frame.index[1], "Ca"] = -1e-3
    frame.loc[frame.index[3], "Temperature"] = float("inf")
    out = db.solve_frame(frame, jobs=2, options=WATER_OPTIONS)
    assert list(out["converged"]) == [True, False, True, False, True]
    assert "Ca" in out["message"].iloc[1] and "Temperature" in out["message"].iloc[3]
    assert out["pH"].iloc[[0, 2, 4]].notna().all() and out["pH"].iloc[[1, 3]].isna().all()
    # a column that names no field would fail every row: it is refused at once
    with pytest.raises(tormel.InputFileError, match='column "Xy"'):
        db.solve_frame(frame.assign(Xy=1.0))
