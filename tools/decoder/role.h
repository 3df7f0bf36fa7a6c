// SPDX-License-Identifier: GPL-3.0-or-later
// The interface of a role of the helper. main holds the table of roles, chooses one by its argument and does what all
// of them have in common: the sandbox, the frames, the end.
#pragma once

#include <QByteArray>

// Where a role writes its answer: standard output.
class RoleOutput {
 public:
  // False once the program has gone; the role then gives up.
  bool Write(const QByteArray& bytes) { return Write(bytes.constData(), bytes.size()); }
  bool Write(const void* data, qint64 count);
};

// One job of a role as it came.
struct RoleJob {
  QByteArray line;  // with its LF
  QByteArray body;
  bool sandboxed = false;  // false: the role answers that there is no sandbox, and reads nothing
};

// A row of the table of roles.
struct Role {
  const char* name;      // as the helper's argument says it
  quint64 addressSpace;  // bytes
  qint64 mostBody;       // bytes of a job's body; more ends the process
  // Runs before the sandbox is entered, so that the role's libraries load and open there whatever they load or open at
  // first use.
  void (*prepare)();
  // Writes exactly one frame. False where the job breaks the role's protocol or nobody reads any more: the process
  // ends.
  bool (*answer)(const RoleJob& job, RoleOutput& output);
};
