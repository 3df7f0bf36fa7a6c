// SPDX-License-Identifier: GPL-3.0-or-later
// The nicknames that a user keeps for stations, "CALL*Nickname" a row. Read at the end of the start-up, searched by
// whoever shows a station's name, written back at closing.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// The rows of the file.
struct NicknameList {
  QStringList lstNicknames;
  bool Unreadable = false;  // the file exists but could not be read, and is not overwritten
};

// The rows of nicknames.txt in the data folder; empty without the file.
NicknameList ReadNicknames(const QString& appDataDir);
// Writes every row, also if there was no file before. False: the old file is unchanged, because it was unreadable or
// the writing failed.
bool WriteNicknames(const QString& appDataDir, const NicknameList& nicknames);

// The nickname in the first row that begins with the call, without regard to letter case; nothing if there is no such
// row or it has no nickname. A call that is the beginning of a longer one finds the row of that one.
std::optional<QString> Nickname(const QStringList& lstNicknames, const QString& call);
// The nickname in the row of exactly this call; empty without one. For the window that edits the nicknames, where the
// row of a longer call would be the wrong one.
QString WholeNickname(const QStringList& lstNicknames, const QString& call);
// Replaces the nickname in the row of exactly this call; an empty one removes the row. Does nothing without a call.
void SetNickname(QStringList& lstNicknames, const QString& call, const QString& nickname);
