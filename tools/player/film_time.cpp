// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_time.h"

#include <QRegularExpression>
#include <QTime>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The time of day as the locale writes it, without the half of the day and the zone, which a film does not have. Only
// films longer than an hour are shown so; wanted as it is, the shorter ones look the same everywhere.
QString NotationOf(const QLocale& locale) {
  QString notation = locale.timeFormat(QLocale::LongFormat);
  static const QRegularExpression rest(u"[\\s\\x{202f}(]*\\b(AP|ap|A|a|t+)\\b[\\s)]*"_s);
  return notation.remove(rest).replace(u"hh"_s, u"h"_s).replace(u'h', u'H').trimmed();
}

}  // namespace

QString FilmTime(std::chrono::milliseconds time, std::chrono::milliseconds length, const QLocale& locale) {
  const QTime shown = QTime(0, 0).addMSecs(static_cast<int>(time.count() % (24h / 1ms)));
  return shown.toString(length > 1h ? NotationOf(locale) : u"h:mm:ss"_s);
}
