// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/history.h"

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "core/page_files.h"
#include "page/cell_signs.h"
#include "platform/whole_file.h"
#include "poll/blocked_caller.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPictures = 30;
constexpr int kSentPictures = 5;
constexpr qsizetype kLongestTail = 60;

// Runs beside the event loop, before any picture of this opening is stored there.
bool PrepareFolder(const QString& path, bool empty) {
  QDir folder(path);
  folder.mkpath(u"."_s);
  if (!empty) return true;
  const QStringList files = folder.entryList(QDir::Files | QDir::Hidden | QDir::System);
  for (const QString& file : files) folder.remove(file);
  return true;
}

}  // namespace

History::History(const Dependencies& dependencies, QObject* parent)
    : QObject(parent),
      program_(dependencies.program),
      background_(dependencies.background),
      ucLast15(dependencies.network, nullptr, UrlPriority::User),
      cells_(dependencies.tool) {
  connect(&cells_, &PictureCells::CellChanged, this, &History::CellChanged);
  connect(&ucLast15, &UserControl1::PictureReady, this, &History::PictureReady);
  connect(&ucLast15, &UserControl1::NoImage, this, &History::NoImage);
  connect(&ucLast15, &UserControl1::Progress, this, &History::Progress);
}

History::~History() = default;

void History::Open(const HistoryOrigin& origin) {
  Stop();
  txMode_ = origin.TxMode;
  const int count = txMode_ ? kSentPictures : kPictures;
  pictures_ = std::vector<Picture>(static_cast<std::size_t>(count));
  cells_.MakeCells(0);
  cells_.MakeCells(count);
  for (int slot = 0; slot < count; ++slot) cells_.Clear(slot);
  // The poll counts in the same two variables. A poll that runs meanwhile disturbs this count, and this one disturbs
  // the poll's; nothing guards against it. The poll ends all the same once no slot of its own is awaited.
  program_.page.SitesDone = 0;
  if (txMode_) {
    ShowTxPictures(origin.Last15Slot);
  } else if (origin.Last15Slot > 0) {
    FetchHistory(origin.Last15Slot);
  } else {
    FetchHistoryOfSite(origin.Last15Site);
  }
  Q_EMIT Opened();
}

void History::Stop() {
  // From the last to the first: a read that ends lets the next waiting one begin, and those wait at the end.
  for (int slot = Count() - 1; slot >= 0; --slot) {
    ucLast15.Cancel(KeyOf(slot));
    // Counts like an answer: the shared count would otherwise stay below the number awaited, and the page would show no
    // tips until its next poll.
    if (!At(slot).answered) CountAnswer();
    At(slot).wanted.Withdraw();
    cells_.HidePicture(slot);
  }
}

SiteRec History::SiteOfSlot(int Last15Slot) {
  const SiteTable& sites = program_.sites;
  siteIndex_ = PictureKey::kNoSite;
  for (int site = 0; Last15Slot > 0 && site < sites.Sites.size(); ++site) {
    if (sites.GetSiteSlot(site, program_.page.CurrentPage) != Last15Slot) continue;
    siteIndex_ = site;
    return sites.Sites.at(site);
  }
  return {};
}

void History::FetchHistory(int Last15Slot) {
  Last15Key = Last15Slot - 1;
  site_ = SiteOfSlot(Last15Slot);
  FetchAll();
}

void History::FetchHistoryOfSite(int Last15Site) {
  const bool known = Last15Site >= 0 && Last15Site < program_.sites.Sites.size();
  Last15Key = 1;
  siteIndex_ = known ? Last15Site : PictureKey::kNoSite;
  site_ = known ? program_.sites.Sites.at(Last15Site) : SiteRec();
  FetchAll();
}

void History::ShowTxPictures(int Last15Slot) {
  Last15Key = Last15Slot - 1;
  site_ = SiteOfSlot(Last15Slot);
  siteIndex_ = PictureKey::kNoSite;  // the keys of these pictures name no site
  FetchAll();
}

void History::FetchAll() {
  background_.Run<bool>(
      this, [path = HistoryFolder(program_.AppDataDir), empty = !txMode_]() { return PrepareFolder(path, empty); },
      [](bool) {});
  TakeLanguage();
  if (!txMode_) program_.page.SitesOnPage = Count() - 1;  // the last of the numbers from 0 that the fetching counts
  for (int slot = 0; slot < Count(); ++slot) {
    PictureCells::Edit(cells_, slot)->picProg = true;
    Fetch(slot);
  }
}

