// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>

#include "core/site_list_file.h"
#include "no_room.h"
#include "test_folder.h"

namespace {

constexpr int kLayout = 1;

// A data folder with its lists, read and saved as the program does it.
struct Lists : TestFolder {
  SiteTable sites;
  std::unique_ptr<SiteListFile> file;

  SiteListFile& Read() {
    sites = {};
    file = std::make_unique<SiteListFile>(sites, path());
    file->ReadSiteList(kLayout);
    file->ReadWxSiteList();
    return *file;
  }
  // What a whole run of the program leaves of a list.
  QByteArray AfterARun(const QString& name) {
    Read().SaveSiteLists(kLayout);
    return Bytes(name);
  }
};

const QString kList = u"Omni-Perch.lst"_s;
const QString kWxList = u"WXsites.lst"_s;
const QByteArray kGood = "K1AB*0101:0203****0405**51.5*-0.125*1/24/2024 15:30*http://cam/1\r\nhttp://k1ab/\r\n";

}  // namespace

class TestSiteListFile : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void KeepsWhatItRead() {
    const auto check = [](const QString& name, const QByteArray& before, const QByteArray& after) {
      Lists lists;
      lists.Put(name, before);
      QCOMPARE(lists.AfterARun(name), after);
      QCOMPARE(lists.AfterARun(name), after);
    };
    const auto dsstv = [&check](const QByteArray& before, const QByteArray& after) { check(kList, before, after); };
    for (const QByteArray& kept : {kGood, "K1*******0*0***new*er\r\nu\r\n"_ba, "K1*******n/a*1.50 W**\r\nu\r\n"_ba,
                                   "K1*******0*0**\r\nhttp://a/*/*/*/*/*\r\n"_ba})
      dsstv(kept, kept);
    dsstv(QByteArray(kGood).replace("\r\n", "\n"), kGood);
    dsstv("K1\r\nu\r\n", "K1*******0*0**\r\nu\r\n");
    dsstv("K1******* 51.50*-.5**\r\nu\r\n", "K1*******51.5*-0.5**\r\nu\r\n");
    dsstv("K\xD8*******0*0**\r\nu\r\n", "K0*******0*0**\r\nu\r\n");
    dsstv("K1*******0*0**", "K1*******0*0**\r\n\r\n");
    dsstv(kGood + "\r\n \r\nK2*******0*0**\r\nu\r\n", kGood + "K2*******0*0**\r\nu\r\n");
    dsstv("K0*******0*0**\r\n" + kGood, "K0*******0*0**\r\n\r\n" + kGood);
    dsstv("http://lost/\r\n" + kGood, kGood + "http://lost/\r\n");
    dsstv(" *******0*0*x*\r\nhttp://lost/\r\n" + kGood, kGood + " *******0*0*x*\r\nhttp://lost/\r\n");
    dsstv(QByteArray(9, '\0') + "\r\n" + kGood, kGood + QByteArray(9, '\0') + "\r\n\r\n");
    dsstv("K1*******0*0**http://\xD1\x8F/\r\nu\r\n", "\xEF\xBB\xBFK1*******0*0**http://\xD1\x8F/\r\nu\r\n");
    dsstv("K1*2101:0101:abcd******0*0**\r\nu\r\n", "K1*0101:2101:abcd******0*0**\r\nu\r\n");

