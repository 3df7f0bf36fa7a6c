#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The program starts without a browser: check_links.sh PROGRAM LIBRARY. Neither it nor anything it loads at start may be
# part of one; the library, on the other hand, is one and needs nothing from the program.
set -uo pipefail
program=$1
library=$2
fault=0

linked=$(ldd "$program") || exit 1
if grep -E 'WebEngine|WebChannel|libQt6Quick|libQt6Qml|omni_web' <<<"$linked"; then
  echo "$program links a browser"
  fault=1
fi
# Into a variable first: a grep that ends at its first find would break the pipe under ldd, and so fail the whole.
needed=$(ldd "$library") || exit 1
if ! grep -q WebEngine <<<"$needed"; then
  echo "$library links no browser: what is checked here is no longer where the browser is"
  fault=1
fi
exported=$(nm -D --defined-only "$library" | awk '$2 == "T" { print $3 }' | grep -v '^_\(init\|fini\)$')
if [ "$exported" != OmniWebMakePages ]; then
  echo "$library shows more or less than its one function:" $exported
  fault=1
fi
exit $fault
