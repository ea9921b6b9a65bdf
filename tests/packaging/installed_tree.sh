#!/bin/bash
# Installs below a prefix, moves the prefix away, looks over each file that a desktop reads, and starts
# the three programs through their links. Needs an X server.
# Usage: installed_tree.sh BUILD_FOLDER
set -uo pipefail
build=$1
work=$(mktemp -d)
started=""
clean() {
  [ -z "$started" ] || kill "$started" 2>/dev/null
  wait
  rm -rf "$work"
}
trap clean EXIT

failed=0
fail() {
  echo "FAILED: $*"
  failed=1
}

cmake --install "$build" --prefix "$work/first place" >/dev/null || exit 1
mkdir -p "$work/second" && mv "$work/first place" "$work/second/place"
prefix=$work/second/place
tree="$prefix/Kelvo Software/Quinzolith"
export HOME=$work/home XDG_RUNTIME_DIR=$work/run
unset XDG_CONFIG_HOME
mkdir -p "$HOME" && mkdir -m 700 "$XDG_RUNTIME_DIR"

desktop-file-validate "$prefix"/share/applications/*.desktop || fail "the desktop entry"
appstreamcli validate --no-net --strict --pedantic "$prefix"/share/metainfo/*.xml || fail "the metadata"
for page in "$prefix"/share/man/man*/*; do
  remarks=$(mandoc -Tlint -Wwarning "$page" && groff -man -ww -z "$page" 2>&1)
  [ -z "$remarks" ] || fail "${page##*/}: $remarks"
done

signature=$(head -c 26 "$tree/puzzles/rocket.qzl")
XDG_DATA_DIRS=$prefix/share update-mime-database "$prefix/share/mime" || fail "the type of puzzle files"
grep -qaF "$signature" "$prefix/share/mime/magic" || fail "puzzles are not told by \"$signature\""
grep -qx '50:application/x-quinzolith-puzzle:\*.qzl' "$prefix/share/mime/globs2" || fail "the ending .qzl"

# opens LINK TITLE ARGUMENTS...: the program opens a window of that title and complains of nothing.
opens() {
  local program=$1 title=$2
  shift 2
  "$prefix/bin/$program" "$@" 2>"$work/complaints" &
  started=$!
  local tries=0
  until xwininfo -root -tree | grep -qF "\"$title\": (\"$program\""; do
    tries=$((tries + 1))
    kill -0 "$started" 2>/dev/null || { fail "$program ended"; break; }
    [ "$tries" -lt 1200 ] || { fail "$program shows no \"$title\""; break; }
    sleep 0.05
  done
  kill "$started" && wait "$started"
  started=""
  [ ! -s "$work/complaints" ] || fail "$program says: $(cat "$work/complaints")"
}
[ ! -e "$tree/User" ] || fail "a folder for puzzles is installed"
[ -z "$(find "$prefix" -perm -o+w ! -type l)" ] || fail "others may write: $(find "$prefix" -perm -o+w ! -type l)"
opens quinzolith Quinzolith
[ -d "$tree/User" ] || fail "the program looks for its folder elsewhere"
chmod 1777 "$tree/User"
opens quinzolith Quinzolith
own=$HOME/.local/share/quinzolith
[ -d "$own/User" ] && cmp -s "$own/puzzles/rocket.qzl" "$tree/puzzles/rocket.qzl" ||
  fail "the player has no folder of their own"
opens quinzolith-help "Quinzolith Help" "$tree/Quinzolith.chm"
"$prefix/bin/quinzolith-puzzle" render "$tree/puzzles/rocket.qzl" "$work/rocket.png" ||
  fail "quinzolith-puzzle finds no textures"
exit $failed
