#!/usr/bin/env bash
# Installs what is missing, builds and passes all tests: ./test.sh [PRESET], where PRESET is debug (the default), ci or
# asan.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. scripts/packages.sh

preset=${1:-debug}
case "$preset" in
  debug | ci | asan) ;;
  *)
    echo "usage: ./test.sh [debug|ci|asan]" >&2
    exit 2
    ;;
esac
require_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
configure_and_build "$preset"
ctest --preset "$preset" -j "$(nproc)"
