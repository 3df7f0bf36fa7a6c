// SPDX-License-Identifier: GPL-3.0-or-later
// The order of the call database's records, in memory: sort keys of calls, the place of an added record, and the
// sorting itself. Only the database calls it.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>
#include <vector>

// Negative, 0 or positive, by plain comparison of bytes; a text is smaller than a longer one that begins with it.
int CompareBytes(QByteArrayView a, QByteArrayView b);

// Appends a sort key for each whole record; keys compare as the trimmed calls do.
void AppendCallKeys(QByteArrayView records, std::vector<quint64>& keys);
// Index at which the last record belongs, if all others are in order and no call is there twice; otherwise nothing.
std::optional<qsizetype> PlaceOfLast(const std::vector<quint64>& keys);
// The records sorted by key. Records of one call come in the order in which the comb sort of earlier versions left
// them.
QByteArray SortRecords(QByteArrayView records, std::vector<quint64> keys);
