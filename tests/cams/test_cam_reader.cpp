// SPDX-License-Identifier: GPL-3.0-or-later
// The reads of cams of every kind.
#include "cams/cam_reader.h"
#include "page_fixture.h"

namespace {

constexpr int kPatienceMs = 20'000;

CamLimits ShortLimits() {
  return {.opening = 300ms, .deadline = 1500ms, .silence = 200ms, .maxBody = 1024 * 1024};
}

// A server whose queue of callers is full: a further connection gets no answer at all.
class FullServer : public QTcpServer {
 public:
  explicit FullServer(const QString& address) {
    setListenBacklogSize(1);
    listen(QHostAddress(address));
    pauseAccepting();
    for (QTcpSocket& socket : callers_) socket.connectToHost(serverAddress(), serverPort());
  }
  QString Url() const { return u"http://%1:%2/cam.jpg"_s.arg(serverAddress().toString()).arg(serverPort()); }

 private:
  std::array<QTcpSocket, 4> callers_;
};

// A picture and 64 MiB behind it, packed into a few bytes.
QByteArray PackedPicture() {
  return qCompress(PlainImage(QSize(64, 64)) + QByteArray(64 * 1024 * 1024, '\0')).sliced(4);
}

// Notes the answers, in their order.
struct HeardCams : ucPollCam {
  QStringList good;
  QStringList bad;
  QStringList all;

  explicit HeardCams(PageFixture& f, const CamLimits& limits = ShortLimits()) : ucPollCam(f.network, f.tool, limits) {
    connect(this, &ucPollCam::GotCamPic, this, [this](const QString& key) { good << key, all << key; });
    connect(this, &ucPollCam::NoCamPic, this, [this](const QString& key) { bad << key, all << key; });
  }
};

}  // namespace

class TestCamReader : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TellsWhichCamsAnswer() {
    PageFixture f{UrlLimits()};
    const FullServer full(u"127.44.0.1"_s);
    HeardCams cams(f);
    QStringList good;
    QStringList bad;
    const auto ask = [&](const QString& name, bool isGood, Behaviour behaviour, const QString& path = u"cam.jpg"_s) {
      Station& station = f.band.AddStation(name);
      if (behaviour != Behaviour::Normal) station.Misbehave(path, behaviour);
      if (name == "packed"_L1)
        station.SetAnswer(path, {200, "image/jpeg", PackedPicture(), {}, {{"Content-Encoding", "deflate"}}});
      (isGood ? good : bad) << name;
      cams.DownloadCamPic(station.Base() + u'/' + path, name);
      return station.Base();
    };
    ask(u"still"_s, true, Behaviour::Normal);
    ask(u"stream"_s, true, Behaviour::Stream, u"cam.mjpg"_s);
    ask(u"open stream"_s, false, Behaviour::StreamOpen, u"cam.mjpg"_s);
    ask(u"moved"_s, true, Behaviour::RedirectOk);
    ask(u"packed"_s, false, Behaviour::Normal);
    const QString secret = ask(u"password"_s, true, Behaviour::Normal, u"private/cam.jpg"_s);
    cams.DownloadCamPic(QString(secret).replace(u"//"_s, u"//shack:perch@"_s) + u"/private/cam.jpg"_s, u"password"_s);
    ask(u"no password"_s, false, Behaviour::Normal, u"private/cam.jpg"_s);
    for (const auto& [name, behaviour] :
         std::initializer_list<std::pair<const char*, Behaviour>>{{"page", Behaviour::WrongType},
                                                                  {"silent", Behaviour::Stall},
                                                                  {"dripping", Behaviour::Drip},
                                                                  {"refused", Behaviour::Refuse},
                                                                  {"file", Behaviour::RedirectToFile},
                                                                  {"bomb", Behaviour::Bomb},
                                                                  {"endless", Behaviour::Endless},
                                                                  {"garbage", Behaviour::GarbageBody}}) {
      ask(QLatin1StringView(name).toString(), false, behaviour);
    }
    cams.DownloadCamPic(full.Url(), u"full"_s);
    cams.DownloadCamPic(u"rtsp://127.0.0.1/cam"_s, u"rtsp"_s);
    bad << u"full"_s << u"rtsp"_s;
    QTRY_VERIFY_WITH_TIMEOUT(!cams.IsBusy(), kPatienceMs);
    for (QStringList* list : {&good, &bad, &cams.good, &cams.bad}) list->sort();
    QCOMPARE(cams.good, good);
    QCOMPARE(cams.bad, bad);
    QCOMPARE(cams.Picture(), QSize(320, 256));
  }

  // More silent cams than there are places: the one behind them is asked before they fail, and in the next round first.
  void SilentCamsLetOthersGoFirst() {
    PageFixture f{UrlLimits()};
    HeardCams cams(f, {.opening = 5s, .deadline = 4s, .silence = 200ms});
    const auto ask = [&]() {
      for (int i = 0; i < 16; ++i) {
        const QString call = u"ZZ1A%1"_s.arg(QChar(u'A' + i));
        Station* station = f.band.Find(call);
        if (station == nullptr) station = &f.band.AddStation(call);
        station->Misbehave(u"cam.jpg"_s, i < 15 ? Behaviour::Stall : Behaviour::Normal);
        cams.DownloadCamPic(station->Base() + u"/cam.jpg"_s, QString::number(i));
      }
    };
    for (int round = 1; round <= 2; ++round) {
      cams.all.clear();
      ask();
      QTRY_VERIFY_WITH_TIMEOUT(!cams.all.isEmpty(), kPatienceMs);
      QCOMPARE(cams.all, QStringList{u"15"_s});
      if (round == 1) QTRY_VERIFY_WITH_TIMEOUT(!cams.IsBusy(), kPatienceMs);
    }
    // Asked twice in the first round, as it was silent; known to be so in the second.
    QCOMPARE(f.band.Find(u"ZZ1AA"_s)->TotalRequests() + f.band.Find(u"ZZ1AP"_s)->TotalRequests(), 2 + 2 + 1);
  }

  // A cam that is asked anew, or not wanted any more, gives no earlier answer.
  void TakesReadsBack() {
    PageFixture f{UrlLimits()};
    Station& station = f.band.AddStation(u"ZZ1AA"_s);
    HeardCams cams(f);
    const QString url = station.Base() + u"/cam.jpg"_s;
    cams.DownloadCamPic(url, u"gone"_s);
    cams.DownloadCamPic(url, u"0"_s);
    cams.DownloadCamPic(url, u"0"_s);
    cams.DownloadCamPic(url, u"end"_s);
    // One that has come, and is being decoded, too.
    connect(&cams, &ucPollCam::GotCamPic, &cams, [&](const QString& key) {
      if (key == "end"_L1) cams.CancelAll();
    });
    QTRY_VERIFY_WITH_TIMEOUT(station.Requests(u"cam.jpg"_s) > 0, kPatienceMs);
    cams.DownloadCamPic(url, u"0"_s);
    QSignalSpy finished(&cams, &ucPollCam::Finished);
    QTRY_VERIFY_WITH_TIMEOUT(!cams.IsBusy(), kPatienceMs);
    QVERIFY(cams.all.count(u"0"_s) <= 1 && cams.bad.isEmpty());
  }
};

OMNI_TEST(TestCamReader)
#include "test_cam_reader.moc"
