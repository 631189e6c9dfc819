#!/usr/bin/env bash
# Installs what building and testing need on Debian 12. Safe to run again.
set -euo pipefail
packages=(build-essential cmake ninja-build pkg-config googletest libgtest-dev libgmock-dev libbenchmark-dev
          clang libclang-rt-14-dev locales-all)
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
