// SPDX-License-Identifier: GPL-3.0-or-later
// Names and order of the pages: what becomes of labels, of the places in every layout, and of a page's files.
#include <QDir>
#include <numeric>

#include "page_fixture.h"
#include "sites/page_mover.h"

class TestPageOrder : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Default labels number the pages from the top; the user's own labels move with their pages.
  void NumbersDefaultLabelsAnew() {
    Program program;
    program.language.lines[static_cast<std::size_t>(TextLine::kPageWord)] = u"Page "_s;
    program.PageLabels = QStringList{QString()};
    for (int page = 1; page <= 20; ++page) program.PageLabels.append(u"Page %1"_s.arg(page));
    PageOrder order(program);
    order.Rename(0, u"Europe"_s);
    order.Rename(4, u"My Page of friends"_s);
    order.Rename(6, u"  "_s);
    order.SwapPages(0, 1);
    order.SwapPages(1, 2);
    QCOMPARE(order.PageBefore().mid(0, 5), (QList<int>{0, 2, 3, 1, 4}));
    QCOMPARE(order.Labels().first(7),
             (QStringList{u"Page 1"_s, u"Page 2"_s, u"Europe"_s, u"Page 4"_s, u"Page 5"_s, u"Page 6"_s, u"Page 7"_s}));
    QVERIFY(order.IsMoved());
    order.Applied();
    QVERIFY(!order.IsMoved());
  }

  // A token that is no place stays as the list has it.
  void MovesThePlacesOfAllLayouts() {
    SiteRec site;
    site.PageSlots = {u""_s, u"0101:0336"_s, u"0201"_s, u""_s, u"9901:0135"_s, u"2001"_s, u"0"_s};
    QList<int> pageBefore(21);
    std::iota(pageBefore.begin(), pageBefore.end(), 0);
    pageBefore.move(20, 1);  // page 20 goes to the top
    MovePlaces(site, pageBefore);
    const std::array<QString, 7> moved{u""_s, u"0201:0436"_s, u"0301"_s, u""_s, u"9901:0235"_s, u"0101"_s, u"0"_s};
    QCOMPARE(site.PageSlots, moved);
  }

  // Pictures, thumbs and heights stand under the new numbers, a picture that was on its way is stored nowhere, and the
  // other pages keep what they have.
  void MovesThePicturesOfAPage() {
    PageFixture f;
    f.AddSite(u"ZZ1AA"_s, 1, 2);
    f.AddSite(u"ZZ2BB"_s, 2, 2);
    f.AddSite(u"ZZ3CC"_s, 3, 0);
    f.AddSite(u"ZZ4DD"_s, 1, 5);
    f.program.PageLabels = QStringList(22, u"Page 1"_s);
    f.Start();
    for (int page = 1; page <= 3; ++page) {
      const int slot = page == 3 ? 0 : 2;
      f.folder.Put(PageFixture::PictureName(page, slot), "picture " + QByteArray::number(page));
      f.folder.Put(u"images/dsstv/thumbs/%1-%2.jpg"_s.arg(page).arg(slot + 1), "thumb " + QByteArray::number(page));
      f.logic->heights.SetHeight(page, slot, 100 * page);
    }
    std::optional<FilesVerdict> verdict;
    f.logic->files.Take({1, 5, f.program.sites.FindCall(u"ZZ4DD"_s)}, PlainPicture("late"),
                        [&verdict](FilesVerdict ended, const QString&) { verdict = ended; });
    PageOrder order(f.program);
    order.SwapPages(0, 1);
    bool done = false;
    f.logic->mover.Apply(order, this, [&done](bool moved, const QStringList&) { done = moved; });
    QTRY_VERIFY(done && verdict.has_value());
    f.logic->poll.Timer5.stop();
    QCOMPARE(*verdict, FilesVerdict::GivenUp);
    const SiteTable& sites = f.program.sites;
    QCOMPARE(sites.GetSiteSlot(sites.FindCall(u"ZZ1AA"_s), 2), 3);
    QCOMPARE(sites.GetSiteSlot(sites.FindCall(u"ZZ2BB"_s), 1), 3);
    QCOMPARE(QDir(f.folder.filePath(u"images/dsstv"_s)).entryList({u"*-*"_s}, QDir::Files | QDir::Hidden),
             (QStringList{u"1-3"_s, u"2-3"_s, u"3-1"_s}));
    QCOMPARE(f.folder.Bytes(u"images/dsstv/2-3"_s), "picture 1"_ba);
    QCOMPARE(f.folder.Bytes(u"images/dsstv/1-3"_s), "picture 2"_ba);
    QCOMPARE(f.folder.Bytes(u"images/dsstv/thumbs/2-3.jpg"_s), "thumb 1"_ba);
    QCOMPARE(f.folder.Bytes(u"images/dsstv/3-1"_s), "picture 3"_ba);
    QCOMPARE(f.logic->heights.Height(2, 2), 100);
    QCOMPARE(f.logic->heights.Height(1, 2), 200);
    QCOMPARE(f.logic->heights.Height(3, 0), 300);
    // A folder stands in the way of the last file: those that have moved already go back, and nothing has changed.
    QVERIFY(QFile::remove(f.folder.filePath(u"images/dsstv/thumbs/1-3.jpg"_s)));
    f.folder.PutFolder(u"images/dsstv/thumbs/1-3.jpg/inside"_s);
    std::optional<bool> moved;
    PageOrder again(f.program);
    again.SwapPages(0, 1);
    f.logic->mover.Apply(again, this, [&moved](bool allMoved, const QStringList&) { moved = allMoved; });
    QTRY_VERIFY(moved.has_value());
    QVERIFY(!*moved);
    QCOMPARE(f.folder.Bytes(u"images/dsstv/2-3"_s), "picture 1"_ba);
    QCOMPARE(f.folder.Bytes(u"images/dsstv/thumbs/2-3.jpg"_s), "thumb 1"_ba);
    QCOMPARE(f.logic->heights.Height(2, 2), 100);
    QCOMPARE(sites.GetSiteSlot(sites.FindCall(u"ZZ1AA"_s), 2), 3);
  }
};

OMNI_TEST(TestPageOrder)
#include "test_page_order.moc"
