// SPDX-License-Identifier: GPL-3.0-or-later
// The order of the call database's records, in memory: the calls as numbers, where an added record belongs, and the
// order that sorting gives. Only the database calls it.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>
#include <vector>

// Below, at or above 0, by plain comparison of bytes; what begins a longer text is smaller.
int CompareBytes(QByteArrayView a, QByteArrayView b);

// One number for each whole record, which compares as its trimmed call does.
void AppendCallKeys(QByteArrayView records, std::vector<quint64>& keys);
// Index at which the last record belongs where all others stand in order and no call is there twice; nothing in any
// other case.
std::optional<qsizetype> PlaceOfLast(const std::vector<quint64>& keys);
// The records sorted, those of one call in the order that the comb sort of the file has always left them in.
QByteArray InCombOrder(QByteArrayView records, std::vector<quint64> keys);
