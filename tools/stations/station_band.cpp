// SPDX-License-Identifier: GPL-3.0-or-later
#include "station_band.h"

#include <QBuffer>
#include <QImage>
#include <algorithm>

#include "author_pages.h"
#include "callbook_host.h"
#include "on_air_pages.h"
#include "picture_store.h"
#include "propagation_page.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMarkerLow = 40;
constexpr int kMarkerHigh = 640;
constexpr quint32 kFirstAddress = 0x7f500000;  // 127.80.0.0
constexpr quint32 kFirstService = 0x7f510000;  // 127.81.0.0
constexpr int kImages = 30;
constexpr int kSentPictures = 5;
// Numbers of the pictures that a station sends itself and of its cam, far from those of received pictures.
constexpr int kSentNumber = -100000;
constexpr int kCamNumber = -200000;
// Priorities in the pool: painting for a reader that waits goes before painting ahead.
constexpr int kAhead = 0;
constexpr int kAsked = 1;

const QByteArray kCamPassword = "Basic " + QByteArray("shack:perch").toBase64();

constexpr std::array kAllHosts{"Connectivity"_L1, "Author"_L1, "Time"_L1,    "OnAirCgi"_L1, "OnAirText"_L1, "eHam"_L1,
                               "QRZ"_L1,          "QRZCQ"_L1,  "Callook"_L1, "HamCall"_L1,  "Pictures"_L1,  "Maps"_L1};

QByteArray MarkerFile(QSize size) {
  if (size.isEmpty()) return {};
  QImage image(size, QImage::Format_Grayscale8);
  image.fill(128);
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "JPEG", 20);
  return file;
}

// A seed that is the same for the same call in every run.
quint32 SeedOf(const QString& call) {
  quint32 seed = 2166136261U;
  for (const QChar letter : call) seed = (seed ^ letter.unicode()) * 16777619U;
  return seed;
}

// The number in a path: 7 in "image7", 2 in "TX2.jpg"; 0 for any other path or a number beyond count.
int NumberIn(const QString& path, QLatin1StringView before, QLatin1StringView behind, int count) {
  if (!path.startsWith(before) || !path.endsWith(behind)) return 0;
  const int number = path.mid(before.size(), path.size() - before.size() - behind.size()).toInt();
  return number >= 1 && number <= count ? number : 0;
}

// The page of the time server. Its reader takes the eight characters that begin twelve places behind the start of "BR".
QByteArray TimePage() {
  const QString now = QLocale::c().toString(QDateTime::currentDateTimeUtc(), u"MMM. dd, hh:mm:ss"_s);
  return "<html><body><h3>What time is it?</h3><BR>" + now.toLatin1() + " UTC\t\tUniversal Time\n</body></html>\n";
}

}  // namespace

Station::Station(const QString& call, const QHostAddress& address, quint16 port, QThreadPool& painters, QObject* parent)
    : Host(address, port, parent), call_(call), painters_(painters) {
  recipe_.seed = SeedOf(call);
  recipe_.scene = u"testcard"_s;
  recipe_.type = PictureType::Jpeg;
  recipe_.size = QSize(320, 256);
  Misbehave(u"cam.mjpg"_s, Behaviour::Stream);
  marker_ = QSize(2, kMarkerLow + static_cast<int>(recipe_.seed % (kMarkerHigh - kMarkerLow)));
}

void Station::SetOnAir(bool onAir) {
  marker_.setWidth(onAir ? 1 : 2);
}

void Station::SetPicture(const QByteArray& file) {
  painted_[newest_] = {file, {}};
}

void Station::SetRecipe(const PictureRecipe& recipe) {
  recipe_ = recipe;
  painted_.clear();
}

void Station::NewPicture(const QDateTime& sent, const QString& caller) {
  ++newest_;
  sentAt_.insert(newest_, sent);
  if (!caller.isEmpty()) callers_.insert(newest_, caller);
  // Any other height will do; a step of 37 keeps clear of the heights of the pictures before it.
  const int height = marker_.height() + 37;
  marker_.setHeight(height > kMarkerHigh ? height - kMarkerHigh + kMarkerLow : height);
  painted_.erase(newest_ - kImages);
}

void Station::Prepare(const std::function<void()>& done) {
  WithPicture(newest_, kAhead, [done](const QByteArray&) { done(); });
}

PictureRecipe Station::RecipeOf(int number) const {
  PictureRecipe recipe = recipe_;
  if (number == 0) return recipe;
  recipe.seed = recipe_.seed * 2654435761U + static_cast<quint32>(number) * 40503U;
  recipe.caller = callers_.value(number);
  recipe.scene.clear();
  recipe.sent = sentAt_.value(number, recipe_.sent.addSecs(number * 3900LL));
  if (number <= kSentNumber) {
    recipe.caller = call_;
    recipe.type = PictureType::Jpeg;
    recipe.tail = TailStyle::None;
  }
  return recipe;
}

void Station::WithPicture(int number, int priority, const std::function<void(const QByteArray&)>& then) {
  Painted& picture = painted_[number];
  if (!picture.file.isEmpty()) {
    then(picture.file);
    return;
  }
  picture.waiting.push_back(then);
  if (picture.waiting.size() > 1) return;
  painters_.start(
      [this, number, recipe = RecipeOf(number)] {
        const QByteArray file = MakePicture(recipe);
        QMetaObject::invokeMethod(
            this, [this, number, file] { TakePainted(number, file); }, Qt::QueuedConnection);
      },
      priority);
}

void Station::TakePainted(int number, const QByteArray& file) {
  Painted& picture = painted_[number];
  if (picture.file.isEmpty()) picture.file = file;
  const QByteArray shown = picture.file;
  for (const auto& then : std::exchange(picture.waiting, {})) then(shown);
}

