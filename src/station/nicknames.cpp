// SPDX-License-Identifier: GPL-3.0-or-later
#include "station/nicknames.h"

#include <QFileInfo>

#include "platform/paths.h"
#include "platform/text/delimited_fields.h"
#include "platform/text/text_file.h"

using namespace Qt::StringLiterals;

NicknameList ReadNicknames(const QString& appDataDir) {
  const QString path = ResolvePath(appDataDir, u"nicknames.txt"_s);
  if (!QFileInfo::exists(path)) return {};
  const std::optional<QString> text = ReadTextFile(path);
  if (!text) return {{}, true};
  return {SplitFields(*text), false};
}

bool WriteNicknames(const QString& appDataDir, const NicknameList& nicknames) {
  if (nicknames.Unreadable) return false;
  return WriteTextLines(ResolvePath(appDataDir, u"Nicknames.txt"_s), nicknames.lstNicknames);
}

std::optional<QString> Nickname(const QStringList& lstNicknames, const QString& call) {
  if (call.isEmpty()) return {};
  for (const QString& row : lstNicknames) {
    if (!row.startsWith(call, Qt::CaseInsensitive)) continue;
    const QStringList fields = row.split(u'*');
    return fields.size() > 1 ? std::optional<QString>(fields[1]) : std::nullopt;
  }
  return {};
}

QString WholeNickname(const QStringList& lstNicknames, const QString& call) {
  if (call.isEmpty()) return {};
  for (const QString& row : lstNicknames) {
    const QStringList fields = row.split(u'*');
    if (fields.size() > 1 && fields[0].compare(call, Qt::CaseInsensitive) == 0) return fields[1];
  }
  return {};
}

void SetNickname(QStringList& lstNicknames, const QString& call, const QString& nickname) {
  if (call.isEmpty()) return;
  lstNicknames.removeIf(
      [&call](const QString& row) { return row.section(u'*', 0, 0).compare(call, Qt::CaseInsensitive) == 0; });
  if (!nickname.isEmpty()) lstNicknames.append(call + u'*' + nickname);
}
