// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_rights.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr quint64 kRun = LANDLOCK_ACCESS_FS_EXECUTE;
constexpr quint64 kReadFile = LANDLOCK_ACCESS_FS_READ_FILE;
constexpr quint64 kRead = kReadFile | LANDLOCK_ACCESS_FS_READ_DIR;
// By number, because the headers may be older than the kernel: to truncate, and to control devices.
constexpr quint64 kTruncate = 1ULL << 14;
constexpr quint64 kControl = 1ULL << 15;

// All rights that the kernel's version can refuse. Even where it is not named, the right to link or move a file into
// another folder is refused from version 2 on; the right to truncate came with version 3, that to control devices with
// version 5.
quint64 AllRights(long version) {
  quint64 rights = 13;
  if (version >= 2) rights = 14;
  if (version >= 3) rights = 15;
  if (version >= 5) rights = 16;
  return (1ULL << rights) - 1;
}

// The rights of a grant that the kernel accepts for its path: a file has no folder's rights.
quint64 RightsOf(const FileGrant& grant, bool isFolder, quint64 all) {
  quint64 rights = all;
  if (grant.right == FileGrant::Right::Read) rights = kRead;
  if (grant.right == FileGrant::Right::ReadAndRun) rights = kRead | kRun;
  if (!isFolder) rights &= kRun | kReadFile | LANDLOCK_ACCESS_FS_WRITE_FILE | kTruncate | kControl;
  return rights & all;
}

void Grant(int rules, const FileGrant& grant, quint64 all) {
  const int file = open(grant.path.constData(), O_PATH | O_CLOEXEC);
  if (file < 0) return;
  struct stat status = {};
  if (fstat(file, &status) == 0) {
    landlock_path_beneath_attr rule = {};
    rule.allowed_access = RightsOf(grant, S_ISDIR(status.st_mode), all);
    rule.parent_fd = file;
    syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
  }
  close(file);
}

}  // namespace

bool RestrictFiles(const QList<FileGrant>& grants) {
  const long version = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
  if (version < 1) return false;
  landlock_ruleset_attr attributes = {};
  attributes.handled_access_fs = AllRights(version);
  const auto rules =
      static_cast<int>(syscall(SYS_landlock_create_ruleset, &attributes, sizeof(attributes.handled_access_fs), 0));
  if (rules < 0) return false;
  for (const FileGrant& grant : grants) Grant(rules, grant, attributes.handled_access_fs);
  const bool kept = syscall(SYS_landlock_restrict_self, rules, 0) == 0;
  close(rules);
  return kept;
}
