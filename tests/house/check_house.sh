#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The house rules, read from the sources: check_house.sh ROOT [WIDGETS_INCLUDE_DIR...]. One line a fault, status 1 with any.
# A room is a .h/.cpp pair; the library that a folder's CMakeLists.txt gives it to tells a logic room from a window.
set -uo pipefail
root=$1
shift
widgetDirs=("$@")
cd "$root" || exit 2

# Print "room library" for every source of a target_sources() list.
rooms_of_libraries() {
  find src -mindepth 2 -maxdepth 2 -name CMakeLists.txt | while read -r list; do
    tr '()\n' '   ' <"$list" | awk -v folder="$(basename "$(dirname "$list")")" '{
      for (i = 1; i <= NF; i++) {
        if ($i == "target_sources") library = $(i + 1)
        else if ($i ~ /\.(cpp|h)$/) { sub(/\.(cpp|h)$/, "", $i); print folder "/" $i, library }
      }
    }'
  done
}

# Print "room included-room" for every include of one of our own headers; only in the files of a pattern, if given.
includes_between_rooms() {
  find src \( -name '*.h' -o -name '*.cpp' \) -name "${1:-*}" | while read -r file; do
    awk -v room="${file#src/}" 'BEGIN { sub(/\.(h|cpp)$/, "", room) }
      /^[ \t]*#[ \t]*include[ \t]*"/ {
        split($0, part, "\""); target = part[2]
        if (target !~ /\.h$/) next
        sub(/\.h$/, "", target)
        if (target !~ /\//) { folder = room; sub(/\/[^\/]*$/, "", folder); target = folder "/" target }
        if (target != room) print room, target
      }' "$file"
  done
}

# Floors: 0 platform, 1 core and station, 2 logic rooms, 3 small controls, 4 windows, 5 main.
check_floors() {
  awk 'function floor_of(room, folder) {
         folder = room; sub(/\/.*/, "", folder)
         if (room !~ /\//) return room == "main" ? 5 : -1
         if (folder == "platform") return 0
         if (folder == "ui") return library[room] == "omni_logic" ? 2 : 3
         if (library[room] == "omni_windows") return 4
         if (folder == "core" || folder == "station") return 1
         return library[room] == "omni_logic" ? 2 : 4
       }
       NR == FNR { library[$1] = $2; next }
       floor_of($2) > floor_of($1) { print "src/" $1 ": includes " $2 ", which is a floor above it" }
      ' <(rooms_of_libraries) <(includes_between_rooms)
}

# Headers that need each other: #pragma once would hide it until an innocent change of order breaks the build.
check_circles() {
  includes_between_rooms '*.h' | sort -u | tsort 2>&1 >/dev/null |
    sed -n 's/^tsort: \([^ ]*\/[^ ]*\)$/src\/\1.h: stands in a circle of includes/p'
}

# A logic room that names a widget would not build elsewhere; said here in plain words.
check_widgets() {
  [ ${#widgetDirs[@]} -gt 0 ] || return 0
  rooms_of_libraries | awk '$2 == "omni_logic" { print "src/" $1 ".h"; print "src/" $1 ".cpp" }' | sort -u | while read -r file; do
    [ -f "$file" ] || continue
    sed -n 's/^[ \t]*#[ \t]*include[ \t]*<\(QtWidgets\/\|QtPrintSupport\/\)\{0,1\}\([A-Za-z_.0-9]*\)>.*/\2/p' "$file" | while read -r name; do
      for folder in "${widgetDirs[@]}"; do
        [ ! -e "$folder/$name" ] || echo "$file: includes <$name>, but logic knows no widgets"
      done
    done
  done
}

check_files() {
  find src tools tests \( -name '*.h' -o -name '*.cpp' \) | while read -r file; do
    lines=$(wc -l <"$file")
    [ "$lines" -le 500 ] || echo "$file: $lines lines; a room has at most 500"
    [ "$(head -n 1 "$file")" = "// SPDX-License-Identifier: GPL-3.0-or-later" ] || echo "$file: does not begin with its SPDX line"
    case $file in *.h) grep -qx '#pragma once' "$file" || echo "$file: has no #pragma once" ;; esac
  done
  find . -path ./build -prune -o -path ./.git -prune -o \( -name CMakeLists.txt -o -name '*.cmake' -o -name '*.sh' -o -path './scripts/*' -o -path './.ci/*' \) \
    -type f -print | while read -r file; do
    head -n 2 "$file" | grep -qx '# SPDX-License-Identifier: GPL-3.0-or-later' || echo "$file: does not begin with its SPDX line"
  done
}

# A test waits for what it waits for (QTRY_..., QSignalSpy::wait, qWaitFor), never for time to pass.
check_waits() {
  find tests \( -name '*.h' -o -name '*.cpp' \) -exec grep -nHE \
    '\bq(Wait|Sleep)[[:space:]]*\(|QThread::[mu]?sleep|this_thread::sleep_|\b(u|nano)?sleep[[:space:]]*\(' {} + |
    sed 's/^\([^:]*:[0-9]*\):.*/\1: a bare wait/'
}

# The table of given names tells the truth about where they stand.
check_names() {
  [ -f docs/names.md ] || return 0
  awk -F'|' '/^\| `/ {
    file = $4; gsub(/[ `]/, "", file)
    count = split($2, name, ",")
    for (i = 1; i <= count; i++) { gsub(/[ `]/, "", name[i]); print name[i], file }
  }' docs/names.md | while read -r name file; do
    grep -qwF -- "$name" "src/$file" 2>/dev/null || echo "docs/names.md: $name does not stand in src/$file"
  done
}

faults=$(check_floors; check_circles; check_widgets; check_files; check_waits; check_names)
if [ -n "$faults" ]; then
  echo "$faults"
  exit 1
fi
