#!/bin/sh
# Tries, for each pair of rooms, to include a header of the second in the first. The compiler must find
# it where link lines lead from one to the other, and nowhere else.
# Usage: arrows.sh SOURCE_FOLDER WORK_FOLDER COMPILER TABLE
# TABLE has a line for each room: "ROOM|ROOMS IT SEES|FOLDERS IT INCLUDES FROM", lists separated by ";"
set -u
work=$2 compiler=$3 table=$4
cd "$1" && mkdir -p "$work" || exit 2

# finds FOLDERS HEADER: whether the compiler finds the header in one of the folders.
finds() {
  header=$2
  IFS=';'
  set -f
  # shellcheck disable=SC2086
  set -- $1
  unset IFS
  set +f
  for folder; do
    set -- "$@" "-I$folder"
    shift
  done
  printf '#if !__has_include("%s")\n#error refused\n#endif\n' "$header" >"$work/try.cpp"
  "$compiler" -std=c++20 -E "$@" "$work/try.cpp" >/dev/null 2>&1
}

refused=0
while IFS='|' read -r room seen folders; do
  while IFS='|' read -r other rest; do
    header=$(ls "$other"/*.h | head -n 1)
    case ";$room;$seen;" in *";$other;"*) arrow=yes ;; *) arrow=no ;; esac
    finds "$folders" "$header" && found=yes || found=no
    if [ $arrow != $found ]; then
      echo "$room includes $header: arrow: $arrow, found by the compiler: $found"
      exit 1
    fi
    [ $arrow = no ] && refused=$((refused + 1))
  done <"$table"
done <"$table"
echo "$refused pairs without an arrow, each refused by the compiler."
[ $refused -gt 0 ]
