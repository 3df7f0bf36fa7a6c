// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/station_text.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

// For lupdate, which wants a class.
struct StationWords {
  Q_DECLARE_TR_FUNCTIONS(StationWords)
};

constexpr auto kLineEnd = "\r\n"_L1;

}  // namespace

QString StationText(const QString& shownCall, const std::optional<FoundRecord>& found) {
  if (!found) {
    return shownCall + u"  "_s + StationWords::tr(" not found in database  ") + kLineEnd +
           StationWords::tr("  In Omni-Perch Setup / Edit Callsign database  ") + kLineEnd +
           StationWords::tr("  add %1 to database.  ").arg(shownCall);
  }
  const DbRec& record = found->record;
  return u"  "_s + shownCall + u"  "_s + kLineEnd + record.Name.Text() + kLineEnd + record.Add1.Text() + kLineEnd +
         record.Add2.Text() + u", "_s + record.Ctry.Text();
}
