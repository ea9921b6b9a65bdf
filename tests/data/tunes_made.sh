#!/bin/sh
# The MIDI files that ship are what their source makes, and the notation has no fault.
# Usage: tunes_made.sh TUNES_FOLDER
set -u
cd "$1" || exit 2
made=$(mktemp -d) || exit 2
trap 'rm -rf "$made"' EXIT
failed=0
count=0

# notes FILE: all that is heard. Which texts are written beside it is up to the converter's version.
notes() { mftext "$1" | grep -vE 'Meta Text|^ +Text = '; }

for source in src/*/*.abc; do
  tune=${source#src/}
  tune=${tune%.abc}.mid
  if abc2midi "$source" -o "$made/tune.mid" | grep -E 'Warning|Error'; then
    echo "$source is faulty"
    failed=1
  fi
  notes "$made/tune.mid" >"$made/new"
  notes "$tune" | diff - "$made/new" >"$made/differences" || {
    echo "$tune differs:"
    head "$made/differences"
    failed=1
  }
  count=$((count + 1))
done
if [ "$(ls -d [A-Z]*/* | wc -l)" -ne "$count" ]; then
  echo 'Not every file has a source.'
  failed=1
fi
exit $failed
