#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Breaks each house rule once in a small tree of its own: a check that lets a fault pass, or a sound tree fail, is broken itself.
set -uo pipefail
check=$(cd "$(dirname "$0")" && pwd)/check_house.sh
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
spdx='// SPDX-License-Identifier: GPL-3.0-or-later'
failures=0

write() { # file, then its lines
  mkdir -p "$tree/$(dirname "$1")"
  printf '%s\n' "${@:2}" >"$tree/$1"
}

sound_tree() {
  rm -rf "${tree:?}"/*
  mkdir -p "$tree/tools" "$tree/scripts" "$tree/widgets"
  touch "$tree/widgets/QLabel"
  write tests/house/folders '. ' app poll page/parts page platform/net platform
  write src/platform/base.h "$spdx" '#pragma once'
  write src/platform/net/read.h "$spdx" '#pragma once' '#include "platform/base.h"'
  write src/platform/net/read.cpp "$spdx" '#include "read.h"'
  write src/platform/net/CMakeLists.txt "${spdx/\/\//#}" 'target_sources(omni_logic PRIVATE read.cpp read.h)'
  write src/poll/walk.h "$spdx" '#pragma once' '#include "platform/net/read.h"'
  write src/poll/other.h "$spdx" '#pragma once'
  write src/poll/CMakeLists.txt "${spdx/\/\//#}" 'target_sources(omni_logic PRIVATE' '  walk.h' '  other.h)'
  write src/app/window.cpp "$spdx" '#include "poll/walk.h"' '#include <QLabel>'
  write src/app/value.h "$spdx" '#pragma once' '#include "page/cell.h"'
  write src/app/CMakeLists.txt "${spdx/\/\//#}" 'target_sources(omni_windows PRIVATE window.cpp)' 'target_sources(omni_logic PRIVATE value.h)'
  write src/page/cell.h "$spdx" '#pragma once'
  write tests/poll/test_walk.cpp "$spdx" 'QTRY_VERIFY(done);' 'QTest::qWaitFor(done);'
}

expect() { # words of the fault, or nothing for a sound tree
  local said
  said=$("$check" "$tree" "$tree/widgets")
  if [ -z "$1" ] && [ -n "$said" ]; then
    echo "sound tree refused: $said"
    failures=$((failures + 1))
  elif [ -n "$1" ] && ! grep -q -- "$1" <<<"$said"; then
    echo "passed by: $1"
    failures=$((failures + 1))
  fi
}

broken() { # words of the fault, file, lines
  sound_tree
  write "${@:2}"
  expect "$1"
}

sound_tree
expect ''
broken 'poll/walk: includes app/value, whose folder stands above' src/poll/walk.h "$spdx" '#pragma once' '#include "app/value.h"'
broken 'platform/base: includes platform/net/read, whose' src/platform/base.h "$spdx" '#pragma once' '#include "platform/net/read.h"'
broken 'page/cell: includes page/parts/edge, whose' src/page/cell.h "$spdx" '#pragma once' '#include "page/parts/edge.h"'
broken 'app/value: is logic and includes the window module app/window' src/app/value.h "$spdx" '#pragma once' '#include "window.h"'
broken 'src/new: has no place' src/new/thing.h "$spdx" '#pragma once' '#include "platform/base.h"'
sound_tree
write src/poll/other.h "$spdx" '#pragma once' '#include "poll/walk.h"'
write src/poll/walk.cpp "$spdx" '#include "other.h"'
expect 'poll/walk: stands in a circle of includes'
broken 'logic knows no widgets' src/poll/walk.cpp "$spdx" '#include <QLabel>'
broken 'net/read.cpp: includes <QLabel>' src/platform/net/read.cpp "$spdx" '#include <QLabel>'
broken 'net/lost.cpp: stands in no CMakeLists' src/platform/net/lost.cpp "$spdx"
broken '451 lines' src/poll/walk.cpp "$spdx" "$(yes '//' | head -n 450)"
broken 'walk.h: does not begin with its SPDX' src/poll/walk.h '#pragma once'
broken 'CMakeLists.txt: does not begin with its SPDX' src/poll/CMakeLists.txt 'target_sources(omni_logic PRIVATE walk.h)'
broken 'no #pragma once' src/poll/walk.h "$spdx"
broken 'Gone does not stand in src/poll/walk.h' docs/names.md '| Name | Role | File |' '| `once`, `Gone` | what it was | `poll/walk.h` |'
sound_tree
write src/poll/walk.h "$spdx" '#pragma once' '// Told of here alone.'
write docs/names.md '| Name | Role | File |' '| `Told` | what a comment says | `poll/walk.h` |'
expect 'Told does not stand in'
for wait in 'QTest::qWait(50);' 'QTest::qSleep(50);' 'QThread::msleep(50);' 'QThread::sleep(1);' 'usleep(5);' \
  'std::this_thread::sleep_for(1s);'; do
  broken 'test_walk.cpp:2: a bare wait' tests/poll/test_walk.cpp "$spdx" "  $wait"
done
exit $((failures > 0))
