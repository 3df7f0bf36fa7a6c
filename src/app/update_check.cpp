// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/update_check.h"

#include "app/author_pages.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kTimeKey = "20"_L1;
constexpr auto kVersionKey = "1"_L1;
constexpr auto kListKey = "2"_L1;
constexpr auto kOtherListKey = "3"_L1;  // asked by nothing

constexpr auto kTimePath = "/cgi-bin/timer.pl"_L1;
constexpr auto kVersionPath = "/"_L1;
constexpr auto kListPath = "/updates/updates.txt"_L1;
constexpr auto kBadCallsPath = "/zz9qx/Bad Calls/Bad Calls.txt"_L1;

constexpr qint64 kLongestList = 8LL * 1024 * 1024;  // several times what the most sites take
constexpr qint64 kLongestPage = 1024LL * 1024;
// The page tells whole seconds, so a clock that is nearer than that is not made better by it.
constexpr qint64 kNearSeconds = 2;

ReadOptions OptionsFor(const QString& key) {
  ReadOptions options;
  options.successOnly = true;
  options.maxBody = key == kListKey || key == kOtherListKey ? kLongestList : kLongestPage;
  return options;
}

QString OwnVersion() {
  return Program::ProgVersion().section(u' ', -1);
}

}  // namespace

UpdateCheck::UpdateCheck(const Dependencies& dependencies, QObject* parent)
    : QObject(parent), deps_(dependencies), ucUpdates(dependencies.network), ucBadCalls(dependencies.network) {
  Timer1.setInterval(100ms);
  connect(&Timer1, &QTimer::timeout, this, &UpdateCheck::Timer1Tick);
  connect(&ucUpdates, &UrlReader::Done, this, &UpdateCheck::UpdateFound);
  connect(&ucUpdates, &UrlReader::Failed, this, &UpdateCheck::UpdatesNotFound);
  connect(&ucBadCalls, &UrlReader::Done, this, [this](const QString&, const QByteArray& body) { TakeBadCalls(body); });
  // A list of blocked calls that does not come changes nothing, and nothing is said.
}

void UpdateCheck::AskTime() {
  if (!deps_.hosts.Time.isEmpty()) DownloadFile(deps_.hosts.Time, kTimePath, kTimeKey);
}

void UpdateCheck::CheckForUpdates() {
  const QString& author = deps_.hosts.Author;
  DownloadFile(author, kVersionPath, kVersionKey);
  FetchList();
  if (!author.isEmpty()) ucBadCalls.StartWith(kBadCallsPath, QUrl(author + kBadCallsPath), OptionsFor({}));
}

void UpdateCheck::FetchList() {
  DownloadFile(deps_.hosts.Author, kListPath, kListKey);
}

void UpdateCheck::DownloadFile(const QString& host, const QString& path, const QString& key) {
  if (!host.isEmpty()) return ucUpdates.StartWith(key, QUrl(host + path), OptionsFor(key));
  ucUpdates.Cancel(key);
  QMetaObject::invokeMethod(
      this,
      [this, key, run = run_.Present()]() {
        if (run.StillWanted()) UpdatesNotFound(key);
      },
      Qt::QueuedConnection);
}

void UpdateCheck::Stop() {
  for (const QLatin1StringView key : {kTimeKey, kVersionKey, kListKey, kOtherListKey}) ucUpdates.Cancel(key);
  ucBadCalls.Cancel(kBadCallsPath);
  run_.Withdraw();
  ForgetList();
}

void UpdateCheck::UpdateFound(const QString& key, const QByteArray& body) {
  if (key == kTimeKey) return TakeTime(body);
  if (key == kVersionKey) return TakeVersion(body);
  ListFileIsPrimary = key == kListKey;
  Q_EMIT ListCame(ListFileIsPrimary);
  TakeList(body);
}

void UpdateCheck::UpdatesNotFound(const QString& key) {
  if (key == kListKey) Q_EMIT ListFailed();
}

void UpdateCheck::TakeTime(const QByteArray& body) {
  deps_.background.Run<std::optional<QTime>>(
      this, [body]() { return UtcTimeIn(body); },
      [this, run = run_.Present()](std::optional<QTime> time) {
        if (!time || !run.StillWanted() || deps_.systemClock == nullptr || !deps_.systemClock->MaySet()) return;
        // The UTC time of day, not the local one: an offset of whole hours is wrong in zones of half an hour.
        const QDateTime now = deps_.clock.Now().toUTC();
        const QDateTime right = NearestMoment(now, *time);
        if (qAbs(now.secsTo(right)) >= kNearSeconds) deps_.systemClock->SetTime(right);
      });
}

