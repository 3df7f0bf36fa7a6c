// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/site_fields.h"

#include "poll/new_image_check.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kKeepMark("NoDelete");
constexpr int kRecordStars = 4;  // a line with this many "*" and without "://" is read as the first line of a record

// A record's second line must not look like a first one; the escape means the same in an address.
QString SecondLine(const QString& url) {
  const bool looksFirst = url.count(u'*') >= kRecordStars && !url.section(u'*', 0, 0).contains("://"_L1);
  return looksFirst ? QString(url).replace(u'*', "%2A"_L1) : url;
}

}  // namespace

SiteFields FieldsOf(const SiteRec& site, SiteTableKind list) {
  if (list == SiteTableKind::Wx) return {site.Call, site.Url, 0, 0, {}, false};
  return {site.Call, PlainUrl(site.Url), site.Lat, site.Lon, site.CamUrl, site.Url.contains(kKeepMark)};
}

void WriteFields(const SiteFields& fields, SiteTableKind list, SiteRec& site) {
  const QString url = SecondLine(fields.url);
  if (list == SiteTableKind::Wx) {
    site.Call = fields.call;
    site.Url = url;
    return;
  }
  site.Call = QString(fields.call).replace(u'Ø', u'0');
  // The mark stays where it is in an address that stays as it is.
  const bool same = PlainUrl(site.Url) == url && site.Url.contains(kKeepMark) == fields.keep;
  if (!same) site.Url = fields.keep ? url + kKeepMark : url;
  site.Lat = fields.lat;
  site.Lon = fields.lon;
  site.CamUrl = fields.camUrl;
}

bool IsPolled(const QString& url) {
  return NewImageCheck::HasMarker(url);
}
