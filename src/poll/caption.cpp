// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/caption.h"

#include <QDate>
#include <QStringList>
#include <algorithm>
#include <array>

#include "platform/text/numbers.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kDownloadTail = 60;
constexpr qsizetype kClock = 5;  // "hh:mm"

// The differences between reading a fresh download and a stored file. They look like slips, yet pictures have been
// labelled this way for years: a tail with "JT9" is no JT65 on arrival and becomes one when it is read from the disk.
struct Manner {
  QLatin1StringView jt65Word;
  bool fromDisk;
};

constexpr Manner kDownload{"JT65"_L1, false};
constexpr Manner kFile{"JT"_L1, true};

// A later hit overwrites an earlier one, so that "snr -" in an FT8 tail gives FT8.
QString ModeTagOf(const QString& tail, const Manner& manner) {
  QString tag;
  if (tail.contains("snr -"_L1)) tag = tail.contains("HYBRID"_L1) ? u"EPH"_s : u"EP"_s;
  if (tail.contains("FT4"_L1)) tag = u"FT4"_s;
  if (tail.contains("FT8"_L1)) tag = u"FT8"_s;
  if (tail.contains("JS8"_L1)) tag = u"JS8"_s;
  if (tail.contains(manner.jt65Word)) tag = u"JT65"_s;
  if (tail.contains("PSK"_L1)) tag = u"PSK"_s;
  if (tail.contains("QK"_L1)) tag = u"QKP"_s;
  return tag;
}

// Turns the blank before a number into the stroke of a call ("K7ABC 4" into "K7ABC/4"). CleanCall ends a call at the
// first blank, so that this has an effect only should CleanCall ever let a blank through.
QString StrokeForBlank(QString call) {
  const qsizetype blank = call.indexOf(u' ');
  bool numeric = false;
  if (blank >= 0) call.sliced(blank + 1).toDouble(&numeric);
  return numeric ? call.replace(u' ', u'/') : call;
}

QString CallerOf(QString field, const Manner& manner, QChar zeroGlyph) {
  if (manner.fromDisk) {
    field.replace(u'Ø', u'0');
  } else {
    field = field.trimmed().toUpper().replace(zeroGlyph, u'0');
  }
  field.remove("-HYBRID-"_L1);
  const QString call = CleanCall(field);
  return manner.fromDisk ? StrokeForBlank(call) : call;
}

// The date in the third field has ":" in place of "/".
QString SentTimeOf(const QString& field) {
  const qsizetype clock = std::max<qsizetype>(0, field.size() - kClock);
  const QString sent = NormaliseDate(field.first(clock).replace(u':', u'/') + field.sliced(clock));
  return ReadDate(sent).isValid() ? sent : QString();
}

Caption ParseTail(const QString& tail, const Manner& manner, QChar zeroGlyph) {
  Caption caption;
  caption.ModeTag = ModeTagOf(tail, manner);
  const qsizetype colon = tail.lastIndexOf(u':');
  if (colon < 0) return caption;
  caption.TimeFound = true;

  const QStringList parts = tail.left(colon + 3).split(u'*');
  caption.Caller = CallerOf(parts[0], manner, zeroGlyph);
  if (parts.size() == 1) return caption;

  caption.FromCall = ShownCall(*caption.Caller, zeroGlyph);
  const qsizetype snr = parts[1].indexOf("snr"_L1);
  if (snr >= 0) caption.ModeText = caption.ModeTag + u' ' + WithoutControls(parts[1].sliced(snr));
  if (parts.size() == 2) return caption;

  // A fresh picture without a readable time was sent just now, as far as anyone can tell: an empty SentTime lets the
  // intake put the present time. A picture from the disk keeps the time that it was given then.
  const QString sent = SentTimeOf(parts[2]);
  if (!sent.isEmpty() || !manner.fromDisk) caption.SentTime = sent;
  return caption;
}

}  // namespace

QString TailOfDownload(const QByteArray& body) {
  const QString tail = QString::fromLatin1(body.last(std::min(kDownloadTail, body.size())));
  const qsizetype stars = tail.lastIndexOf("***"_L1);
  return stars < 0 ? tail : tail.sliced(stars + 3);
}

FileTail TailOfFile(const QByteArray& last100) {
  // The last byte is always taken for text: a run of NULs that reaches it ends one place before it.
  const qsizetype run = last100.chopped(std::min<qsizetype>(1, last100.size())).lastIndexOf(QByteArray(3, '\0'));
  const qsizetype start = std::min<qsizetype>(std::max<qsizetype>(run, 0) + 3, last100.size());
  return {QString::fromLatin1(last100.sliced(start)), run >= 0};
}

Caption ParseTailFromDownload(const QString& tail, QChar zeroGlyph) {
  return ParseTail(tail, kDownload, zeroGlyph);
}

Caption ParseTailFromFile(const FileTail& tail, QChar zeroGlyph) {
  if (tail.found) return ParseTail(tail.tail, kFile, zeroGlyph);
  Caption modeOnly;
  modeOnly.ModeTag = ModeTagOf(tail.tail, kFile);
  return modeOnly;
}
