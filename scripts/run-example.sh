#!/usr/bin/env bash
# Sets up, builds and runs the command-line program on the bundled examples:
# the working folder is made fresh under build/example-home (the database is
# copied there from the raw data files at the first start), the example water
# is calculated into an output file, and an excerpt of that file and of its
# result tables is printed; a river water with dissolved organic matter
# follows (its copper tables); then the example batch file runs all examples.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" build -DTORMEL_BUILD_TESTS=OFF -DTORMEL_BUILD_BENCH=OFF
export TORMEL64_HOME="$root/build/example-home"
rm -rf "$TORMEL64_HOME"
cli="$root/build/bin/tormel-cli"
out="$TORMEL64_HOME/Output/hard_water.o64"
mkdir -p "$TORMEL64_HOME/Output"

"$cli" "/run:$root/data/examples/hard_water.i64" "$out"
echo "== $out (first lines) =="
iconv -f UTF-16 -t UTF-8 "$out" | tr -d '\r' | head -n 9 | cut -c1-110
echo "== result tables of calcium =="
"$cli" "$out" | sed -n '/^== Ca ==$/,/^== K ==$/p' | sed '$d' | cut -c1-110

river="$TORMEL64_HOME/Output/river_doc.o64"
"$cli" "/run:$root/data/examples/river_doc.i64" "$river"
echo "== result tables of copper in $river (organic matter, Model 7) =="
"$cli" "$river" | sed -n '/^== Cu(II) ==$/,/^$/p' | cut -c1-110

echo "== batch: $root/data/examples/example_batch.txt on 2 threads =="
mkdir -p "$TORMEL64_HOME/Input"
cp "$root/data/examples/"*.i64 "$root/data/examples/example_batch.txt" "$TORMEL64_HOME/Input/"
"$cli" /batch:example_batch.txt --jobs 2
ls -1 "$TORMEL64_HOME/Output"