QString History::UrlOf(int slot) const {
  const QString url = PlainUrl(site_.Url);
  if (txMode_) return url.left(url.lastIndexOf(u'/') + 1) + u"TX%1.jpg"_s.arg(slot + 1);
  // "image1" becomes "image". An address that ends otherwise loses its last letter all the same.
  return url.chopped(std::min<qsizetype>(1, url.size())) + QString::number(slot + 1);
}

QString History::PathOf(int slot) const {
  return HistoryPath(program_.AppDataDir, slot + 1, txMode_);
}

QString History::KeyOf(int slot) const {
  return PictureKey{Last15Key, slot, siteIndex_}.Text();
}

int History::SlotOf(const QString& key) const {
  const std::optional<PictureKey> read = PictureKey::Read(key);
  return read && read->page == Last15Key && read->slot < Count() ? read->slot : -1;
}

void History::Fetch(int slot) {
  ucLast15.DownloadFile(UrlOf(slot), KeyOf(slot));
}

void History::ReloadSlot(int slot) {
  if (slot < 0 || slot >= Count()) return;
  const PictureCells::Edit cell(cells_, slot);
  cell->lblConnect = true;
  cell->reloadMark = true;
  At(slot).wanted.Withdraw();
  Fetch(slot);
}

void History::CountAnswer() {
  ++program_.page.SitesDone;
}

void History::Answer(int slot) {
  CountAnswer();
  if (txMode_) program_.page.SitesOnPage = Count() - 1;
  Picture& picture = At(slot);
  picture.wanted.Withdraw();  // the picture that is still being decoded
  picture.answered = true;
  picture.found = false;
  picture.blockReason = 0;
  picture.fields = {};
  picture.fromCall.clear();
  const PictureCells::Edit cell(cells_, slot);
  cell->lblConnect = false;
  cell->lblFrom.clear();
  cell->lblMode.clear();
  // The former file is removed before the new bytes are judged, so an error page leaves no picture.
  QFile::remove(PathOf(slot));
}

void History::PictureReady(const QString& key, const QByteArray& body) {
  const int slot = SlotOf(key);
  if (slot < 0) return;
  Answer(slot);
  const QString part = PartPath(PathOf(slot));
  // The context is the thread's own object: the part has to be removed even if this history is gone by then.
  background_.Run<StoredBody>(
      &background_, [body, part]() { return StoreBody(body, part, {}); },
      [this, slot, part, token = At(slot).wanted.Ask()](const StoredBody& stored) {
        if (token.StillWanted()) {
          Stored(slot, stored, part);
        } else {
          QFile::remove(part);
        }
      });
  Q_EMIT Progressed();
}

void History::Stored(int slot, const StoredBody& stored, const QString& part) {
  const PictureCells::Edit cell(cells_, slot);
  cell->picProg = false;
  const bool placed = stored.written && PutInPlace(part, PathOf(slot));
  if (!stored.usable) return ShowNotFound15(slot, false);
  if (stored.tail.size() <= kLongestTail) {
    TakeCaption(slot, ParseTailFromDownload(stored.tail, program_.ZeroGlyph));
  }
  if (!placed) return ShowNotFound15(slot, true);
  ShowThumb15(slot);
}

// The site's LastSeen is left alone: it belongs to the newest picture, which the page shows.
void History::TakeCaption(int slot, const Caption& caption) {
  Picture& picture = At(slot);
  picture.fields = {caption.Caller.value_or(QString()), caption.ModeText.value_or(QString()),
                    caption.SentTime.value_or(QString())};
  picture.fromCall = caption.FromCall.value_or(QString());
  const PictureCells::Edit cell(cells_, slot);
  cell->lblMode = caption.ModeTag;
  cell->modeColour = ModeColour(caption.ModeTag);
  cell->fromSender = !picture.fromCall.isEmpty();
  cell->lblFrom = picture.fromCall.isEmpty() ? QString() : program_.language[TextLine::kFromWord] + picture.fromCall;
}

void History::ShowThumb15(int slot) {
  const CellPicture picture{PathOf(slot), PathOf(slot), QUrl(PlainUrl(site_.Url)).host(), true, true};
  cells_.Show(slot, picture, [this, slot, token = At(slot).wanted.Present()](CellResult result) {
    if (token.StillWanted()) Shown(slot, result);
  });
}

void History::Shown(int slot, CellResult result) {
  if (result == CellResult::Overtaken) return;
  if (result != CellResult::Shown) {
    const PictureCells::Edit cell(cells_, slot);
    ShowNotFound15(slot, true);
    cell->box.noSandbox = result == CellResult::NoSandbox;
    return;
  }
  Picture& picture = At(slot);
  picture.found = true;
  picture.blockReason = BlockReason(program_, picture.fields.Caller);
  if (picture.blockReason != 0) ShowBlocked(slot);
  Q_EMIT Progressed();
}

