// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/site_table.h"
#include "test_suite.h"

namespace {

SiteRec Site(const QString& call, const QString& tokens = {}, const QString& url = {}) {
  SiteRec site;
  site.Call = call;
  site.Url = url;
  site.PageSlots[2] = tokens;
  return site;
}

SiteTable TableOf(const QList<SiteRec>& sites) {
  SiteTable table;
  table.Sites = sites;
  table.SortSites();
  table.BuildPageSlots(2);
  return table;
}

}  // namespace

class TestSiteTable : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void SortsByCharacterCode() {
    const auto check = [](const QString& calls, const QString& sorted) {
      SiteTable table;
      for (const QString& call : calls.split(u' ')) {
        table.Sites.append(Site(call));
        table.WxSites.append(Site(call));
      }
      table.SortSites();
      table.SortWxSites();
      QCOMPARE(table.lstCalls.join(u' '), sorted);
      for (qsizetype i = 0; i < table.lstCalls.size(); ++i) {
        QCOMPARE(table.Sites.at(i).Call, table.lstCalls.at(i));
        QCOMPARE(table.WxSites.at(i).Call, table.lstCalls.at(i));
      }
    };
    check(u"K1"_s, u"K1"_s);
    check(u"K2 K10 K1"_s, u"K1 K10 K2"_s);
    // The first of the sorted ones is a site without a call.
    check(u"a Ä Z "_s, u" Z a Ä"_s);
  }

  void PlacesEqualCallsLikeTheComb() {
    // Worked by hand: the gaps are 2 and 1; with the first, the first "B" jumps behind the second.
    SiteTable table = TableOf(
        {Site(u"B"_s, {}, u"1"_s), Site(u"B"_s, {}, u"2"_s), Site(u"A"_s, {}, u"3"_s), Site(u"B"_s, {}, u"4"_s)});
    QString urls;
    for (const SiteRec& site : table.Sites) urls += site.Url;
    QCOMPARE(urls, u"3214"_s);
  }

  void MasksTravelWithTheirSites() {
    SiteTable table = TableOf({Site(u"K3"_s, u"0103"_s), Site(u"K1"_s, u"0101"_s)});
    table.Sites.append(Site(u"K2"_s));
    table.SitePosMask.append(QString(20, u'0'));
    table.SetSiteSlot(2, 1, 2);
    table.SortSites();
    for (int site = 0; site < 3; ++site) QCOMPARE(table.GetSiteSlot(site, 1), site + 1);
  }

  void StoresTokensOfMasks() {
    const QString none(20, u'0');
    const auto check = [](const QString& tokens, const QString& mask, const QString& stored) {
      SiteTable table = TableOf({Site(u"K1AB"_s, tokens)});
      table.Sites[0].PageSlots[3] = u"0405"_s;
      QCOMPARE(table.SitePosMask.at(0), mask);
      table.StorePageSlots(2);
      QCOMPARE(table.Sites.at(0).PageSlots[2], stored);
      QCOMPARE(table.Sites.at(0).PageSlots[3], u"0405"_s);
    };
    check(u""_s, none, u""_s);
    check(u"0126"_s, u"Z"_s + none.mid(1), u"0126"_s);
    check(u"0227:0335"_s, u"0ai"_s + none.mid(3), u"0227:0335"_s);
    check(u"2036"_s, none.mid(1) + u'j', u"2036"_s);
    check(u"1001:0102:0503"_s, u"B000C0000A"_s + none.mid(10), u"0102:0503:1001"_s);
    check(u"0101:0105"_s, u"E"_s + none.mid(1), u"0105"_s);
    // Tokens that name no place are kept.
    check(u"2101:0101:0100:0137:xx:-1-1:9999"_s, u"A"_s + none.mid(1), u"0101:2101:0100:0137:xx:-1-1:9999"_s);
  }

  void TakesNoHarmFromForeignIndexes() {
    SiteTable table = TableOf({Site(u"K1AB"_s, u"0101"_s)});
    for (const int layout : {-1, 0, 7, 1000}) {
      table.StorePageSlots(layout);
      QCOMPARE(table.GetSiteSlot(0, 1), 1);
    }
    for (const int page : {-1, 0, 21, 1000}) {
      table.SetSiteSlot(0, page, 1);
      QVERIFY(table.GetSiteSlot(0, page) == 0 && table.PageIsEmpty(page));
    }
    table.SetSiteSlot(0, 2, 37);
    table.SetSiteSlot(9, 1, 1);
    QVERIFY(table.GetSiteSlot(0, 2) == 0 && table.GetSiteSlot(9, 1) == 0);
    table.BuildPageSlots(7);
    QVERIFY(table.lstThumbPos.isEmpty() && table.PageIsEmpty(1));
  }

  void FindsSlots() {
    SiteTable table =
        TableOf({Site(u"W1AA"_s, u"0101:0212"_s), Site(u"K1AB"_s, u"0110:0210"_s), Site(QString(), u"0301"_s)});
    QCOMPARE(table.lstThumbPos.join(u' '), u"01-01-002-W1AA 01-10-001-K1AB 02-10-001-K1AB 02-12-002-W1AA"_s);
    QCOMPARE(table.FindThumbPos(1, 1), u"01-01-002-W1AA"_s);
    QCOMPARE(SiteOfThumbPos(table.FindThumbPos(1, 10)), 1);
    QCOMPARE(table.FindThumbPos(1, 2) + table.FindThumbPos(21, 1), QString());
    QVERIFY(table.PageIsEmpty(3) && !table.PageIsEmpty(2));
    table.AddThumbPos(1, 5, 1);
    table.RemoveThumbPos(1, 10, 1);
    QCOMPARE(table.lstThumbPos.at(1) + table.FindThumbPos(1, 10), u"01-05-001-K1AB"_s);
    QCOMPARE(SiteOfThumbPos(QString()), -1);
  }

  void FindsCallsAfterEveryChange() {
    SiteTable table = TableOf({Site(u"K1AB"_s), Site(u"W1AA"_s), Site(u"W1AA"_s)});
    QCOMPARE(table.FindCall(u"w1aa"_s), 1);
    for (const QString& none : {u"W1A"_s, QString()}) QCOMPARE(table.FindCall(none), -1);
    table.lstCalls[0] = u"N0CALL"_s;
    QVERIFY(table.FindCall(u"K1AB"_s) == -1 && table.FindCall(u"n0call"_s) == 0);
    table.lstCalls.removeAt(0);
    QCOMPARE(table.FindCall(u"W1AA"_s), 0);
    const SiteTable copy = table;
    table.lstCalls.clear();
    QVERIFY(table.FindCall(u"W1AA"_s) == -1 && copy.FindCall(u"W1AA"_s) == 0);
  }
};

OMNI_TEST(TestSiteTable)
#include "test_site_table.moc"
