#!/usr/bin/env bash
# Sets up, builds and runs every test: the normal build, then the same tests
# under AddressSanitizer and UndefinedBehaviorSanitizer, then each fuzz target
# for a short while.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
scripts/setup.sh --test
jobs=$(nproc)

scripts/build.sh build
(cd build && ctest -j "$jobs" --output-on-failure)
if [ -x build/bin/tormel_ui_tests ]; then
  echo "== screenshots of the desktop windows (build/screenshots) =="
  scripts/screenshots.sh build
fi

echo "== sanitizer build (ASan + UBSan) =="
scripts/build.sh build-asan -DCMAKE_BUILD_TYPE=Debug -DTORMEL_SANITIZE=ON -DTORMEL_BUILD_BENCH=OFF
(cd build-asan && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest -j "$jobs" --output-on-failure)

if ls tests/fuzz/*.cpp >/dev/null 2>&1; then
  echo "== fuzz targets =="
  scripts/build.sh build-fuzz -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTORMEL_FUZZ=ON \
    -DTORMEL_BUILD_TESTS=OFF -DTORMEL_BUILD_BENCH=OFF
  for src in tests/fuzz/*.cpp; do
    name=$(basename "$src" .cpp)
    corpus="build-fuzz/corpus-$name"
    mkdir -p "$corpus"
    [ -d "tests/fuzz/corpus/$name" ] && cp -r "tests/fuzz/corpus/$name/." "$corpus/"
    echo "-- $name: 60 s"
    "build-fuzz/bin/$name" -max_total_time="${FUZZ_SECONDS:-60}" -rss_limit_mb=2048 "$corpus" 2>&1 | tail -n 3
  done
fi

echo "== main test run, summary =="
(cd build && ctest -j "$jobs" 2>&1 | tail -n 3)
