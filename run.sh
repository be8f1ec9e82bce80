#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds, and starts the console beside a software printer. Where there is no display, runs the
# same demonstration off-screen and writes pictures of the windows. Options are handed to the demonstration.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. scripts/packages.sh

packages=("${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}")
[ -n "${WAYLAND_DISPLAY:-}" ] && [ -z "${DISPLAY:-}" ] && packages+=(qt6-wayland)
require_packages "${packages[@]}"
configure_and_build release

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec build/release/bin/vantrel-demo "$@"
fi
echo "There is no display, so the demonstration runs off-screen."
QT_QPA_PLATFORM=offscreen exec build/release/bin/vantrel-tour build/tour "$@"
