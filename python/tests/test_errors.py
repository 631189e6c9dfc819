"""Bad waters raise the exception class of their failure, with the message
tormel-cli gives for the same water in an input file."""

import pytest

import tormel
from tormel.water import value_text

H = ("H", (1e-7, "free activity"))
CASES = [
    ("unknown component", [H, ("Xyz", 1e-3)], tormel.InputFileError),
    ("number that does not read", [H, ("Temperature", "warm")], tormel.InputFileError),
    ("negative total", [H, ("Ca", -1e-3)], tormel.UnsolvableInputError),
    ("solid without a total", [("Precipitation equilibria", True), H, ("Ca", (1e-3, "free activity")),
                               ("CO3", (1e-3, "free activity"))], tormel.CalculationError),
]


@pytest.mark.parametrize("fields,error", [c[1:] for c in CASES], ids=[c[0] for c in CASES])
def test_bad_water_raises_the_programs_message(fields, error, db, cli, tmp_path):
    with pytest.raises(error) as raised:
        db.solve(fields)
    message = str(raised.value)
    assert message
    path = tmp_path / "bad.i64"
    lines = "".join("%s: %s\n" % (label, value_text(label, value)) for label, value in fields)
    path.write_text("TORMEL NEXT (64 bits) input file\nFormat version: 1\n" + lines, encoding="utf-16")
    code, _, err = cli("/run:" + str(path), str(tmp_path / "bad.o64"))
    assert code == 1
    for line in message.splitlines():
        assert line in err


def test_input_file_errors_name_the_file(db, tmp_path):
    with pytest.raises(tormel.InputFileError, match="missing.i64"):
        db.read_input(tmp_path / "missing.i64")
    with pytest.raises(tormel.OutputFileError, match="missing.o64"):
        db.read_output(tmp_path / "missing.o64")


def test_consistency_findings_warn_and_the_water_is_calculated_all_the_same(db):
    with pytest.warns(tormel.ConsistencyWarning, match="35"):
        result = db.solve({"pH": 7, "Ca": 1e-3, "Temperature": 40, "Temperature correction": 2})
    assert "35" in result.consistency and result.iterations > 0
