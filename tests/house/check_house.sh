#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The house rules, read from the sources: check_house.sh ROOT [WIDGETS_INCLUDE_DIR...]. One line a fault, status 1 with any.
# A module is a .h/.cpp pair, known by its path below src without the extension. tests/house/folders holds the order of the
# folders; the CMakeLists.txt files tell which library a module belongs to.
set -uo pipefail
root=$1
shift
widgetDirs=("$@")
cd "$root" || exit 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Print "module library" for every source that a target_sources() or add_executable() below src names.
libraries_of_modules() {
  find src -name CMakeLists.txt | while read -r list; do
    folder=$(dirname "$list")
    tr '()\n' '   ' <"$list" | awk -v folder="${folder#src}/" '{
      for (i = 1; i <= NF; i++) {
        if ($i == "target_sources" || $i == "add_executable") library = $(i + 1)
        else if ($i ~ /\.(cpp|h)$/) { sub(/\.(cpp|h)$/, "", $i); print substr(folder, 2) $i, library }
      }
    }'
  done | sort -u
}

# Print "module included-module" for every include of one of our own headers, .h and .cpp together.
includes_between_modules() {
  find src \( -name '*.h' -o -name '*.cpp' \) | while read -r file; do
    awk -v module="${file#src/}" 'BEGIN { sub(/\.(h|cpp)$/, "", module) }
      /^[ \t]*#[ \t]*include[ \t]*"/ {
        split($0, part, "\""); target = part[2]
        if (target !~ /\.h$/) next
        sub(/\.h$/, "", target)
        if (target !~ /\//) { folder = module; if (sub(/\/[^\/]*$/, "", folder)) target = folder "/" target }
        if (target != module) print module, target
      }' "$file"
  done | sort -u
}

libraries_of_modules >"$work/libraries"
includes_between_modules >"$work/includes"

# Includes that point up, folders without a place in the order, and logic that includes a window.
check_folders() {
  awk 'function folder_of(module) { return sub(/\/[^\/]*$/, "", module) ? module : "." }
       FILENAME ~ /folders$/ { if ($1 !~ /^#/) place[$1] = ++count; next }
       FILENAME ~ /libraries$/ { library[$1] = $2; next }
       {
         from = folder_of($1); to = folder_of($2)
         if (!(from in place)) { if (!told[from]++) print "src/" from ": has no place in tests/house/folders"; next }
         if (!(to in place)) { if (!told[to]++) print "src/" to ": has no place in tests/house/folders"; next }
         if (place[to] < place[from]) print "src/" $1 ": includes " $2 ", whose folder stands above it"
         if (library[$1] == "omni_logic" && library[$2] == "omni_windows") print "src/" $1 ": is logic and includes the window module " $2
       }' tests/house/folders "$work/libraries" "$work/includes"
}

# Modules that need each other: neither can be read, tested or moved without the other. Folders are parted by their order.
check_circles() {
  tsort "$work/includes" 2>&1 >/dev/null | sed -n 's/^tsort: \([^ ]*\)$/\1/p' | grep -vx -- '-' |
    sed 's/^\(.*\)$/src\/\1: stands in a circle of includes/'
}

# A module that no library has is dead; a name that no file has is a slip.
check_libraries() {
  find src -name '*.cpp' | sed 's#^src/##; s#\.cpp$##' | sort >"$work/modules"
  cut -d ' ' -f 1 "$work/libraries" | sort -u | comm -23 "$work/modules" - | sed 's#.*#src/&.cpp: stands in no CMakeLists.txt#'
}

# A logic module that names a widget would not build elsewhere; said here in plain words.
check_widgets() {
  [ ${#widgetDirs[@]} -gt 0 ] || return 0
  awk '$2 == "omni_logic" { print "src/" $1 ".h"; print "src/" $1 ".cpp" }' "$work/libraries" | while read -r file; do
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
    [ "$lines" -le 450 ] || echo "$file: $lines lines; a file has at most 450"
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

# The table of given names tells the truth about where they stand: in the code of that file, not only in a comment.
check_names() {
  [ -f docs/names.md ] || return 0
  awk -F'|' '/^\| `/ {
    file = $4; gsub(/[ `]/, "", file)
    count = split($2, name, ",")
    for (i = 1; i <= count; i++) { gsub(/[ `]/, "", name[i]); print name[i], file }
  }' docs/names.md | while read -r name file; do
    sed 's#//.*##' "src/$file" 2>/dev/null | grep -wF -- "$name" >/dev/null || echo "docs/names.md: $name does not stand in src/$file"
  done
}

faults=$(check_folders; check_circles; check_libraries; check_widgets; check_files; check_waits; check_names)
if [ -n "$faults" ]; then
  echo "$faults"
  exit 1
fi
