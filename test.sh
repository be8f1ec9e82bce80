#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds and passes all tests: ./test.sh [PRESET], where PRESET is debug (the default), ci, asan
# or no-gui.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. scripts/packages.sh

preset=${1:-debug}
case "$preset" in
  debug | ci | asan | no-gui) ;;
  *)
    echo "usage: ./test.sh [debug|ci|asan|no-gui]" >&2
    exit 2
    ;;
esac
packages=("${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${TEST_PACKAGES[@]}")
# There the benchmarks are built too, so that they keep compiling.
[ "$preset" = ci ] && packages+=("${BENCH_PACKAGES[@]}")
require_packages "${packages[@]}"
configure_and_build "$preset"
ctest --preset "$preset" -j "$(nproc)"
