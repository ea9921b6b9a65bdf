#!/bin/sh
# Checks the house: includes follow the arrows between the rooms, and sources are formatted.
# Usage: house.sh SOURCE_FOLDER
set -u
cd "$1" || exit 2
failed=0

# allow ROOM 'REGEX OF ROOMS': includes of ours in ROOM may name only these rooms.
allow() {
  bad=$(grep -nE '^#include "[a-z]+/' "$1"/*.h "$1"/*.cpp 2>/dev/null | grep -vE "#include \"($2)/")
  if [ -n "$bad" ]; then
    printf 'Includes against the arrows in %s/:\n%s\n' "$1" "$bad"
    failed=1
  fi
}
allow model 'model'
allow solver 'solver|model'
allow platform 'platform'
allow services 'services|platform'
allow board 'pictures|board|model|platform|services'
allow catalogue 'catalogue'
allow play 'pictures|catalogue|play|board|model|platform|services|solver'
allow edit 'pictures|edit|board|model|platform|services|solver'
allow viewer 'viewer|platform'
allow tools/pictures 'tools|pictures|model|catalogue'
allow tools/puzzle 'tools|pictures|model|solver|platform'
allow tour 'tour|model|platform|services|board|catalogue'

if grep -nE '#include <(Q|q|fluid|mspack|X11|xcb)' model/*.h model/*.cpp solver/*.h solver/*.cpp 2>/dev/null; then
  echo 'model/ and solver/ use no toolkit.'
  failed=1
fi

if command -v clang-format >/dev/null 2>&1; then
  git ls-files '*.h' '*.cpp' 2>/dev/null | xargs -r clang-format --dry-run -Werror || failed=1
fi
exit $failed
