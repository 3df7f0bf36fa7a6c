// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/slot_pictures.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>
#include <array>
#include <filesystem>

#include "core/page_files.h"
#include "platform/text/numbers.h"
#include "platform/whole_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kThumbBox(116, 86);

int PlaceOf(int page, int slot) {
  return page * 100 + slot;
}

// A file of a page that moves: it goes from its name to a hidden one, and from that to its new name.
struct MovedFile {
  QString path;
  QString part;
  QString newPath;
};

// Names are "<page>-<slot>" with or without an ending.
QList<MovedFile> FilesToMove(const QString& folder, const QList<int>& pageBefore) {
  QList<MovedFile> files;
  const QStringList names = QDir(folder).entryList(QDir::Files);
  for (const QString& name : names) {
    const qsizetype sign = name.indexOf(u'-');
    const int page = name.left(std::max<qsizetype>(sign, 0)).toInt();
    const qsizetype now = pageBefore.indexOf(page);
    if (page < 1 || now < 1 || now == page) continue;
    const QString path = folder + u'/' + name;
    files.append({path, PartPath(path), folder + u'/' + QString::number(now) + name.sliced(sign)});
  }
  return files;
}

// Unlike PutInPlace() it leaves the file where it is when it cannot be renamed.
bool Rename(const QString& from, const QString& to) {
  std::error_code error;
  std::filesystem::rename(QFile::encodeName(from).toStdString(), QFile::encodeName(to).toStdString(), error);
  return !error;
}

// Moves all files, or none: where one cannot be moved the others go back, so that no site is shown with the picture of
// another.
bool MoveFiles(const QList<MovedFile>& files) {
  qsizetype away = 0;
  while (away < files.size() && Rename(files.at(away).path, files.at(away).part)) ++away;
  // All are away by now: the new name of one was the old name of another.
  qsizetype placed = 0;
  if (away == files.size()) {
    while (placed < files.size() && Rename(files.at(placed).part, files.at(placed).newPath)) ++placed;
  }
  if (placed == files.size()) return true;
  for (qsizetype i = 0; i < placed; ++i) Rename(files.at(i).newPath, files.at(i).part);
  for (qsizetype i = 0; i < away; ++i) PutInPlace(files.at(i).part, files.at(i).path);
  return false;
}

}  // namespace

SlotPictures::SlotPictures(Program& program, HeightTable& heights, PictureTool& tool, Background& background,
                           QObject* parent)
    : QObject(parent), program_(program), heights_(heights), tool_(tool), background_(background) {}

bool SlotPictures::Stands(const PictureKey& key) const {
  if (pagesMove_) return false;
  const SiteTable& sites = program_.sites;
  if (key.page < PageState::WxPage) return sites.GetSiteSlot(key.site, key.page) == key.slot + 1;
  const auto layout = static_cast<std::size_t>(program_.config.ThumbLayout);
  if (layout > kLayouts) return false;
  return std::any_of(sites.WxSites.cbegin(), sites.WxSites.cend(), [&key, layout](const SiteRec& site) {
    return static_cast<int>(Val(site.PageSlots[layout])) == key.slot + 1;
  });
}

QString SlotPictures::Picture(int page, int slot) const {
  return page < PageState::WxPage ? PicturePath(program_.AppDataDir, page, slot) : WxPath(program_.AppDataDir, slot);
}

QString SlotPictures::Thumb(int page, int slot) const {
  return page < PageState::WxPage ? ThumbPath(program_.AppDataDir, page, slot) : WxPath(program_.AppDataDir, slot);
}

SlotPictures::Chain SlotPictures::Begin(const PictureKey& key) {
  const int place = PlaceOf(key.page, key.slot);
  underWay_.insert(place);
  return {key, wanted_[place].Ask(), {}};
}

void SlotPictures::End(const Chain& chain) {
  // The entry of an overtaken chain now belongs to the chain that has overtaken it.
  if (chain.token.StillWanted()) underWay_.remove(PlaceOf(chain.key.page, chain.key.slot));
}

