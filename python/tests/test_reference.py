"""Every reference water solved from Python agrees with tormel-cli: the same
result tables as printed, and the numbers of its output file."""

import pandas.testing
import pytest

import tormel
from conftest import reference_cases, reference_water


# An output file cannot hold a double quote in a text: it keeps typographic ones.
QUOTES = {"\u201c": '"', "\u201d": '"'}


def plain_quotes(text):
    for typographic, plain in QUOTES.items():
        text = text.replace(typographic, plain)
    return text


@pytest.mark.filterwarnings("ignore::tormel.ConsistencyWarning")
@pytest.mark.parametrize("case", reference_cases(), ids=lambda p: p.stem)
def test_python_agrees_with_command_line(case, db, cli, tmp_path):
    water = reference_water(case)
    result = db.solve(water)
    written = db.write_input(water, tmp_path / "water.i64")
    code, _, err = cli("/run:" + written, str(tmp_path / "water.o64"))
    assert code == 0, err
    code, printed, err = cli(str(tmp_path / "water.o64"), "--wide")
    assert code == 0, err
    assert result.printed_tables(wide=True) == plain_quotes(printed)

    # the program's files: the same output file and tab-separated export
    result.write_output(tmp_path / "python.o64")
    assert (tmp_path / "python.o64").read_bytes() == (tmp_path / "water.o64").read_bytes()
    code, _, err = cli("/run:" + written, str(tmp_path / "water.csv"))
    assert code == 0, err
    result.to_csv(tmp_path / "python.csv")
    assert (tmp_path / "python.csv").read_bytes() == (tmp_path / "water.csv").read_bytes()
    assert db.input_file_lines(db.read_input(written)) == db.input_file_lines(water)

    read_back = tormel.read_output(tmp_path / "water.o64", db)
    for table in ("components", "species", "solids", "gases"):
        pandas.testing.assert_frame_equal(getattr(result, table), getattr(read_back, table).replace(QUOTES, regex=True),
                                          rtol=1e-14, check_dtype=False)
    assert result.ionic_strength == pytest.approx(read_back.ionic_strength, rel=1e-14)
