// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/site_changes.h"

#include <QPointer>
#include <algorithm>
#include <tuple>
#include <utility>

#include "page/cam_light.h"
#include "platform/text/numbers.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPlacesOfPage = 100;

// By former index: where each record is after the removals and the sort.
TableEdit::NewIndex NewIndices(const std::vector<int>& left, const std::vector<int>& order, int formerSize) {
  TableEdit::NewIndex newIndex(formerSize, -1);
  for (std::size_t now = 0; now < order.size(); ++now) {
    const int former = left[static_cast<std::size_t>(order[now])];
    if (former < formerSize) newIndex[former] = static_cast<int>(now);
  }
  return newIndex;
}

// Puts one table back: the records that are still there take their former values, the new ones go.
void TakeTableBack(TableEdit& edit, const QList<SiteRec>& former, const TableEdit::NewIndex& newIndex) {
  QList<bool> known(edit.Size(), false);
  for (qsizetype i = 0; i < former.size(); ++i) {
    const int now = newIndex.value(i, -1);
    if (now < 0 || now >= known.size()) {
      edit.Add(former.at(i));
      continue;
    }
    known[now] = true;
    SiteRec& site = edit.Change(now);
    const QString seen = site.LastSeen;
    site = former.at(i);
    site.LastSeen = seen;
  }
  for (int now = 0; now < known.size(); ++now) {
    if (!known.at(now)) edit.Remove(now);
  }
}

// All of a record but the date of its newest picture.
auto Undated(const SiteRec& site) {
  return std::tie(site.Call, site.Url, site.PageSlots, site.Lat, site.Lon, site.CamUrl, site.LatText, site.LonText,
                  site.MoreFields);
}

// Carries dates that a poll has written into now over to the table before a change and to that behind it; false where
// now differs from before in anything else.
bool FollowDates(const QList<SiteRec>& now, const TableEdit::NewIndex& newIndex, QList<SiteRec>& before,
                 QList<SiteRec>& behind) {
  const bool isSame = std::equal(now.cbegin(), now.cend(), before.cbegin(), before.cend(),
                                 [](const SiteRec& a, const SiteRec& b) { return Undated(a) == Undated(b); });
  for (qsizetype i = 0; isSame && i < now.size(); ++i) {
    const QString& seen = now.at(i).LastSeen;
    if (seen == std::as_const(before).at(i).LastSeen) continue;
    before[i].LastSeen = seen;
    if (const int site = newIndex.at(i); site >= 0) behind[site].LastSeen = seen;
  }
  return isSame;
}

int SlotOfWx(const SiteRec& site, int layout) {
  if (layout < 1 || layout > kLayouts) return 0;
  return static_cast<int>(Val(site.PageSlots[static_cast<std::size_t>(layout)]));
}

}  // namespace

SiteChanges::SiteChanges(const Dependencies& deps, QObject* parent)
    : QObject(parent),
      program_(deps.program),
      grid_(deps.grid),
      heights_(deps.heights),
      files_(deps.files),
      poll_(deps.poll),
      background_(deps.background) {}

void SiteChanges::ChangeSites(const Change& change, const ChangeOptions& options, QObject* context, const Done& done) {
  Apply(change);
  Save(options, context, done);
}

void SiteChanges::ChangeManySites(const Change& change, const ChangeOptions& options, QObject* context,
                                  const Done& done) {
  BeginChange();
  const int layout = program_.config.ThumbLayout;
  const auto make = [sites = program_.sites, layout, change]() { return Make(sites, layout, change); };
  background_.Run<Made>(this, make,
                        [this, layout, change, options, context = QPointer<QObject>(context), done](Made made) {
                          // A poll may have begun meanwhile, and the user may have placed a site or changed the layout.
                          if (layout == program_.config.ThumbLayout && FollowPoll(made)) {
                            BeginChange();
                            Take(made);
                          } else {
                            Apply(change);
                          }
                          Save(options, context, done);
                        });
}

void SiteChanges::Save(const ChangeOptions& options, QObject* context, const Done& done) {
  former_.news = options.news;
  const quint64 number = ++number_;
  const auto saved = [this, number, options, done,
                      context = QPointer<QObject>(context)](const QStringList& notWritten) {
    QStringList failed = notWritten;
    QStringList others;
    if (!options.keepUnsaved) {
      // With a list on the disk the change would come back at the next start, whatever the other files say.
      failed = notWritten.filter(u".lst"_s, Qt::CaseInsensitive);
      if (failed.isEmpty()) others = notWritten;
    }
    Saved(number, options, failed);
    if (context && done) done(failed);
    if (!others.isEmpty()) Q_EMIT NotWritten(others);
  };
  if (SaveAllState) {
    SaveAllState(saved);
  } else {
    saved({});
  }
}