void UpdateCheck::TakeVersion(const QByteArray& body) {
  deps_.background.Run<QString>(
      this, [body]() { return NewerVersionIn(body, OwnVersion()); },
      [this, run = run_.Present()](const QString& version) {
        bool& isAllowed = deps_.program.page.UpdatePromptAllowed;
        if (version.isEmpty() || !isAllowed || !run.StillWanted()) return;
        isAllowed = false;
        Q_EMIT NewVersionFound(version);
      });
}

void UpdateCheck::TakeBadCalls(const QByteArray& body) {
  deps_.background.Run<std::optional<QStringList>>(
      this, [body]() { return BadCallsIn(body); },
      [this, run = run_.Present()](const std::optional<QStringList>& calls) {
        if (calls && run.StillWanted()) deps_.program.lstBadCalls = *calls;
      });
}

std::function<SiteListPlan()> UpdateCheck::Comparison() const {
  const auto database = std::make_shared<CallReader>(deps_.database.Reader());
  const DatabasePlace placeOf = [database](const QString& call) -> std::optional<GivenPlace> {
    const std::optional<FoundRecord> found = database->Find(call);
    if (!found) return std::nullopt;
    return GivenPlace{true, Coordinate(found->record.Lat.Text()), Coordinate(found->record.Lon.Text())};
  };
  return [placeOf, file = file_, sites = deps_.program.sites.Sites, replaced = replaced_]() {
    return PlanSiteListChanges(*file, sites, placeOf, replaced);
  };
}

void UpdateCheck::TakeList(const QByteArray& body) {
  const QDate today = deps_.clock.Now().date();
  const QList<SiteRec> sites = deps_.program.sites.Sites;
  Timer1.stop();
  deps_.background.Run<ListReading>(
      this,
      [body, today, sites]() {
        ListReading reading;
        const std::optional<UpdateFile> file = ReadUpdateFile(body, today);
        if (!file) return reading;
        reading.file = std::make_shared<const UpdateFile>(*file);
        reading.addresses = AddressChanges(*file, sites);
        return reading;
      },
      [this, list = list_.Ask()](const ListReading& reading) {
        if (list.StillWanted()) TakeReading(reading);
      });
}

void UpdateCheck::TakeReading(const ListReading& reading) {
  if (!reading.file) return ForgetList();
  file_ = reading.file;
  lstMaster.clear();
  for (const ListedSite& site : file_->sites) lstMaster.append(site.call);
  replaced_.clear();
  if (reading.addresses.isEmpty()) return Compare();
  deps_.keepCopy(this, [this, list = list_.Present(), addresses = reading.addresses](bool isKept) {
    if (!list.StillWanted()) return;
    // Without a copy nothing of the user's is changed.
    if (!isKept) return ForgetList();
    ReplaceAddresses(addresses, deps_.program.sites);
    replaced_ = addresses;
    Compare();
  });
}

void UpdateCheck::Compare() {
  deps_.background.Run<bool>(
      this, [compare = Comparison()]() { return !compare().IsEmpty(); },
      [this, list = list_.Present()](bool differs) {
        if (!list.StillWanted()) return;
        UpdatesPending = differs;
        if (differs) {
          Timer1.start();
        } else {
          ForgetList();
        }
      });
}

// The user may have changed sites while a window was open, so the list is compared anew when Form6 can open.
void UpdateCheck::Timer1Tick() {
  if (!deps_.mayOpen()) return;
  Timer1.stop();
  deps_.background.Run<SiteListPlan>(this, Comparison(), [this, list = list_.Present()](const SiteListPlan& plan) {
    if (!list.StillWanted()) return;
    if (!deps_.mayOpen()) return Timer1.start();
    ForgetList();
    if (!plan.IsEmpty()) Q_EMIT ChangesFound(plan);
  });
}

void UpdateCheck::ForgetList() {
  Timer1.stop();
  list_.Withdraw();
  file_.reset();
  replaced_.clear();
  UpdatesPending = false;
}
