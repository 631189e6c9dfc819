"""Shared set-up of the Python package's tests: a working folder of their own,
the database loaded once, the command line beside the module, and the
shared benchmark waters beside the repository (tests that need them skip
when ../shared is absent)."""

import json
import os
import pathlib
import subprocess

import pytest

ROOT = pathlib.Path(os.environ.get("TORMEL_SOURCE_DIR", pathlib.Path(__file__).resolve().parents[2]))
SHARED = ROOT.parent / "shared"
WATERS = SHARED / "bench" / "waters1000.tsv"
# Davies and the default criterion, as the benchmark waters were solved
WATER_OPTIONS = {"Ionic strength model": 1, "Convergence criterion": 1.0001}


@pytest.fixture(scope="session")
def home(tmp_path_factory):
    """The working folder of the Database() and of tormel-cli in these tests."""
    folder = tmp_path_factory.mktemp("home")
    os.environ["TORMEL64_HOME"] = str(folder)  # also seen by Dask's worker processes
    return folder


@pytest.fixture(scope="session")
def db(home):
    import tormel
    return tormel.Database()


@pytest.fixture(scope="session")
def cli(home):
    """Runs tormel-cli in the tests' working folder: (exit code, stdout, stderr)."""
    program = pathlib.Path(os.environ.get("TORMEL_CLI", ROOT / "build" / "bin" / "tormel-cli"))
    if not program.exists():
        pytest.skip("tormel-cli not built (%s)" % program)

    def run(*arguments):
        done = subprocess.run([str(program), *arguments], capture_output=True, text=True, timeout=60,
                              env=dict(os.environ, LC_ALL="C"))
        return done.returncode, done.stdout, done.stderr
    return run


@pytest.fixture(scope="session")
def waters():
    """The 1,000 benchmark waters as a DataFrame of water fields (pH and totals)."""
    if not WATERS.exists():
        pytest.skip("%s not found: the shared benchmark waters are kept beside the repository" % WATERS)
    import tormel
    return tormel.read_waters(WATERS).astype({"n": int}).set_index("n")


def reference_cases():
    folder = ROOT / "tests" / "data" / "reference"
    return sorted(folder.glob("*.json"))


def reference_water(path):
    """The water of a reference case, as the C++ reference test sets it up."""
    case = json.loads(pathlib.Path(path).read_text())
    options = case.get("options", {})
    water = {"Ionic strength model": 1, "Convergence criterion": 1.000001,
             "Temperature": case.get("temperature_C", 25),
             "Temperature correction": 2 if options.get("temperature_correction") else 0,
             "Precipitation equilibria": bool(options.get("precipitation")),
             "Redox equilibria": bool(options.get("redox")),
             "Adsorption": bool(options.get("adsorption"))}
    if case["ph_mode"] == "fixed":
        water["pH"] = case["ph"]
    else:
        water["H (total concentration)"] = case["h_total_mol_L"]
    if "pe" in case:
        water["pe"] = case["pe"]
    water.update(case.get("totals_mol_L", {}))
    for group in case.get("redox_groups", []):
        water[group["members"][0]] = group["total_mol_L"]
    water.update(case.get("gases_atm", {}))
    water.update(case.get("adsorbent", {}).get("sites_mol_L", {}))
    return water