    const QByteArray wx = "Lake*1*2*3*4*5*6*7\r\nu\r\nPier*0*0*0*0*0*0\r\nu\r\n";
    check(kWxList, wx, wx);
    check(kWxList, "http://lost/\r\n" + wx, wx + "http://lost/\r\n");
  }

  void ReadsTheFields() {
    Lists lists;
    lists.Put(kList,
              "K2*0136******0*0*1/24/2024 15:30:59*\nu2\n" + kGood + "K3*******0*0*15:30:00*\nNoDeletehttp://k3*\n");
    (void)lists.Read();
    const QList<SiteRec>& sites = lists.sites.Sites;
    QCOMPARE(sites.size(), 3);
    const SiteRec& first = sites.at(0);
    QCOMPARE((QStringList{first.Call, first.PageSlots[5], first.CamUrl, first.Url, sites.at(1).LastSeen}.join(u'|')),
             u"K1AB|0405|http://cam/1|http://k1ab/|1/24/2024 15:30"_s);
    QCOMPARE(sites.at(2).LastSeen + PlainUrl(sites.at(2).Url), u"http://k3*"_s);
    QVERIFY(first.Lat == 51.5 && first.Lon == -0.125);
    QCOMPARE(lists.sites.lstCams, QStringList{u"K1AB*Y"_s});
    QVERIFY(lists.sites.GetSiteSlot(1, 1) == 36 && lists.sites.FindCall(u"k3"_s) == 2);
  }

  void ReadsShortWxLines() {
    Lists lists;
    lists.Put(kWxList, "A\xD8*1*2*3\nu\nB*1*2\nu\nC*1*2*3*4*\nu\nD*1*2*3*4**\nu\n");
    (void)lists.Read();
    QStringList read;
    for (const SiteRec& site : lists.sites.WxSites) {
      read += site.Call + u' ' + QStringList(site.PageSlots.begin() + 3, site.PageSlots.begin() + 7).join(u',');
    }
    QCOMPARE(read, (QStringList{u"AØ 3,0,,"_s, u"B 0,,,"_s, u"C 3,4,0,"_s, u"D 3,4,0,0"_s}));
  }

  void ConvertsTheOlderList() {
    Lists lists;
    const QByteArray old =
        "\xD8K*1s*t*aAbZq*9r*51.5*0*1/24/2024 15:30:00*http://cam\r\nu0\r\n*t*t*t*t*0*0**\r\nhttp://lost/\r\n";
    lists.Put(u"OmniPerch.lst"_s, old);
    SiteListFile file(lists.sites, lists.path());
    QVERIFY(!file.HasSiteList());
    file.ConvertOldSiteList();
    QVERIFY(file.HasSiteList());
    file.ReadSiteList(kLayout);
    QCOMPARE(lists.Bytes(kList), QByteArray("0K*0101**0210:0535*0109***51.5*0*1/24/2024 15:30*http://cam\r\nu0\r\n"
                                            "*t*t*t*t*0*0**\r\nhttp://lost/\r\n"));
    QCOMPARE(lists.Bytes(u"OmniPerch.lst"_s), old);
    QCOMPARE(lists.sites.lstCams, (QStringList{u"0K*Y"_s, u"0K*Y"_s}));
  }

  void DropsDuplicates() {
    Lists lists;
    lists.Put(kList, "B*******0*0**\nb1\nA*******0*0**\na1\nB*******0*0**\nb2\nA*******0*0**\na2\nA*******0*0**\na3\n");
    lists.Put(kWxList, "m*1*1*1*1*1*1\nz\nz*1*1*1*1*1*1\nm\nz2*1*1*1*1*1*1\nm\nself*1*1*1*1*1*1\nself\n");
    const QStringList messages = lists.Read().SaveSiteLists(kLayout).messages;
    QCOMPARE(messages.size(), 5);
    for (int i = 0; i < 3; ++i) {
      QVERIFY(messages.at(i).startsWith(u"Duplicate removed from DSSTV list\n"_s + (i < 2 ? u"A  a"_s : u"B  b"_s)));
    }
    QCOMPARE(messages.at(3), u"Duplicate removed from WX list\nz  m"_s);
    QCOMPARE(messages.at(4), u"Duplicate removed from WX list\nz2  m"_s);
    QCOMPARE(lists.Bytes(kList).count("\r\n"), 4);
    QCOMPARE(lists.Bytes(kWxList), QByteArray("m*1*1*1*1*1*1\r\nz\r\nself*1*1*1*1*1*1\r\nself\r\n"));
    QCOMPARE(lists.file->SaveSiteLists(kLayout).messages, QStringList());
  }

  void WritesBackOnlyWhatIsLeft() {
    Lists lists;
    lists.Put(kList, kGood + "K2*******n/a*n/a**\r\nu2\r\n");
    SiteListFile& file = lists.Read();
    lists.sites.Sites[0].Call.clear();
    lists.sites.Sites[1].Lat = 12.25;
    lists.sites.Sites[1].LastSeen = u"1/24/2024 15:30\r"_s;
    lists.sites.SetSiteSlot(1, 3, 27);
    file.SaveSiteLists(kLayout);
    QCOMPARE(lists.Bytes(kList), QByteArray("K2*0327******12.25*n/a*1/24/2024 15:30*\r\nu2\r\n"));
  }

  void LeavesFilesThatItMustNotTouch() {
    Lists full;
    QByteArray more;
    for (int i = 0; i < 500; ++i) {
      more += "K" + QByteArray::number(i) + "*n/a*0*0*0*0*0\r\nhttp://a-station-of-some-length/\r\n";
    }
    full.Put(kList, more);
    full.Put(kWxList, more);
    WithoutRoom([&] { return full.AfterARun(kWxList); });
    QVERIFY(full.Bytes(kList) == more && full.Bytes(kWxList) == more);

    // Something with a list's name that cannot be read as a file is left alone.
    Lists unreadable;
    unreadable.PutFolder(kWxList + u"/kept"_s);
    unreadable.PutFolder(u"OmniPerch.lst/kept"_s);
    SiteListFile file(unreadable.sites, unreadable.path());
    file.ConvertOldSiteList();
    file.ReadSiteList(kLayout);
    file.ReadWxSiteList();
    file.SaveSiteLists(kLayout);
    QVERIFY(QDir(unreadable.filePath(kWxList)).exists(u"kept"_s));
    QVERIFY2(!file.HasSiteList(), "the older list would never be tried again");
  }

  void SettlesWithAnyBytes() {
    QRandomGenerator random(11);
    const QByteArray alphabet("AK0*\r\n:/ \0\xD8\xC3\x98.h", 16);
    for (int run = 0; run < 60; ++run) {
      Lists lists;
      QByteArray bytes;
      for (int i = random.bounded(400); i > 0; --i) {
        bytes += run % 2 == 0 ? alphabet.at(random.bounded(int(alphabet.size()))) : char(random.bounded(256));
      }
      lists.Put(kList, bytes);
      lists.Put(kWxList, bytes);
      // The first run completes short WX lines; from the second run on the files must stay as they are.
      lists.AfterARun(kList);
      const QByteArray settled = lists.AfterARun(kList);
      const QByteArray settledWx = lists.Bytes(kWxList);
      QVERIFY(lists.AfterARun(kList) == settled && lists.Bytes(kWxList) == settledWx);
    }
  }

  void HundredThousandRecords() {
    Lists lists;
    QByteArray bytes;
    for (int i = 0; i < 100'000; ++i) {
      bytes += "K" + QByteArray::number(i % 60'000) + "*0101:0203******51.5*0**http://cam\r\nhttp://site/\r\n";
    }
    lists.Put(kList, bytes);
    SiteListFile& file = lists.Read();
    QCOMPARE(lists.sites.Sites.size(), 100'000);
    QCOMPARE(file.SaveSiteLists(kLayout).messages.size(), 40'000);
    QCOMPARE(lists.Bytes(kList).count('\n'), 120'000);
  }
};

OMNI_TEST(TestSiteListFile)
#include "test_site_list_file.moc"
