#!/usr/bin/env bash
# Sets up, builds and runs every test: the normal build (with the desktop
# program's tests on Qt's offscreen platform), then the same tests under
# AddressSanitizer and UndefinedBehaviorSanitizer, then each fuzz target for a
# short while. Each configuration is built once; every phase prints its time.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
jobs=$(nproc)
started=$SECONDS
phase_start=$SECONDS
phase() {
  local now=$SECONDS
  [ -n "${phase_name:-}" ] && printf '== %s took %d s ==\n' "$phase_name" $((now - phase_start))
  phase_name=$1
  phase_start=$now
  [ -n "$phase_name" ] && echo "== $phase_name =="
  return 0
}

phase "setup"
scripts/setup.sh --test

phase "build"
scripts/build.sh build

phase "tests"
(cd build && ctest -j "$jobs" --output-on-failure)
if [ -x build/bin/tormel_ui_tests ]; then
  echo "== screenshots of the desktop windows (build/screenshots) =="
  scripts/screenshots.sh build
fi

phase "sanitizer build (ASan + UBSan)"
scripts/build.sh build-asan -DCMAKE_BUILD_TYPE=Debug -DTORMEL_SANITIZE=ON -DTORMEL_BUILD_BENCH=OFF -DTORMEL_BUILD_DOCUMENTS=OFF -DTORMEL_BUILD_PYTHON=OFF

phase "sanitizer tests"
(cd build-asan && ASAN_OPTIONS=detect_leaks=1 LSAN_OPTIONS=suppressions="$root/tests/lsan.supp" \
  UBSAN_OPTIONS=print_stacktrace=1 ctest -j "$jobs" --output-on-failure)

phase "thread sanitizer build (the parallel batch and shared lookups)"
scripts/build.sh build-tsan --target tormel_tests --target tormel-cli -- -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTORMEL_TSAN=ON \
  -DTORMEL_BUILD_GUI=OFF -DTORMEL_BUILD_BENCH=OFF -DTORMEL_BUILD_PYTHON=OFF

phase "thread sanitizer tests"
(cd build-tsan && TSAN_OPTIONS=halt_on_error=1 ctest -j "$jobs" --output-on-failure \
  -R 'Batch|Parallel|Thread|Bundled|TormelCli|Language|Settings|Ini')

if ls tests/fuzz/*.cpp >/dev/null 2>&1; then
  phase "fuzz build"
  scripts/build.sh build-fuzz -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTORMEL_FUZZ=ON \
    -DTORMEL_BUILD_TESTS=OFF -DTORMEL_BUILD_BENCH=OFF -DTORMEL_BUILD_GUI=OFF -DTORMEL_BUILD_DOCUMENTS=OFF -DTORMEL_BUILD_PYTHON=OFF
  phase "fuzz targets"
  for src in tests/fuzz/*.cpp; do
    name=$(basename "$src" .cpp)
    corpus="build-fuzz/corpus-$name"
    mkdir -p "$corpus"
    [ -d "tests/fuzz/corpus/$name" ] && cp -r "tests/fuzz/corpus/$name/." "$corpus/"
    echo "-- $name: ${FUZZ_SECONDS:-60} s"
    "build-fuzz/bin/$name" -max_total_time="${FUZZ_SECONDS:-60}" -rss_limit_mb=2048 "$corpus" 2>&1 | tail -n 3
  done
fi
phase ""
printf '== all phases took %d s ==\n' $((SECONDS - started))

echo "== main test run, summary =="
(cd build && ctest -j "$jobs" 2>&1 | sed -n '/tests passed/,$p')
