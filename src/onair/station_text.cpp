// SPDX-License-Identifier: GPL-3.0-or-later
#include "onair/station_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kLineEnd = "\r\n"_L1;

}  // namespace

QString StationText(const QString& shownCall, const std::optional<FoundRecord>& found) {
  if (!found) {
    return shownCall + u"   not found in database  "_s + kLineEnd +
           u"  In Omni-Perch Setup / Edit Callsign database  "_s + kLineEnd + u"  add "_s + shownCall +
           u" to database.  "_s;
  }
  const DbRec& record = found->record;
  return u"  "_s + shownCall + u"  "_s + kLineEnd + record.Name.Text() + kLineEnd + record.Add1.Text() + kLineEnd +
         record.Add2.Text() + u", "_s + record.Ctry.Text();
}