void History::ShowBlocked(int slot) {
  const Picture& picture = At(slot);
  cells_.ShowBox(slot, BlockedBox(picture.blockReason, ShownCall(picture.fields.Caller, program_.ZeroGlyph)));
}

void History::TakeBlocks() {
  for (int slot = 0; slot < Count(); ++slot) {
    Picture& picture = At(slot);
    // A picture that has not come yet is judged when it does.
    if (!picture.found) continue;
    const int before = std::exchange(picture.blockReason, BlockReason(program_, picture.fields.Caller));
    if (picture.blockReason == before) continue;
    if (picture.blockReason != 0) {
      ShowBlocked(slot);
    } else {
      ShowThumb15(slot);
    }
  }
}

void History::NoImage(const QString& key) {
  const int slot = SlotOf(key);
  if (slot < 0) return;
  Answer(slot);
  ShowNotFound15(slot, false);
}

void History::Progress(const QString& key, qint64 max, qint64 read) {
  const int slot = SlotOf(key);
  if (slot < 0) return;
  const std::optional<int> percent = PercentRead(max, read);
  const PictureCells::Edit cell(cells_, slot);
  cell->picProg = percent.has_value();
  if (!percent) return;
  cell->lblConnect = false;
  cell->progress = *percent;
}

// Counts as the page's error box does, but never ends a poll.
void History::ShowNotFound15(int slot, bool corrupt) {
  CountAnswer();
  At(slot).fields.Caller = u"Not found"_s;
  const BoxLine first = txMode_ ? BoxLine{std::nullopt, CaptionOf(slot)}
                                : BoxLine{TextLine::kImageWord, u' ' + QString::number(slot + 1)};
  cells_.ShowBox(slot, NotFoundBox(first, corrupt));
  Q_EMIT Progressed();
}

QString History::CaptionOf(int slot) const {
  const QString number = QString::number(slot + 1);
  return txMode_ ? u"TX"_s + number : program_.language[TextLine::kImageWord] + u' ' + number;
}

void History::TakeLanguage() {
  for (int slot = 0; slot < Count(); ++slot) {
    const PictureCells::Edit cell(cells_, slot);
    cell->lblCall = CaptionOf(slot);
    if (cell->fromSender && !At(slot).fromCall.isEmpty()) {
      cell->lblFrom = program_.language[TextLine::kFromWord] + At(slot).fromCall;
    }
  }
}

int History::Answered() const {
  return static_cast<int>(
      std::count_if(pictures_.begin(), pictures_.end(), [](const Picture& p) { return p.answered; }));
}

int History::Found() const {
  return static_cast<int>(std::count_if(pictures_.begin(), pictures_.end(), [](const Picture& p) { return p.found; }));
}

// Not a bad call's, as on the page.
bool History::Opens(int slot) const {
  const Picture& picture = pictures_.at(static_cast<std::size_t>(slot));
  return picture.found && picture.blockReason != 2 && !Cells().at(slot).picProg;
}

SourcePicture History::PictureOf(int slot) const {
  const Fields& fields = FieldsOf(slot);
  return {PathOf(slot),
          site_.Call,
          fields.Caller,
          fields.ModeText,
          fields.SentTime,
          QUrl(PlainUrl(site_.Url)).host(),
          {PictureSource::Window::History, slot}};
}

PictureList History::Pictures(int slot) const {
  PictureList list;
  list.at = -1;
  for (int each = 0; each < Count(); ++each) {
    if (!Opens(each)) continue;
    if (each == slot) list.at = list.pictures.size();
    list.pictures.append(PictureOf(each));
  }
  list.renew = [history = QPointer(this), slot]() { return history ? history->Pictures(slot) : PictureList(); };
  return list;
}

void History::ToggleMark(int slot) {
  if (slot >= 0 && slot < Count() && Opens(slot)) cells_.ToggleMark(slot);
}

PictureList History::Marked() const {
  PictureList marked;
  for (const int slot : cells_.Marked()) {
    const PictureList all = Pictures(slot);
    if (all.Holds(all.at)) marked.pictures.append(all.pictures.at(all.at));
  }
  return marked;
}

std::optional<TipSubject> History::TipSubjectOf(int slot) const {
  if (slot < 0 || slot >= Count()) return std::nullopt;
  const Fields& fields = FieldsOf(slot);
  return TipSubject{fields.Caller, fields.ModeText, fields.SentTime, site_.Call};
}
