# Shared by the scripts that drive the built program from outside.
# shellcheck shell=bash
set -euo pipefail
program=$(realpath "$1")
scratch=$(mktemp -d)
export HOME=$scratch/home WORDFLURN_HOME=$scratch/data XDG_CONFIG_HOME=$scratch/config
mkdir -p "$HOME" "$XDG_CONFIG_HOME"
helpers=()

finish() {
  local status=$?
  for pid in "${helpers[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$scratch"
  exit "$status"
}
trap finish EXIT

fail() {
  echo "FAILED: $*" >&2
  [ -z "${DISPLAY:-}" ] || wmctrl -l >&2 || true
  exit 1
}

# eventually SECONDS COMMAND...: tries the command until it succeeds.
eventually() {
  local tries=$(($1 * 20))
  shift
  for ((i = 0; i < tries; i++)); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.05
  done
  fail "never came true: $*"
}

expect_bytes() { # FILE BYTES, with printf's escapes
  # shellcheck disable=SC2059
  printf "$2" >"$scratch/expected"
  cmp "$1" "$scratch/expected" || {
    od -c "$1" | head -20 >&2
    fail "$1 does not hold what it should"
  }
}

start_display() {
  unset WAYLAND_DISPLAY
  exec {display_pipe}<> <(:)
  Xvfb -displayfd "$display_pipe" -screen 0 1280x900x24 -nolisten tcp 2>"$scratch/xvfb.log" &
  helpers+=($!)
  local number
  read -r -t 20 -u "$display_pipe" number || fail "no display: $(cat "$scratch/xvfb.log")"
  export DISPLAY=:$number QT_QPA_PLATFORM=xcb
  openbox 2>/dev/null &
  helpers+=($!)
  eventually 20 wmctrl -m
}

has_window() { wmctrl -l | grep -qF -- "$1"; }
wait_window() { eventually 30 has_window "$1"; }
wait_no_window() { eventually 30 lacks_window "$1"; }
lacks_window() { ! has_window "$1"; }
# Keys go to the window that has the keyboard; a mnemonic takes a moment to act.
keys() {
  for key in "$@"; do
    xdotool key --clearmodifiers "$key"
    sleep 0.25
  done
}
type_text() {
  xdotool type --delay 20 -- "$1"
  sleep 0.25
}
