# SPDX-License-Identifier: MIT

# Sourced by run.sh, test.sh and .ci/run: makes sure that Debian packages are installed.

# The compiler, the build tools and the libraries that the programs need.
BUILD_PACKAGES=(g++ cmake ninja-build qt6-base-dev qt6-serialport-dev libfreetype-dev libpng-dev libzint-dev)
# What a window needs to run and to show text, and the fonts of the printed cards.
RUN_PACKAGES=(fontconfig fonts-dejavu-core fonts-droid-fallback fonts-terminus-otb fonts-unifont)
TEST_PACKAGES=(at-spi2-core dbus libgtest-dev libgmock-dev man-db mandoc openbox python3 python3-pytest python3-serial
               ser2net socat tshark wireshark-common xauth xdotool xvfb zbar-tools zlib1g-dev zsh)
# For .ci/run: what checks the sources, the packaging files and the programs, what makes the packages and a system to try
# them in, what remembers what was compiled, and the benchmarks' and fuzz targets' own.
CHECK_PACKAGES=(appstream binutils ccache clang-format clang-tidy debian-archive-keyring debootstrap desktop-file-utils
                doxygen dpkg-dev file git lintian mandoc mount python3-yaml)
BENCH_PACKAGES=(libbenchmark-dev)
FUZZ_PACKAGES=(clang libclang-rt-14-dev)
# For scripts/compare-start: what `vantrel` is measured beside, and a screen for it.
COMPARE_PACKAGES=(cutecom dbus-daemon gtkterm openbox putty python3-xlib xvfb)
# For scripts/draw-house.
DRAW_PACKAGES=(graphviz fonts-dejavu-core)
# For scripts/valgrind.
VALGRIND_PACKAGES=(valgrind libc6-dbg)

# require_packages PACKAGE...: installs those that are missing and says which. Ends the script with a clear message when
# that is not possible.
require_packages() {
  if ! command -v dpkg-query >/dev/null; then
    echo "This system has no Debian packages; make sure that it has what these stand for: $*" >&2
    return 0
  fi
  local installed missing=() package
  # It fails where it does not know a package; what it knows is still printed.
  installed=$({ dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true; } |
    sed -n 's/ installed$//p')
  for package in "$@"; do
    grep -qx -- "$package" <<<"$installed" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0

  echo "Installing missing packages: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Run this once as an administrator, then try again:" >&2
      echo "  apt-get update && apt-get install ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -qq &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq --no-install-recommends "${missing[@]}" || {
    echo "The packages could not be installed: ${missing[*]}" >&2
    exit 1
  }
}

# configure_and_build PRESET: configures a build folder once and builds it; a second call with nothing changed is quick.
configure_and_build() {
  [ -f "build/$1/build.ninja" ] || cmake --preset "$1"
  cmake --build --preset "$1"
}
