#!/usr/bin/env bash
# Saves pictures of the desktop program's windows into build/screenshots/
# (English and German, at scale 1 and 2), on a virtual 1280x800 screen.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
out="$PWD/$build/screenshots"
mkdir -p "$out"
run() {  # language suffix [scale]
  env TORMEL_SCREENSHOTS=1 TORMEL_SCREENSHOT_DIR="$out" TORMEL_SCREENSHOT_LANG="$1" TORMEL_SCREENSHOT_SUFFIX="$2" \
    QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR="${3:-1}" \
    xvfb-run -a -s "-screen 0 1280x800x24" "$build/bin/tormel_ui_tests" --gtest_filter='Screenshots.*' >/dev/null
}
run en _en
run de _de
run en _en_x2 2
run de _de_x2 2
ls "$out"/*.png
