#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Starts Omni-Perch for the present user. The program never makes up its defaults, so whatever of them is missing from
# the user's data folder is copied there first; what exists in any letter case is the user's own and stays as it is.

prefix=$(dirname "$(dirname "$(readlink -f "$0")")")
defaults=$prefix/share/omni-perch
data=${XDG_DATA_HOME:-$HOME/.local/share}/Omni-Perch

# Prints the path of an entry whatever its letter case; nothing when there is none.
existing() { # folder, name
  find "$1" -mindepth 1 -maxdepth 1 -iname "$2" 2>/dev/null | head -n 1
}

# Through a name of its own, so that a full disk leaves no half of a file under the right one.
copy_file() { # file, folder
  name=$(basename "$1")
  [ -z "$(existing "$2" "$name")" ] || return 0
  cp "$1" "$2/.$name.$$" 2>/dev/null && mv -n "$2/.$name.$$" "$2/$name"
  rm -f "$2/.$name.$$"
}

mkdir -p "$data"
for default in "$defaults"/*; do
  if [ -d "$default" ]; then
    folder=$(existing "$data" "$(basename "$default")")
    [ -n "$folder" ] || folder=$data/$(basename "$default")
    mkdir -p "$folder"
    for file in "$default"/*; do
      [ ! -f "$file" ] || copy_file "$file" "$folder"
    done
  else
    copy_file "$default" "$data"
  fi
done

exec "$prefix/lib/omni-perch/omni-perch" "$@"