void SlotPictures::Withdraw(int page, int slot) {
  wanted_[PlaceOf(page, slot)].Withdraw();
  underWay_.remove(PlaceOf(page, slot));
}

void SlotPictures::WithdrawAll() {
  for (auto& [place, wanted] : wanted_) wanted.Withdraw();
  underWay_.clear();
}

void SlotPictures::Take(const PictureKey& key, const QByteArray& body, const Taken& taken) {
  const Chain chain = Begin(key);
  // The former picture is removed before the new bytes are judged, so an error page leaves no picture.
  QFile::remove(Picture(key.page, key.slot));
  const QString picture = PartPath(Picture(key.page, key.slot));
  const bool hasThumb = key.page < PageState::WxPage;
  const QString thumb = hasThumb ? PartPath(Thumb(key.page, key.slot)) : QString();
  background_.Run<StoredBody>(
      this, [body, picture, thumb]() { return StoreBody(body, picture, thumb); },
      [this, chain, picture, thumb, taken](const StoredBody& stored) {
        PutStored(chain, stored, picture, thumb, taken);
      });
}

void SlotPictures::PutStored(const Chain& chain, const StoredBody& stored, const QString& picture, const QString& thumb,
                             const Taken& taken) {
  const auto end = [this, &chain, &stored, &taken](FilesVerdict verdict) {
    End(chain);
    taken(verdict, stored.tail);
  };
  const PictureKey& key = chain.key;
  const bool wanted = GoesOn(chain);
  if (!wanted) QFile::remove(picture);
  const bool placed = wanted && stored.written && PutInPlace(picture, Picture(key.page, key.slot));
  if (!placed && stored.thumbWritten) QFile::remove(thumb);
  if (!wanted) return end(FilesVerdict::GivenUp);
  if (!stored.usable) return end(FilesVerdict::Unusable);
  if (key.page == PageState::WxPage) return end(placed ? FilesVerdict::Ready : FilesVerdict::NoThumb);
  // Otherwise the former picture's thumb would be shown if no new one can be made.
  QFile::remove(Thumb(key.page, key.slot));
  ForgetFailure(key.page, key.slot);
  if (!placed) return end(FilesVerdict::NoThumb);
  if (stored.thumbWritten) {
    return end(PutInPlace(thumb, Thumb(key.page, key.slot)) ? FilesVerdict::Ready : FilesVerdict::NoThumb);
  }
  MakeThumb(chain, [taken, tail = stored.tail](FilesVerdict verdict) { taken(verdict, tail); });
}

void SlotPictures::MakeMissingThumb(const PictureKey& key, const Made& made) {
  if (underWay_.contains(PlaceOf(key.page, key.slot))) return;
  MakeThumb(Begin(key), made);
}

QString SlotPictures::HostOf(const PictureKey& key) const {
  const QList<SiteRec>& sites = program_.sites.Sites;
  const bool known = key.page < PageState::WxPage && key.site >= 0 && key.site < sites.size();
  return known ? QUrl(PlainUrl(sites.at(key.site).Url)).host() : QString();
}

void SlotPictures::MakeThumb(const Chain& chain, const Made& made) {
  const PictureKey& key = chain.key;
  // Make it under a hidden name: by the time it is ready the place may belong to another site.
  const QString part = PartPath(Thumb(key.page, key.slot));
  PictureOptions options;
  options.host = HostOf(key);
  // For a job that writes a file "unwanted" means last: the thumb of a page that was left is made when nothing on the
  // screen waits.
  options.wanted = [this, chain]() { return chain.key.page == program_.page.CurrentPage && GoesOn(chain); };
  tool_.MakeThumb(
      Picture(key.page, key.slot), part, kThumbBox, this,
      [this, chain, part, made](const PictureAnswer& answer) {
        const PictureKey& place = chain.key;
        if (!GoesOn(chain)) {
          QFile::remove(part);
          End(chain);
          return made(FilesVerdict::GivenUp);
        }
        const bool ready = answer.ok && PutInPlace(part, Thumb(place.page, place.slot));
        // Without a sandbox the picture was not even looked at, and on a full disk it is the thumb that failed: the
        // next start tries again.
        if (!answer.ok && !answer.noSandbox && !answer.notStored) RememberFailure(place.page, place.slot);
        End(chain);
        made(ready ? FilesVerdict::Ready : answer.noSandbox ? FilesVerdict::NoSandbox : FilesVerdict::NoThumb);
      },
      options);
}