void SiteChanges::Saved(quint64 number, const ChangeOptions& options, const QStringList& notWritten) {
  // Of two changes in quick succession the later one has the word.
  if (number != number_) return;
  if (!notWritten.isEmpty() && !options.keepUnsaved) {
    Apply([former = former_](SiteEdit& edit) { TakeBack(former, edit); });
  } else if (options.news) {
    undoable_ = true;
    Q_EMIT UndoableChanged();
  }
  poll_.StartTimer5();
}

void SiteChanges::BeginChange() {
  Q_EMIT AboutToChange();
  ForgetUndo();
  poll_.EndPoll();
  program_.sites.StorePageSlots(program_.config.ThumbLayout);
}

void SiteChanges::Apply(const Change& change) {
  BeginChange();
  Take(Make(program_.sites, program_.config.ThumbLayout, change));
}

SiteChanges::Made SiteChanges::Make(const SiteTable& table, int layout, const Change& change) {
  Made made{table, {}, SitesOfPlaces(table), table.SitePosMask, false, false};
  SiteTable& sites = made.table;
  SiteEdit edit{TableEdit(sites.Sites), TableEdit(sites.WxSites)};
  change(edit);
  made.filesMoved = edit.filesMoved;
  made.dropsFilesOfNew = edit.dropsFilesOfNew;
  made.former.sites = sites.Sites;
  made.former.wxSites = sites.WxSites;
  std::vector<int> left;
  sites.Sites = edit.dsstv.Left(left);
  // The masks are built anew from PageSlots, so that they need not follow the records.
  made.former.newIndex = NewIndices(left, sites.SortSites(), edit.dsstv.FormerSize());
  sites.WxSites = edit.wx.Left(left);
  made.former.newWxIndex = NewIndices(left, sites.SortWxSites(), edit.wx.FormerSize());
  sites.BuildPageSlots(layout);
  // Makes the index of calls here, so that the first look-up on the event loop has it.
  if (!sites.lstCalls.isEmpty()) sites.FindCall(sites.lstCalls.first());
  return made;
}

bool SiteChanges::FollowPoll(Made& made) const {
  const SiteTable& now = program_.sites;
  Former& former = made.former;
  return now.SitePosMask == made.masks && FollowDates(now.Sites, former.newIndex, former.sites, made.table.Sites) &&
         FollowDates(now.WxSites, former.newWxIndex, former.wxSites, made.table.WxSites);
}

void SiteChanges::Take(const Made& made) {
  const QStringList cams = program_.sites.lstCams;
  program_.sites = made.table;
  former_ = made.former;
  ListCams(cams);
  if (!made.filesMoved) DropFiles(made.before, made.dropsFilesOfNew);
  if (program_.page.OnDsstvPage()) {
    ShowDsstvCells(made.before);
  } else {
    ShowWxCells();
  }
  Q_EMIT Changed();
}

void SiteChanges::TakeBack(const Former& former, SiteEdit& edit) {
  TakeTableBack(edit.dsstv, former.sites, former.newIndex);
  TakeTableBack(edit.wx, former.wxSites, former.newWxIndex);
}

QHash<int, int> SiteChanges::SitesOfPlaces(const SiteTable& sites) {
  QHash<int, int> places;
  // Where two sites stand in one slot, the first entry of the list counts, as it does for the walk.
  for (const QString& entry : sites.lstThumbPos) {
    const int place = static_cast<int>(Val(entry.left(2))) * kPlacesOfPage + static_cast<int>(Val(entry.mid(3, 2))) - 1;
    const int site = SiteOfThumbPos(entry);
    if (site >= 0 && !places.contains(place)) places.insert(place, site);
  }
  return places;
}

// Picture and height of a slot belong to the site that stood there. Those of a slot that has become vacant stay for
// Undo; whoever puts another site there removes them.
void SiteChanges::DropFiles(const QHash<int, int>& before, bool ofNew) {
  const QHash<int, int> now = SitesOfPlaces(program_.sites);
  for (auto place = now.cbegin(); ofNew && place != now.cend(); ++place) {
    if (before.contains(place.key())) continue;
    files_.Remove(place.key() / kPlacesOfPage, place.key() % kPlacesOfPage);
    heights_.SetHeight(place.key() / kPlacesOfPage, place.key() % kPlacesOfPage, 0);
  }
  for (auto place = before.cbegin(); place != before.cend(); ++place) {
    const auto found = now.constFind(place.key());
    if (found == now.cend()) continue;
    const int page = place.key() / kPlacesOfPage;
    const int slot = place.key() % kPlacesOfPage;
    if (former_.newIndex.value(place.value(), -1) != found.value()) {
      files_.Remove(page, slot);
      heights_.SetHeight(page, slot, 0);
      continue;
    }
    // The marker of another address says nothing about the picture that is there: its next one is fetched.
    const bool moved = PlainUrl(former_.sites.at(place.value()).Url) != PlainUrl(program_.sites.Sites.at(*found).Url);
    if (moved) heights_.SetHeight(page, slot, 0);
  }
}

