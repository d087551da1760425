# Shared by the scripts: where the project is, and packages.
# shellcheck shell=bash
set -euo pipefail
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

build_packages=(g++ cmake ninja-build qt6-base-dev libqt6widgets6)
test_packages=(libgtest-dev xvfb openbox xdotool wmctrl xclip clang-format)

# need PACKAGE...: installs what is missing, with sudo when the user is not root.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  echo "Installing ${missing[*]}" >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
    --no-install-recommends "${missing[@]}" >/dev/null
}

# build PRESET: configures where that is needed, then builds. Silent unless it fails.
build() {
  cd "$project"
  [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >/dev/null
  local log
  log=$(cmake --build --preset "$1" 2>&1) || {
    printf '%s\n' "$log" >&2
    return 1
  }
  cd - >/dev/null
}
