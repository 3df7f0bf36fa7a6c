// SPDX-License-Identifier: GPL-3.0-or-later
// Takes from the process what decoding never needs: the network, other programs, and every place to write but one
// folder. Called once, by the tool's main, before the first picture is looked at.
#pragma once

#include <QString>

struct SandboxState {
  bool calls = false;  // system calls are filtered
  bool files = false;  // the kernel keeps writes within the folder
};

// Each part is used where the system offers it and left out where it does not; the result says what is in force.
// writable: the folder below which files may be written; it must exist.
SandboxState EnterSandbox(const QString& writable);
