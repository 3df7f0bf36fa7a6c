// SPDX-License-Identifier: GPL-3.0-or-later
// What one role of the helper is. main holds the table of roles, chooses by the argument and does what all of them have
// in common: the sandbox, the frames, the end.
#pragma once

#include <QByteArray>

// Where a role writes its answer: the other end of standard output.
class RoleOutput {
 public:
  // False once the program has gone; nothing is worth doing then.
  bool Write(const QByteArray& bytes) { return Write(bytes.constData(), bytes.size()); }
  bool Write(const void* data, qint64 count);
};

// One job of a role as it came.
struct RoleJob {
  QByteArray line;  // with its LF
  QByteArray body;
  bool sandboxed = false;  // where it is not, the role answers that it is not and looks at nothing
};

// A row of the table of roles.
struct Role {
  const char* name;      // as the helper's argument says it
  quint64 addressSpace;  // bytes
  qint64 mostBody;       // bytes of a job's body; more ends the process
  // Runs before the sandbox: whatever the role's libraries load or open at first use is loaded and opened here.
  void (*prepare)();
  // Writes exactly one frame. False where the job breaks the role's protocol or nobody reads any more: the process
  // ends.
  bool (*answer)(const RoleJob& job, RoleOutput& output);
};