void SlotPictures::Remove(int page, int slot) {
  Withdraw(page, slot);
  QFile::remove(PicturePath(program_.AppDataDir, page, slot));
  QFile::remove(ThumbPath(program_.AppDataDir, page, slot));
  ForgetFailure(page, slot);
}

QString SlotPictures::FailureMark(int page, int slot) const {
  const QFileInfo file(Picture(page, slot));
  return file.exists() ? u"%1 %2"_s.arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch()) : QString();
}

bool SlotPictures::HasFailed(int page, int slot) const {
  QFile file(FailurePath(program_.AppDataDir, page, slot));
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QString mark = FailureMark(page, slot);
  return !mark.isEmpty() && mark.toLatin1() == file.read(100);
}

void SlotPictures::RememberFailure(int page, int slot) {
  const QString mark = page < PageState::WxPage ? FailureMark(page, slot) : QString();
  if (!mark.isEmpty()) WriteWhole(FailurePath(program_.AppDataDir, page, slot), mark.toLatin1());
}

void SlotPictures::ForgetFailure(int page, int slot) {
  QFile::remove(FailurePath(program_.AppDataDir, page, slot));
}

void SlotPictures::Move(int page, const QList<QPair<int, int>>& moves) {
  using PathOf = QString (*)(const QString&, int, int);
  constexpr std::array<PathOf, 3> kKinds{&PicturePath, &ThumbPath, &FailurePath};
  // Move all files away first: the new place of one site is the old place of another.
  QList<std::array<QString, kKinds.size()>> parts;
  QList<int> heights;
  for (const auto& [from, to] : moves) {
    Withdraw(page, from);
    Withdraw(page, to);
    std::array<QString, kKinds.size()> part;
    for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
      const QString path = kKinds[kind](program_.AppDataDir, page, from);
      part[kind] = PartPath(path);
      if (!PutInPlace(path, part[kind])) part[kind].clear();
    }
    parts.append(part);
    heights.append(heights_.Height(page, from));
    heights_.SetHeight(page, from, 0);
  }
  for (qsizetype i = 0; i < moves.size(); ++i) {
    const int to = moves.at(i).second;
    for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
      const QString path = kKinds[kind](program_.AppDataDir, page, to);
      const QString& part = parts.at(i)[kind];
      if (part.isEmpty() || !PutInPlace(part, path)) QFile::remove(path);
    }
    heights_.SetHeight(page, to, heights.at(i));
  }
}

void SlotPictures::MovePages(const QList<int>& pageBefore, const std::function<void(bool)>& moved) {
  WithdrawAll();
  pagesMove_ = true;
  const QString pictures = program_.AppDataDir + u"/images/dsstv"_s;
  background_.Run<bool>(
      this,
      [pictures, pageBefore]() {
        return MoveFiles(FilesToMove(pictures, pageBefore) + FilesToMove(pictures + u"/thumbs"_s, pageBefore));
      },
      [this, pageBefore, moved](bool allMoved) {
        pagesMove_ = false;
        if (!allMoved) return moved(false);
        const HeightTable before = heights_;
        for (int page = 1; page < pageBefore.size(); ++page) {
          if (pageBefore.at(page) == page) continue;
          for (int slot = 0; slot < kMaxSlots; ++slot) {
            heights_.SetHeight(page, slot, before.Height(pageBefore.at(page), slot));
          }
        }
        moved(true);
      });
}
