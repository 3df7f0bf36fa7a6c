// SPDX-License-Identifier: GPL-3.0-or-later
// What may come in between the steps of a poll: answers in any order, another page, a removal, a full disk. The
// stations of these tests are silent; the answers are handed in as the download controls hand them in, in a seeded
// order.
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include "core/page_files.h"
#include "no_room.h"
#include "page_fixture.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray kTail = "AB1CD * EP snr -3 *03:15:2026 10:30";
constexpr QSize kSmall(48, 36);

// Sites whose station takes every request and never answers.
struct SilentPage : PageFixture {
  Station& silent;

  explicit SilentPage(int sites, int page = 1) : PageFixture(UrlLimits()), silent(band.AddStation(u"ZZ9ZZ"_s)) {
    silent.Misbehave({}, Behaviour::Stall);
    program.config.ThumbLayout = 5;
    for (int slot = 0; slot < sites; ++slot) {
      SiteRec site;
      site.Call = u"ZZ1%1"_s.arg(slot, 2, 10, QLatin1Char('0'));
      site.Url = silent.Base() + u"/%1/image1"_s.arg(slot);
      site.PageSlots[5] = u"%1%2"_s.arg(page, 2, 10, QLatin1Char('0')).arg(slot + 1, 2, 10, QLatin1Char('0'));
      program.sites.Sites.append(site);
      program.sites.SitePosMask.append(QString(20, u'0'));
    }
    Start();
  }

  static QString Key(int slot, int page = 1) { return PictureKey{page, slot, slot}.Text(); }
  void Marker(int slot, int height = 300) const {
    Q_EMIT logic->ucCkNew1.PictureReady(QString::number(slot), QSize(2, height));
  }
  void Body(int slot, const QByteArray& body, int page = 1) const {
    Q_EMIT logic->ucDnLoad.PictureReady(Key(slot, page), body);
  }
  void Failure(int slot) const { Q_EMIT logic->ucDnLoad.NoImage(Key(slot)); }
  bool HasFile(int page, int slot) const { return QFile::exists(Picture(page, slot)); }
};

QByteArray GoodBody() {
  static const QByteArray body = PlainPicture(kTail, kSmall);
  return body;
}

}  // namespace

class TestPollAnswers : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EndsWhateverFails_data() {
    QTest::addColumn<int>("failing");
    QTest::addColumn<quint32>("seed");
    for (const int failing : {0, 1, 2, 35}) {
      for (quint32 seed = 1; seed <= 6; ++seed) {
        QTest::addRow("%d failing, order %u", failing, seed) << failing << seed;
      }
    }
  }

  // Each slot's marker comes before its picture; beyond that any answer may be the next, with or without a turn of the
  // event loop between two of them.
  void EndsWhateverFails() {
    QFETCH(int, failing);
    QFETCH(quint32, seed);
    constexpr int kSites = 35;
    SilentPage f(kSites);
    QRandomGenerator random(seed);
    f.logic->poll.FirstPoll();
    QCOMPARE(f.program.page.SitesOnPage, kSites);
    QList<int> slots;
    for (int slot = 0; slot < kSites; ++slot) slots.append(slot);
    std::shuffle(slots.begin(), slots.end(), random);
    const QSet<int> bad(slots.cbegin(), slots.cbegin() + failing);
    QSet<int> unchanged;  // a third of the others answers by its marker alone
    for (const int slot : slots.sliced(failing)) {
      if (random.bounded(3) == 0) unchanged.insert(slot);
    }
    QList<int> next = slots + slots;
    std::shuffle(next.begin(), next.end(), random);
    QSet<int> checked;
    for (const int slot : std::as_const(next)) {
      const bool first = !checked.contains(slot);
      checked.insert(slot);
      if (first) {
        if (unchanged.contains(slot)) f.program.page.Field(slot, LastHeight) = u"300"_s;
        f.Marker(slot);
      } else if (bad.contains(slot)) {
        const int kind = static_cast<int>(random.bounded(3));
        if (kind == 0) f.Failure(slot);
        if (kind > 0) f.Body(slot, QByteArray(kind == 1 ? 50 : 500, 'x'));
      } else if (!unchanged.contains(slot)) {
        f.Body(slot, GoodBody());
      }
      if (random.bounded(2) == 0) QCoreApplication::processEvents();
    }
    QTRY_VERIFY(!f.logic->poll.Busy());
    // The told counts: a slot that fails counts twice.
    QTRY_COMPARE(f.program.page.SitesDone, kSites + failing);
    QVERIFY(f.logic->poll.tmrIfAllDone.isActive());
    for (int slot = 0; slot < kSites; ++slot) {
      if (bad.contains(slot)) QVERIFY(f.CellOf(slot).errorBox);
      if (!bad.contains(slot) && !unchanged.contains(slot)) QVERIFY(f.HasPicture(slot));
    }
  }
};

OMNI_TEST(TestPollAnswers)
#include "test_poll_answers.moc"
