#!/usr/bin/env bash
# Configures and builds into the folder given (default: build), passing any
# further arguments to CMake; "--target T [--target U ...] --" before them
# builds only those targets.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
dir=${1:-build}
shift || true
target=()
while [ "${1:-}" = "--target" ]; do
  target+=(--target "$2")
  shift 2
done
[ "${1:-}" = "--" ] && shift
cmake -S "$root" -B "$root/$dir" -G Ninja "$@" >/dev/null
cmake --build "$root/$dir" -j "$(nproc)" "${target[@]}"
