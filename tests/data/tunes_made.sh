#!/bin/sh
# The MIDI files that ship are what their source makes, and the notation has no fault.
# Usage: tunes_made.sh TUNES_FOLDER
set -u
cd "$1" || exit 2
made=$(mktemp -d) || exit 2
trap 'rm -rf "$made"' EXIT
failed=0
count=0
for source in src/*/*.abc; do
  tune=${source#src/}
  tune=${tune%.abc}.mid
  if abc2midi "$source" -o "$made/tune.mid" | grep -E 'Warning|Error'; then
    echo "$source is faulty"
    failed=1
  fi
  cmp "$made/tune.mid" "$tune" || failed=1
  count=$((count + 1))
done
if [ "$(ls -d [A-Z]*/* | wc -l)" -ne "$count" ]; then
  echo 'Not every file has a source.'
  failed=1
fi
exit $failed
