#!/usr/bin/env bash
# Installs what building needs on Debian 12 (with the Python package's
# pybind11 and pandas); with --test also what the tests need (sanitizer and
# fuzzer runtimes, locales, a spreadsheet program that reads our exports,
# pytest and Dask for the Python package). Safe to run again.
set -euo pipefail
packages=(build-essential cmake ninja-build pkg-config googletest libgtest-dev libgmock-dev libbenchmark-dev
  qt6-base-dev qt6-svg-dev libgl-dev libreoffice-writer-nogui
  pybind11-dev python3-dev python3-numpy python3-pandas)
if [ "${1:-}" = "--test" ]; then
  packages+=(clang libclang-rt-14-dev locales-all libreoffice-calc-nogui xvfb xauth poppler-utils
    xdg-utils shared-mime-info libfile-mimeinfo-perl desktop-file-utils python3-pytest python3-dask python3-distributed)
fi
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
