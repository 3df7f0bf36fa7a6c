// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/call_entry.h"

#include <algorithm>

#include "callbook/db_rec.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

// Bounds of the character codes that a pasted call is made of. They also admit ":" to "@" and "[" to "`"; that does no
// harm, as no cleaned call contains them, and users know the rule so.
constexpr int kFirstPasted = 48;   // "0"
constexpr int kLastPasted = 122;   // "z"
constexpr int kSlashedZero = 216;  // "Ø"

bool BelongsToPastedCall(QChar c) {
  const int code = static_cast<unsigned char>(AnsiBytes(c).at(0));
  return code >= kFirstPasted && (code <= kLastPasted || code == kSlashedZero);
}

}  // namespace

QString CutAtFirstOther(const QString& text) {
  return text.left(LeadingWord(text));
}

QString CallOfClipboard(const QString& text) {
  QString call = text.toUpper();
  call = CleanCall(call).replace(u'0', u'Ø');
  if (call.startsWith("DE "_L1)) call.remove(0, 3);
  call.truncate(std::find_if_not(call.cbegin(), call.cend(), BelongsToPastedCall) - call.cbegin());
  return call;
}

QString CallOfField(const QString& text) {
  QString copy = text;
  // Hand on the text as typed; the lookup cuts it by its own rule.
  return CleanCall(copy).isEmpty() ? QString() : text;
}

QString CallOfCaption(const QString& text, const QStringList& lstBadCalls) {
  QString call = CutAtFirstOther(text);
  if (IsBadCall(call, lstBadCalls)) return {};
  // The text may have slashed zeros, but the list of refused calls has plain ones.
  QString plain = QString(call).replace(u'Ø', u'0');
  return IsBadCall(plain, lstBadCalls) ? QString() : call;
}
