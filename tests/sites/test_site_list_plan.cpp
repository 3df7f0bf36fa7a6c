// SPDX-License-Identifier: GPL-3.0-or-later
// The author's list: what of a file is used, what it would change, and what becomes of the user's sites.
#include "author_pages.h"
#include "sites/site_list_plan.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

const QDate kToday(2026, 11, 22);
const QString kUrl = u"http://a.example.net/image1"_s;

SiteRec Site(const QString& call, const QString& url = kUrl, double lat = 1, double lon = 2, const QString& cam = {}) {
  SiteRec site;
  site.Call = call;
  site.Url = url;
  site.Lat = lat;
  site.Lon = lon;
  site.CamUrl = cam;
  return site;
}

AuthorSite Listed(const QString& call, const QString& cam = {}) {
  return {call, kUrl, u"1"_s, u"2"_s, cam};
}

std::optional<GivenPlace> InDatabase(const QString& call) {
  return call.startsWith(u"DB"_s) ? std::optional(GivenPlace{true, 1.2345678901234, 2}) : std::nullopt;
}

SiteListPlan PlanOf(const AuthorList& list, const QList<SiteRec>& sites) {
  const std::optional<UpdateFile> file = ReadUpdateFile(UpdatesFile(list), kToday);
  return file ? PlanSiteListChanges(*file, sites, InDatabase, {}) : SiteListPlan();
}

// All that Form6 shows, list by list.
QStringList Shown(const SiteListPlan& plan) {
  QStringList shown;
  for (const SiteAddition& row : plan.additions) shown << u"+ "_s + row.Text();
  for (const SiteRemoval& row : plan.removals) shown << u"- "_s + row.Text();
  for (const ChangedCall& row : plan.calls) shown << u"= "_s + ChangedCallText(row);
  for (const QString& row : plan.log) shown << u". "_s + row;
  return shown;
}

}  // namespace

