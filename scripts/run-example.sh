#!/usr/bin/env bash
# Sets up, builds and runs the command-line program on the bundled example:
# the working folder is made fresh under build/example-home, the database is
# copied there from the raw data files and loaded, and its contents printed.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" build -DTORMEL_BUILD_TESTS=OFF -DTORMEL_BUILD_BENCH=OFF
export TORMEL64_HOME="$root/build/example-home"
rm -rf "$TORMEL64_HOME"
"$root/build/bin/tormel-cli" --database
