#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Starts Omni-Perch for the present user. The program never makes up its defaults, so whatever of them is missing from
# the user's data folder is copied there first. What exists there in any letter case stays as it is, but for the help, the
# languages, the maps and the hosts of an earlier version: one that the user has not changed is replaced by today's; of one
# that he has changed, today's is put beside it as NAME.new.

prefix=$(dirname "$(dirname "$(readlink -f "$0")")")
defaults=$prefix/share/omni-perch
data=${XDG_DATA_HOME:-$HOME/.local/share}/Omni-Perch
# The checksums of all defaults that any version has brought. A copy in the data folder tells which version was here last.
former=$prefix/lib/omni-perch/former-defaults
seen=$data/.former-defaults

# Prints the path of an entry whatever its letter case; nothing when there is none.
existing() { # folder, name
  find "$1" -mindepth 1 -maxdepth 1 -iname "$2" 2>/dev/null | head -n 1
}

# Through a name of its own, so that a full disk leaves no half of a file under the right one.
put_file() { # file, target, option of mv
  part=$(dirname "$2")/.$(basename "$2").$$
  cp "$1" "$part" 2>/dev/null && mv "$3" "$part" "$2"
  rm -f "$part"
}

copy_file() { # file, folder
  name=$(basename "$1")
  mine=$(existing "$2" "$name")
  if [ -z "$mine" ]; then
    put_file "$1" "$2/$name" -n
  elif [ -n "$upgrade" ] && [ -f "$mine" ]; then
    upgrade_file "$1" "$mine"
  fi
}

# The program itself writes the configuration and the lists, so that they are never a default again.
upgrade_file() { # file, the user's
  case $1 in *.cfg | *.lst) return 0 ;; esac
  cmp -s "$1" "$2" && return 0
  sum=$(sha256sum <"$2")
  if grep -q "^${sum%% *} " "$former"; then
    put_file "$1" "$2" -f
  elif ! cmp -s "$1" "$2.new"; then
    put_file "$1" "$2.new" -f
  fi
}

mkdir -p "$data"
upgrade=
if [ -f "$former" ] && ! cmp -s "$former" "$seen"; then upgrade=yes; fi
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

[ -z "$upgrade" ] || put_file "$former" "$seen" -f

exec "$prefix/lib/omni-perch/omni-perch" "$@"