void Station::Handle(const Request& request, const Deliver& deliver) {
  const QString& path = request.path;
  const auto deliverFile = [deliver](const QByteArray& file) { deliver({200, "image/jpeg", file, {}}); };
  const int image = path == "latest.jpg"_L1 ? 1 : NumberIn(path, "image"_L1, ""_L1, kImages);
  const int sent = NumberIn(path, "TX"_L1, ".jpg"_L1, kSentPictures);
  if (files_.contains(path)) {
    deliverFile(files_.value(path));
  } else if (path == "checknew.jpg"_L1) {
    deliverFile(MarkerFile(marker_));
  } else if (image > 0) {
    WithPicture(newest_ - image + 1, kAsked, deliverFile);
  } else if (sent > 0) {
    WithPicture(kSentNumber - sent, kAsked, deliverFile);
  } else if (path == "private/cam.jpg"_L1 && request.headers.value("authorization") != kCamPassword) {
    deliver({401, "text/html", "<html><body>Who are you?</body></html>", {}});
  } else if (path.endsWith("cam.jpg"_L1) || path == "cam.mjpg"_L1) {
    WithPicture(kCamNumber, kAsked, deliverFile);
  } else {
    deliver(NoSuchPage());
  }
}

void PageHost::Handle(const Request& request, const Deliver& deliver) {
  const auto page = pages_.constFind(request.path);
  deliver(page == pages_.constEnd() ? NoSuchPage() : Answer{200, "text/html", (*page)(), {}});
}

StationBand::StationBand(quint16 port, QObject* parent) : QObject(parent), port_(port), lastAddress_(kFirstAddress) {
  painters_.setMaxThreadCount(std::clamp(QThread::idealThreadCount(), 1, 4));
  AddPageHost(u"Connectivity"_s)->SetPage({}, [] { return QByteArray("<html><body>Search the web</body></html>\n"); });
  AddPageHost(u"Time"_s)->SetPage(u"cgi-bin/timer.pl"_s, TimePage);
  PageHost* author = AddPageHost(u"Author"_s);
  author->SetPage({}, [] { return VersionPage(u"6.50"_s); });
  author->SetPage(kBadCallsPath, BadCallsList);
  AddServices();
}

// Services have a range of addresses of their own, so that adding one does not move the stations.
void StationBand::AddServices() {
  quint32 address = kFirstService;
  for (const Callbook service :
       {Callbook::eHam, Callbook::QRZ, Callbook::QRZCQ, Callbook::Callook, Callbook::HamCall}) {
    hosts_.insert(CallbookName(service), new CallbookHost(service, QHostAddress(++address), port_, this));
  }
  hosts_.insert(u"Pictures"_s, new PictureStore(QHostAddress(++address), port_, painters_, this));
  const auto addPages = [&](const QString& name) {
    auto* host = new PageHost(QHostAddress(++address), port_, this);
    hosts_.insert(name, host);
    return host;
  };
  const auto now = [] { return QDateTime::currentDateTimeUtc(); };
  addPages(u"OnAirCgi"_s)->SetPage(u"cgi-bin/call.cgi"_s, [now] { return OnAirReply(OnAirForm::Plain, now()); });
  PageHost* text = addPages(u"OnAirText"_s);
  text->SetPage(u"zz9qx/Files/OnAirNow.txt"_s, [now] { return OnAirTextFile(OnAirForm::Plain, now()); });
  text->SetPage(u"zz9qx/Files/PropagationPaths.txt"_s,
                [this, now] { return PropagationFile(OnAirForm::Plain, Receivers(), now()); });
}

StationBand::~StationBand() {
  painters_.clear();
  painters_.waitForDone();
}

QHostAddress StationBand::NextAddress() {
  // Last parts 0 and 255 look like network addresses to some readers.
  do {
    ++lastAddress_;
  } while ((lastAddress_ & 0xffU) == 0 || (lastAddress_ & 0xffU) == 0xffU);
  return QHostAddress(lastAddress_);
}

PageHost* StationBand::AddPageHost(const QString& name) {
  auto* host = new PageHost(NextAddress(), port_, this);
  hosts_.insert(name, host);
  return host;
}

Station& StationBand::AddStation(const QString& call) {
  stations_.push_back(new Station(call, NextAddress(), port_, painters_, this));
  return *stations_.back();
}

Station* StationBand::Find(const QString& call) const {
  const auto at = std::find_if(stations_.begin(), stations_.end(), [&](const Station* s) { return s->Call() == call; });
  return at == stations_.end() ? nullptr : *at;
}

// Weather sites have titles instead of calls.
QStringList StationBand::Receivers() const {
  QStringList calls;
  for (const Station* station : stations_) {
    if (!station->Call().contains(u' ')) calls << station->Call();
  }
  return calls;
}

QStringList StationBand::HostNames() const {
  QStringList names = hosts_.keys();
  names.sort();
  return names;
}

QString StationBand::HostUrl(const QString& name) const {
  const Host* host = hosts_.value(name);
  return host == nullptr ? QString() : host->Base();
}

QByteArray StationBand::HostsIni() const {
  QByteArray text = "[Hosts]\n";
  for (const QLatin1StringView name : kAllHosts) text += name.toString().toUtf8() + '=' + HostUrl(name).toUtf8() + '\n';
  return text;
}

int StationBand::TotalRequests() const {
  int total = 0;
  for (const Station* station : stations_) total += station->TotalRequests();
  for (const Host* host : hosts_) total += host->TotalRequests();
  return total;
}

bool StationBand::HasAddresses() const {
  return std::all_of(stations_.begin(), stations_.end(), [](const Station* s) { return s->HasAddress(); }) &&
         std::all_of(hosts_.begin(), hosts_.end(), [](const Host* h) { return h->HasAddress(); });
}
