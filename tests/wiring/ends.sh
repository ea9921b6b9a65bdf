#!/bin/sh
# The programs themselves, as they start and end: without a display, and by signals.
# Usage: ends.sh INSTALLATION_FOLDER
set -u
cd "$1" || exit 2
home=$(mktemp -d) || exit 2
trap 'rm -rf "$home"' EXIT
export HOME="$home" XDG_CONFIG_HOME="$home/config" XDG_RUNTIME_DIR="$home/run"
mkdir -m 700 "$home/run"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
failed=0

fail() {
  echo "FAILED: $*"
  failed=1
}

# expect_no_display PROGRAM ARGUMENTS...: one line and code 1.
expect_no_display() {
  "$@" 2>"$home/said"
  code=$?
  [ $code = 1 ] || fail "$1 without a display ended with $code"
  [ "$(wc -l <"$home/said")" = 1 ] || fail "$1 without a display said: $(cat "$home/said")"
}
expect_no_display ./quinzolith
expect_no_display ./quinzolith-help Quinzolith.chm
DISPLAY=:7777 expect_no_display ./quinzolith
QT_QPA_PLATFORM=none-such expect_no_display ./quinzolith

# catches PID SIGNAL: whether the process has a handler for the signal by now.
catches() {
  mask=$(sed -n 's/^SigCgt:\t*//p' "/proc/$1/status" 2>/dev/null)
  [ -n "$mask" ] && [ $((0x$mask >> ($2 - 1) & 1)) = 1 ]
}

# expect_end SIGNAL PROGRAM ARGUMENTS...: ended by the signal in order, with nothing left behind.
expect_end() {
  signal=$1
  shift
  QT_QPA_PLATFORM=offscreen "$@" 2>"$home/said" &
  pid=$!
  until catches $pid "$signal" || ! kill -0 $pid 2>/dev/null; do :; done
  kill -"$signal" $pid
  wait $pid
  code=$?
  [ $code = $((128 + signal)) ] || fail "signal $signal ended $1 with $code"
  # The viewer's lock is the kernel's; its empty file stays in the folder that goes with the session.
  left=$(find "$home" \( -type f -o -type s \) ! -name said ! -path "$home/run/*.lock")
  [ -z "$left" ] || fail "signal $signal let $1 leave $left"
}
for signal in 1 2 15; do
  expect_end $signal ./quinzolith
  expect_end $signal ./quinzolith-help Quinzolith.chm
done
exit $failed
