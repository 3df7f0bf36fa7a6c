// SPDX-License-Identifier: GPL-3.0-or-later
// Takes from the process all rights that it does not need to turn given bytes into other bytes: files, the network,
// other processes, new threads, new code. Called by the helper's main, once, after its role has loaded what it needs.
#pragma once

#include <QtGlobal>

// The parts of the sandbox that are in force.
struct SandboxState {
  bool calls = false;  // system calls are filtered; without this no job may be done
  bool files = false;  // the kernel's file rules besides, where it has them
};

// Closes every descriptor but standard input, output and error.
void CloseInherited();
// Files can be opened and threads started before this, never after it. addressSpace: bytes.
SandboxState EnterSandbox(quint64 addressSpace);
