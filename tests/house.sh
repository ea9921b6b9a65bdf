#!/bin/sh
# Checks of the sources what the compiler cannot: rooms without a system's library (Qt's the compiler
# does not find there), includes that leave their room by a path of their own, formatting.
# Usage: house.sh SOURCE_FOLDER
set -u
cd "$1" || exit 2
failed=0

if grep -nE '#include <(fluid|mspack|X11|xcb)' seams/*.h model/*.h model/*.cpp solver/*.h solver/*.cpp \
  drafts/*.h drafts/*.cpp files/*.h files/*.cpp \
  folders/*.h folders/*.cpp; then
  echo 'seams/, model/, solver/, drafts/, files/ and folders/ use no toolkit.'
  failed=1
fi
if git grep -nE '^#include "([^/"]*"|\.|[^"]*/\.\.?/)' -- '*.h' '*.cpp'; then
  echo 'An include of ours names the room: "model/PENTO.h".'
  failed=1
fi

# Another version would break lines at other places.
if clang-format --version 2>/dev/null | grep -q 'version 14\.'; then
  git ls-files '*.h' '*.cpp' 2>/dev/null | xargs -r clang-format --dry-run -Werror || failed=1
fi
exit $failed
