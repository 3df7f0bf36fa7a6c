// SPDX-License-Identifier: GPL-3.0-or-later
// What a cell shows: pictures of every type, error boxes, blanked calls, ages; and that a site that misbehaves costs
// its own cell and nothing else.
#include <malloc.h>

#include <QImageReader>

#include "gif_writer.h"
#include "page/page_view.h"
#include "page_fixture.h"

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer's library has it; GCC comes without the header that declares it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {

// Bytes that this process has allocated and not freed.
qint64 AllocatedBytes() {
#if defined(__SANITIZE_ADDRESS__)
  return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
  const struct mallinfo2 info = mallinfo2();
  return static_cast<qint64>(info.uordblks) + static_cast<qint64>(info.hblkhd);
#endif
}

// Frames of one colour each, 30 ms apart.
QByteArray PlainGif(int frames, QSize size) {
  QList<QImage> images;
  for (int i = 0; i < frames; ++i) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(i == 0 ? 255 : 0, i, 0));
    images.append(image);
  }
  return WriteGif(images, QList<int>(frames, 3));
}

}  // namespace

class TestThumbGrid : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ShowsEveryType() {
    const auto check = [](const char* what, PictureType type, bool animated) {
      const TableRow row(what);
      PageFixture f;
      PictureRecipe recipe;
      recipe.type = type;
      recipe.size = QSize(320, 240);
      recipe.caller = u"AB1CD"_s;
      f.AddSite(u"ZZ1AA"_s).SetPicture(MakePicture(recipe));
      f.StartAndPoll();
      QTRY_VERIFY(f.HasPicture(0));
      QCOMPARE(f.CellOf(0).animated, animated);
      QVERIFY(QFile::exists(f.Picture(1, 0)) && QFile::exists(f.Thumb(1, 0)));
      QCOMPARE(f.program.page.Field(0, Caller), u"AB1CD"_s);
      const QSize frame = f.CellOf(0).img.size().toSize();
      QVERIFY2(frame.width() >= 110 && frame.width() <= 120 && frame.height() <= 90, "a full frame");
    };
    check("JPEG", PictureType::Jpeg, false);
    check("JPEG 2000", PictureType::Jp2, false);
    check("bare codestream", PictureType::J2kCodestream, false);
    check("PNG", PictureType::Png, false);
    check("BMP", PictureType::Bmp, false);
    check("GIF", PictureType::Gif, false);
    check("GIF that plays", PictureType::AnimatedGif, true);
    check("video", PictureType::Mp4, false);
  }

  void SurvivesMisbehaviour() {
    const auto check = [](const char* what, Behaviour behaviour, bool shows) {
      const TableRow row(what);
      PageFixture f;
      Station& bad = f.AddSite(u"ZZ1AA"_s, 1, 0);
      f.AddSite(u"ZZ2BB"_s, 1, 1);
      bad.Misbehave(u"image1"_s, behaviour);
      f.StartAndPoll();
      QTRY_VERIFY(f.HasPicture(1));
      QTRY_VERIFY_WITH_TIMEOUT(shows ? f.HasPicture(0) : f.CellOf(0).errorBox, 8000);
      QCOMPARE(f.program.page.Field(0, Caller) == u"Not found", !shows);
      QVERIFY(f.HasPicture(1));
      // A marker that fails in the same way has the picture asked for instead.
      bad.Misbehave(u"image1"_s, Behaviour::Normal);
      bad.Misbehave(u"checknew.jpg"_s, behaviour);
      const int asked = bad.Requests(u"image1"_s);
      if (behaviour == Behaviour::Refuse) return;
      f.logic->poll.RefreshClick();
      if (!shows) QTRY_COMPARE_WITH_TIMEOUT(bad.Requests(u"image1"_s), asked + 1, 8000);
      if (!shows) QTRY_VERIFY(f.HasPicture(0));
      if (shows) QTRY_VERIFY(!f.logic->poll.Busy());
    };
    check("error page", Behaviour::NotFound, false);
    check("server error", Behaviour::ServerError, false);
    check("empty body", Behaviour::EmptyBody, false);
    check("short body", Behaviour::ShortBody, false);
    check("truncated picture", Behaviour::Truncated, true);
    check("endless body", Behaviour::Endless, false);
    check("stall", Behaviour::Stall, false);
    check("stall in the body", Behaviour::StallMidBody, false);
    check("drip", Behaviour::Drip, false);
    check("reset", Behaviour::Reset, false);
    check("refused", Behaviour::Refuse, false);
    check("redirect loop", Behaviour::RedirectLoop, false);
    check("redirect out of http", Behaviour::RedirectToFile, false);
    check("redirect", Behaviour::RedirectOk, true);
    check("page instead of a picture", Behaviour::WrongType, false);
    check("60000 by 60000 pixels", Behaviour::Bomb, false);
    check("garbage", Behaviour::GarbageBody, false);
  }

  void TakesTailsOfAnyBytes() {
    PageFixture f;
    Station& station = f.AddSite(u"ZZ1AA"_s);
    QByteArray picture = PlainPicture({});
    quint32 random = 12345;
    f.Start();
    for (int round = 0; round < 12; ++round) {
      QByteArray body = picture;
      for (qsizetype i = body.size() - 60; i < body.size(); ++i) {
        random = random * 1664525 + 1013904223;
        body[i] = static_cast<char>(round % 3 == 0 ? "*:\r\n\0snr -"[(random >> 16) % 10] : random >> 24);
      }
      station.SetPicture(body);
      f.logic->poll.ReloadPage();
      QTRY_VERIFY(!f.logic->poll.Busy());
      QTRY_VERIFY(f.HasPicture(0) || f.CellOf(0).errorBox);
      for (const QString& text : {f.program.sites.Sites.at(0).LastSeen, f.program.page.Field(0, SentTime)}) {
        QVERIFY2(!text.contains(u'\r') && !text.contains(u'\n') && !text.contains(u'*'), qPrintable(text));
      }
    }
  }

  void JudgesBodies() {
    const auto check = [](const char* what, const QByteArray& body, bool stored, const QString& line) {
      const TableRow row(what);
      PageFixture f;
      f.AddSite(u"ZZ1AA"_s).SetPicture(body);
      f.Start();
      f.folder.Put(f.PictureName(1, 0), PlainPicture("AB1CD * EP snr -3 *03:15:2026 10:30"));
      f.logic->poll.ReloadPage();
      QTRY_VERIFY(f.CellOf(0).errorBox);
      QCOMPARE(f.BoxSecond(0), line);
      QCOMPARE(QFile::exists(f.Picture(1, 0)), stored);
    };
    check("100 bytes", QByteArray(100, 'x'), false, u"Not found"_s);
    check("101 bytes", QByteArray(101, 'x'), true, u"Picture corrupt"_s);
    check("a page that says 404", QByteArray("<html>404") + QByteArray(500, ' '), false, u"Not found"_s);
    check("404 and no page", QByteArray("404") + QByteArray(5000, ' '), true, u"Picture corrupt"_s);
  }

  void BlanksCallers() {
    PageFixture f;
    f.program.lstBadCalls = QStringList{u"N0CALL"_s};
    f.program.lstBlock = QStringList{u"B1Ø"_s};
    f.AddSite(u"ZZ1AA"_s, 1, 0).SetPicture(PlainPicture("AB10CD * EP snr -3 *03:15:2026 10:30"));
    f.AddSite(u"ZZ2BB"_s, 1, 1).SetPicture(PlainPicture("N0CALL * EP snr -3 *03:15:2026 10:30"));
    f.AddSite(u"ZZ3CC"_s, 1, 2).SetPicture(PlainPicture("AB2CD * EP snr -3 *03:15:2026 10:30"));
    f.StartAndPoll();
    for (int start = 0; start < 2; ++start) {
      QTRY_VERIFY(f.CellOf(0).errorBox && f.CellOf(1).errorBox && f.HasPicture(2));
      QCOMPARE(f.BoxFirst(0) + f.BoxSecond(0) + f.BoxFirst(1), u"Blocked callAB10CDIllegal callsign"_s);
      QVERIFY2(QFile::exists(f.Picture(1, 0)), "the picture's file stays");
      // They stay blanked when the next start shows them from the disk.
      if (start == 0) {
        QVERIFY(f.logic->heights.Write(f.program.AppDataDir));
        f.StartAndPoll();
      }
    }
  }

  void ColoursByAge() {
    const auto check = [](const char* what, const QString& sent, const QString& caption, CellColour colour,
                          const QString& captionOfError, CellColour colourOfError) {
      const TableRow row(what);
      PageFixture f;
      f.AddSite(u"ZZ1AA"_s);
      f.program.UtcOffsetHours = -2;
      f.Start();
      f.logic->grid.SetSite(0, u"ZZ1AA"_s);
      f.logic->grid.SetOnAir(0, true);
      f.program.page.Field(0, SlotCall) = u"ZZ1AA"_s;
      f.program.page.Field(0, SentTime) = sent;
      f.logic->grid.ColourByAge(0);
      QVERIFY(f.CellOf(0).lblCall == caption && f.CellOf(0).Shape1 == colour);

      f.logic->grid.ClearThumbs();
      f.logic->grid.SetSite(0, u"ZZ1AA"_s);
      f.logic->grid.SetOnAir(0, true);
      f.program.sites.Sites[0].LastSeen = sent;
      f.logic->grid.ShowNotFound(0, 0, false);
      QVERIFY(f.CellOf(0).lblCall == captionOfError && f.CellOf(0).Shape1 == colourOfError);
    };
    using enum CellColour;
    // The clock says 3/15/2026 12:00 local, two hours ahead of UTC. In the error box the on-air colour gives way from
    // one day on.
    check("today", u"3/15/2026 09:30"_s, u"ZZ1AA"_s, OnAir, u"ZZ1AA"_s, OnAir);
    check("one day", u"3/14/2026 10:00"_s, u"ZZ1AA"_s, OnAir, u"ZZ1AA - 1 day"_s, Window);
    check("a minute short of a day", u"3/14/2026 10:01"_s, u"ZZ1AA"_s, OnAir, u"ZZ1AA"_s, OnAir);
    check("two days", u"3/13/2026 10:00"_s, u"ZZ1AA - 2 days"_s, OnAir, u"ZZ1AA - 2 days"_s, Window);
    check("30 days", u"2/13/2026 10:00"_s, u"ZZ1AA - 30 days"_s, OnAir, u"ZZ1AA - 30 days"_s, Window);
    check("31 days", u"2/12/2026 10:00"_s, u"ZZ1AA - 31 days"_s, Stale, u"ZZ1AA - 31 days"_s, Stale);
    check("no date", u"soon"_s, u"ZZ1AA"_s, OnAir, u"ZZ1AA"_s, OnAir);
  }

  // The largest animations give way, in time and not in length; what is left out is out of memory, too.
  void AnimationsShareOneBudget() {
    constexpr int kSlots = 6;  // four large animations, a small one and a still
    constexpr int kFrames = 64;
    constexpr QSize kSize(220, 160);
    constexpr qint64 kMiB = 1024LL * 1024;
    PageFixture f;
    PictureCells cells(f.tool);
    cells.MakeCells(kSlots);
    QStringList paths;
    for (const QByteArray& gif : {PlainGif(kFrames, kSize), PlainGif(8, QSize(40, 30)), PlainGif(1, kSize)}) {
      paths.append(f.folder.Put(QString::number(paths.size()), gif));
    }
    const qint64 before = AllocatedBytes();
    for (const qint64 budget : {8 * kMiB, 1LL}) {
      cells.SetFrameBudget(budget);
      int shown = 0;
      for (int slot = 0; slot < kSlots; ++slot) {
        cells.Show(slot, {.path = paths.at(std::max(slot - 3, 0)), .sharpPath = {}, .host = {}, .anew = true},
                   [&shown](CellResult result) { shown += result == CellResult::Shown ? 1 : 0; });
      }
      QTRY_COMPARE(shown, kSlots);
      qint64 bytes = 0;
      for (int slot = 0; slot < kSlots; ++slot) {
        const Cell& cell = cells.Cells().at(slot);
        bytes += FrameBytes(cell.frames);
        const bool still = budget == 1 || slot == 5;
        QCOMPARE(cell.animated, !still);
        QCOMPARE(cell.frames.first().image.pixelColor(9, 9), QColor(255, 0, 0));
        std::chrono::milliseconds length{0};
        for (const PictureFrame& frame : cell.frames) length += frame.delay;
        QCOMPARE(length.count(), still ? 0 : slot == 4 ? 8 * 30 : kFrames * 30);
        if (slot == 4) QCOMPARE(cell.frames.size(), still ? 1 : 8);
      }
      QVERIFY(budget == 1 || bytes <= budget);
      // The thumbs of six stills and what else a page needs.
      const qint64 grown = AllocatedBytes() - before;
      QVERIFY2(grown < std::max(budget, bytes) + 2 * kMiB, QByteArray::number(grown).constData());
    }
  }

  void TheFromLabelNeedsACall() {
    const auto check = [](const char* what, bool weather, const QByteArray& tail, const QString& label,
                          const QString& painted) {
      const TableRow row(what);
      PageFixture f;
      if (weather) {
        Station& station = f.band.AddStation(u"ZZ7WX"_s);
        station.SetFile(u"radar.jpg"_s, PlainPicture(tail));
        f.AddWeatherSite(u"Radar"_s, station.Base() + u"/radar.jpg"_s, 1);
        f.program.page.CurrentPage = PageState::WxPage;
      } else {
        f.AddSite(u"ZZ1AA"_s).SetPicture(PlainPicture(tail));
      }
      f.Start();
      PageView view(f.program, f.logic->grid, nullptr);
      f.logic->grid.MakeGrid(f.program.config.ThumbLayout);
      f.logic->poll.FirstPoll();
      QTRY_VERIFY(f.HasPicture(0));
      QCOMPARE(f.CellOf(0).lblFrom, label);
      QCOMPARE(view.CellAt(0)->Shown().lblFrom, painted);
    };
    check("a call", false, "AB1CD * EP snr -3 *03:15:2026 10:30"_ba, u"From AB1CD"_s, u"From AB1CD"_s);
    check("none", false, " * EP snr -3 *03:15:2026 10:30"_ba, u"From "_s, {});
    check("a call after one star", false, "AB1CD * at 10:30"_ba, u"From AB1CD"_s, u"From AB1CD"_s);
    check("weather", true, "AB1CD * EP snr -3 *03:15:2026 10:30"_ba, u"From AB1CD"_s, u"From AB1CD"_s);
    check("weather, none", true, " * EP snr -3 *03:15:2026 10:30"_ba, u"From "_s, {});
    check("weather, one star", true, "AB1CD * at 10:30"_ba, {}, {});
    check("weather, no time", true, "AB1CD * EP snr -3 * today"_ba, {}, {});
  }
};

OMNI_TEST(TestThumbGrid)
#include "test_thumb_grid.moc"
