// SPDX-License-Identifier: GPL-3.0-or-later
// The nicknames that a user keeps for stations, "CALL*Nickname" a row. Read at the end of the start-up, searched by
// whoever shows a station's name, written back at closing.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

struct NicknameList {
  QStringList lstNicknames;
  bool Unreadable = false;  // the file is there but could not be read; it is not written over
};

// Rows of nicknames.txt in the data folder; none where the file is missing.
NicknameList ReadNicknames(const QString& appDataDir);
// Writes every row, also where there was no file before. False: the old file stands, by choice or by failure.
bool WriteNicknames(const QString& appDataDir, const NicknameList& nicknames);

// Nickname in the first row that begins with the call, without regard to letter case; nothing where there is no such
// row, or where it holds no nickname. A call that begins a longer one finds that one's row.
std::optional<QString> Nickname(const QStringList& lstNicknames, const QString& call);