void SiteChanges::EmptyCell(int slot) {
  grid_.ClearCell(slot);
  for (QString& field : program_.page.ThumbFields[static_cast<std::size_t>(slot)]) field.clear();
}

void SiteChanges::ShowDsstvCells(const QHash<int, int>& before) {
  PageState& page = program_.page;
  const SiteTable& sites = program_.sites;
  page.List1.clear();
  for (int slot = 0; slot < page.ThumbCount; ++slot) {
    const int former = before.value(page.CurrentPage * kPlacesOfPage + slot, -1);
    const int site = former_.newIndex.value(former, -1);
    const bool stays = site >= 0 && SiteOfThumbPos(sites.FindThumbPos(page.CurrentPage, slot + 1)) == site;
    if (!stays) {
      // One that is filled by this change is shown by the poll that follows.
      if (!grid_.Cells().at(slot).lblDisk.isEmpty()) EmptyCell(slot);
      continue;
    }
    const SiteRec& record = sites.Sites.at(site);
    page.Field(slot, SlotSite) = QString::number(site);
    page.Field(slot, SlotCall) = record.Call;
    page.List1.append(record.Call + u"    "_s + QString::number(slot + 1));
    const ThumbGrid::Edit cell = grid_.EditCell(slot);
    const QString shown = ShownCall(former_.sites.at(former).Call, program_.ZeroGlyph);
    // The call of this very site, with an age behind it; a caption that merely holds these letters is another's.
    if (cell->lblCall.startsWith(shown)) {
      cell->lblCall = ShownCall(record.Call, program_.ZeroGlyph) + cell->lblCall.mid(shown.size());
    }
    cell->lblDisk = record.Call;
    const bool hasLight = !record.CamUrl.isEmpty() && program_.config.CamMode < 2;
    grid_.ShowCamLight(slot, hasLight ? LightOfSite(program_, record.Call) : CamLight::Hidden);
  }
  page.List1.sort();
}

void SiteChanges::ShowWxCells() {
  const int layout = program_.config.ThumbLayout;
  const QList<SiteRec>& now = program_.sites.WxSites;
  for (qsizetype i = 0; i < former_.wxSites.size(); ++i) {
    const SiteRec& former = former_.wxSites.at(i);
    const int slot = SlotOfWx(former, layout) - 1;
    if (!grid_.HasSlot(slot)) continue;
    const int site = former_.newWxIndex.value(i, -1);
    if (site < 0 || SlotOfWx(now.at(site), layout) != slot + 1) {
      EmptyCell(slot);
    } else if (now.at(site).Call != former.Call) {
      grid_.EditCell(slot)->lblCall = now.at(site).Call;
    }
  }
}

// The list of cams by site: a cam keeps its mark as long as its site keeps its address.
void SiteChanges::ListCams(const QStringList& formerCams) {
  QHash<QString, QChar> marks;
  for (const QString& item : formerCams) marks.insert(item.chopped(2), item.back());
  QHash<QString, QString> newCalls;
  for (qsizetype i = 0; i < former_.sites.size(); ++i) {
    if (former_.sites.at(i).CamUrl.isEmpty()) continue;
    const int site = former_.newIndex.value(i, -1);
    if (site < 0 || program_.sites.Sites.at(site).CamUrl != former_.sites.at(i).CamUrl) continue;
    newCalls.insert(former_.sites.at(i).Call, program_.sites.Sites.at(site).Call);
  }
  QString& names = program_.page.ActiveCamNames;
  const QStringList active = names.split(u'*', Qt::SkipEmptyParts);
  names.clear();
  for (const QString& call : active) {
    if (newCalls.contains(call)) names += u'*' + newCalls.value(call);
  }
  SiteTable& sites = program_.sites;
  const int mode = program_.config.CamMode;
  sites.lstCams.clear();
  if (mode == 0 || (mode == 1 && program_.page.OnDsstvPage())) {
    sites.ListCams(mode == 0 ? 0 : program_.page.CurrentPage);
  }
  QHash<QString, QChar> kept;
  for (auto call = newCalls.cbegin(); call != newCalls.cend(); ++call) {
    if (marks.contains(call.key())) kept.insert(call.value(), marks.value(call.key()));
  }
  for (QString& item : sites.lstCams) {
    const QString call = item.chopped(2);
    if (kept.contains(call)) item = call + u'*' + kept.value(call);
  }
}

std::optional<SiteNews> SiteChanges::Undoable() const {
  return undoable_ ? former_.news : std::nullopt;
}

void SiteChanges::Undo(QObject* context, const Done& done) {
  if (!undoable_) return;
  // What the user sees come back stays, even where it cannot be saved now: the next save makes up for it.
  ChangeOptions options;
  options.keepUnsaved = true;
  ChangeManySites([former = former_](SiteEdit& edit) { TakeBack(former, edit); }, options, context, done);
}

void SiteChanges::ForgetUndo() {
  if (!std::exchange(undoable_, false)) return;
  Q_EMIT UndoableChanged();
}