class TestSiteListPlan : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TakesOnlyWholeAndFreshFiles() {
    const auto reads = [](const char* what, const QByteArray& file, bool wanted) {
      const TableRow row(what);
      QCOMPARE(ReadUpdateFile(file, kToday).has_value(), wanted);
    };
    AuthorList list{kToday.addDays(-30), {}, {}, {Listed(u"AB1C"_s)}};
    const QByteArray good = UpdatesFile(list);
    reads("30 days old", good, true);
    reads("a byte more", good + 'x', false);
    reads("a byte less", good.chopped(1), false);
    reads("nothing", {}, false);
    list.date = kToday.addDays(-31);
    reads("31 days old", UpdatesFile(list), false);
    list.date = kToday.addDays(3);
    reads("from tomorrow", UpdatesFile(list), true);
    list.sites.clear();
    reads("no site at all", UpdatesFile(list), false);
    for (int i = 0; i < 5000; ++i) list.sites.push_back(Listed(u"AB%1"_s.arg(i)));
    reads("5,000 sites", UpdatesFile(list), true);
    list.sites.push_back(Listed(u"ZZ9"_s));
    reads("5,001 sites", UpdatesFile(list), false);
    QByteArray text = "67108864*11/22/2026\r\n/////5\r\n";
    reads("64 MiB of line ends", text + QByteArray((64 << 20) - text.size(), '\n'), false);
    text += "1\r\n/////5\r\n2\r\n/////5\r\n3\r\n/////5\r\n4\r\n/////5\r\n5\r\n/////5\r\n";
    reads("64 MiB of stars", text + QByteArray((64 << 20) - text.size(), '*'), false);
    reads("binary", QByteArray(1 << 20, '\xfe'), false);
  }

  void SaysWhatWouldChange() {
    const QList<SiteRec> sites{Site(u"AB1C"_s), Site(u"CD2E"_s, u"NoDelete"_s + kUrl + u"x"_s),
                               Site(u"EF3G"_s, kUrl, 1, 2, u"http://a/cam"_s)};
    const auto shows = [&sites](const char* what, const AuthorSite& changed, const QStringList& wanted,
                                const AuthorList& more = {}) {
      const TableRow row(what);
      AuthorList list = more;
      list.date = kToday;
      for (const AuthorSite& site : {Listed(u"AB1C"_s), Listed(u"CD2E"_s), Listed(u"EF3G"_s, u"http://a/cam"_s)}) {
        if (site.call.compare(changed.call.trimmed(), Qt::CaseInsensitive) != 0) list.sites.push_back(site);
      }
      if (!changed.call.startsWith(u'-')) list.sites.push_back(changed);
      if (changed.call.startsWith(u'-'))
        std::erase_if(list.sites, [](const AuthorSite& site) { return site.call == "AB1C"_L1; });
      QCOMPARE(Shown(PlanOf(list, sites)), wanted);
    };
    const QString url = u"http://b.example.net/image1"_s;
    shows("nothing", Listed(u"ab1c "_s), {});
    shows("a new site", {u" GH4\u00d8 "_s, url, u"3.5"_s, u"4,25"_s}, {u"+ GH40   "_s + url + u"   3.5   4.25   "_s});
    shows("a new cam", Listed(u"AB1C"_s, url), {u"+ AB1C (Cam)   "_s + url});
    shows("another cam", Listed(u"EF3G"_s, url), {u". EF3G   http://a/cam to "_s + url});
    shows("no cam", Listed(u"EF3G"_s), {u". EF3G cam removed"_s});
    shows("another address", {u"AB1C"_s, url, u"1"_s, u"2"_s}, {u". AB1C   "_s + kUrl + u" to "_s + url});
    shows("another address of a kept site", {u"CD2E"_s, url, u"1"_s, u"2"_s}, {});
    shows("another place", {u"AB1C"_s, kUrl, u"1.5"_s, u"-2"_s}, {u". AB1C   Changed coordinates to 1.5 , -2"_s});
    shows("no place", {u"AB1C"_s, kUrl, {}, {}}, {});
    shows("gone", Listed(u"-"_s), {u"- AB1C   "_s + kUrl});
    for (const AuthorSite& bad :
         {AuthorSite{u"AB1C"_s, u"ftp://a/b"_s, u"1"_s, u"2"_s}, AuthorSite{u"AB1C"_s, url, u"91"_s, u"2"_s},
          AuthorSite{u"AB1C"_s, url, u"north"_s, u"2"_s},
          AuthorSite{u"AB1C"_s, url, u"1"_s, u"2"_s, u"file:///etc/passwd"_s}}) {
      shows("an unusable line is listed all the same", bad, {});
    }
    shows("a call that is no longer listed takes the site along", Listed(u"-"_s), {u"= AB1C changed to XY9Z"_s},
          {kToday, {}, {u"AB1C*XY9Z"_s, u"QQ1Q*QQ2Q"_s, u"EF3G*CD2E"_s}, {Listed(u"XY9Z"_s)}});
    shows("the database", Listed(u"AB1C"_s), {u". DB2   Changed coordinates in DB to 1.25 , 2"_s},
          {kToday,
           {{u"DB1"_s, {}, u"1.234567890123456"_s, u"2"_s},
            {u"DB2"_s, {}, u"1.25"_s, u"2"_s},
            {u"DB3"_s, {}, u"0"_s, u"0"_s},
            {u"DB4"_s, {}, u"0"_s, u"2.5"_s},
            {u"AB1C"_s, {}, u"5"_s, u"5"_s}},
           {},
           {}});
  }

  void CarriesThePlanOut() {
    QList<SiteRec> sites{Site(u"AB1C"_s), Site(u"CD2E"_s), Site(u"EF3G"_s, kUrl, 1, 2, u"http://a/cam"_s),
                         Site(u"GH4I"_s), Site(u"KK5K"_s)};
    sites[3].PageSlots[2] = u"0102"_s;
    const AuthorList list{kToday,
                          {},
                          {u"GH4I*GH4X"_s},
                          {{u"EF3G"_s, u"http://b/image1"_s, u"7"_s, u"8"_s},
                           Listed(u"GH4X"_s),
                           Listed(u"KK5K"_s, u"http://k/cam"_s),
                           Listed(u"NEW1"_s)}};
    const SiteListPlan plan = PlanOf(list, sites);
    QCOMPARE(RemovedCalls(plan, {}), (QStringList{u"AB1C"_s, u"CD2E"_s}));
    TableEdit edit(sites);
    ApplyPlan(plan, {1}, edit);
    std::vector<int> former;
    QStringList left;
    for (const SiteRec& site : edit.Left(former)) {
      left << QStringList{site.Call, site.Url, QString::number(site.Lat), site.CamUrl, site.PageSlots[2]}.join(u'|');
    }
    QCOMPARE(left, (QStringList{u"CD2E|NoDelete"_s + kUrl + u"|1||"_s, u"EF3G|http://b/image1|7||"_s,
                                u"GH4X|"_s + kUrl + u"|1||0102"_s, u"KK5K|"_s + kUrl + u"|1|http://k/cam|"_s,
                                u"NEW1|"_s + kUrl + u"|1||"_s}));
  }
};

OMNI_TEST(TestSiteListPlan)
#include "test_site_list_plan.moc"
