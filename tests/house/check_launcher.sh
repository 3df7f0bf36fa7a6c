#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The launcher in a small installation of its own: check_launcher.sh LAUNCHER. What is missing arrives, what is there stays,
# and what an earlier version brought is renewed unless the user has changed it.
set -uo pipefail
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
share=$tree/usr/share/omni-perch
mkdir -p "$tree/usr/bin" "$tree/usr/lib/omni-perch" "$share/Languages" "$tree/home"
cp "$1" "$tree/usr/bin/omni-perch"
for name in Omni-Perch.cfg WXsites.lst Help.txt Languages/Omni-Perch_English.Language Languages/Omni-Perch_Dutch.Language; do
  echo default >"$share/$name"
done
printf '#!/bin/sh\necho "started $1"\n' >"$tree/usr/lib/omni-perch/omni-perch"
chmod +x "$tree/usr/bin/omni-perch" "$tree/usr/lib/omni-perch/omni-perch"

failures=0
expect() { # what, wanted, seen
  [ "$2" = "$3" ] || { echo "$1: wanted '$2', saw '$3'"; failures=1; }
}
launch() { env -u XDG_DATA_HOME HOME="$tree/home" "$@" "$tree/usr/bin/omni-perch" word; }
listing() { (cd "$1" && find . -type f | LC_ALL=C sort | tr '\n' ' '); }

expect "starts the program" "started word" "$(launch)"
data=$tree/home/.local/share/Omni-Perch
everything="./Help.txt ./Languages/Omni-Perch_Dutch.Language ./Languages/Omni-Perch_English.Language ./Omni-Perch.cfg ./WXsites.lst "
expect "fills an empty home" "$everything" "$(listing "$data")"

rm -rf "$data"
mkdir -p "$data/LANGUAGES"
echo mine | tee "$data/omni-perch.CFG" "$data/LANGUAGES/omni-perch_dutch.language" >/dev/null
launch >/dev/null
expect "takes names of any letter case as they are" \
  "./Help.txt ./LANGUAGES/Omni-Perch_English.Language ./LANGUAGES/omni-perch_dutch.language ./WXsites.lst ./omni-perch.CFG " \
  "$(listing "$data")"
expect "never replaces a user's file" "mine mine" "$(cat "$data/omni-perch.CFG") $(cat "$data/LANGUAGES/omni-perch_dutch.language")"

ln -s "$tree/usr/bin/omni-perch" "$tree/link"
expect "works through a link, in a folder of the user's choice with a blank" "started " \
  "$(env XDG_DATA_HOME="$tree/my data" HOME="$tree/home" "$tree/link")"
expect "fills the chosen folder" "$everything" "$(listing "$tree/my data/Omni-Perch")"

# A later version. Its help, its maps and one language are new; the user has changed that language and the configuration.
rm -rf "$data"
mkdir -p "$share/Maps"
echo old >"$share/Maps/World Map.jpg"
former=$tree/usr/lib/omni-perch/former-defaults
checksums() { (cd "$share" && find . -type f -exec sha256sum {} +) | sed 's#\./##' >>"$former"; }
checksums
launch >/dev/null
expect "renews nothing of the same version" "0" "$(find "$data" -name '*.new' | wc -l)"
echo mine | tee "$data/Omni-Perch.cfg" "$data/Languages/Omni-Perch_Dutch.Language" >/dev/null
mv "$data/Help.txt" "$data/HELP.TXT"
for name in Omni-Perch.cfg Help.txt "Maps/World Map.jpg" Languages/Omni-Perch_Dutch.Language; do echo later >"$share/$name"; done
checksums
launch >/dev/null
expect "renews unchanged defaults" "later later default" \
  "$(cat "$data/HELP.TXT" "$data/Maps/World Map.jpg" "$data/Languages/Omni-Perch_English.Language" | tr '\n' ' ' | sed 's/ $//')"
expect "keeps what the user has changed, with today's beside it" "mine mine later" \
  "$(cat "$data/Omni-Perch.cfg" "$data/Languages/Omni-Perch_Dutch.Language" "$data/Languages/Omni-Perch_Dutch.Language.new" | tr '\n' ' ' | sed 's/ $//')"
expect "puts nothing else beside" "1" "$(find "$data" -name '*.new' | wc -l)"
rm "$data/Languages/Omni-Perch_Dutch.Language.new"
launch >/dev/null
expect "renews once a version" "0" "$(find "$data" -name '*.new' | wc -l)"

# A folder that cannot be made: the program is started all the same, and says itself what it misses.
expect "starts without a place for the data" "started " \
  "$(env XDG_DATA_HOME="$share/Help.txt" HOME="$tree/home" "$tree/link" 2>/dev/null)"
exit $failures
