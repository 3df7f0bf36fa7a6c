// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/page_click.h"

#include <QPointer>
#include <QUrl>

#include "core/page_files.h"
#include "platform/text/numbers.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

PageClick::PageClick(Program& program, ThumbGrid& grid, PollCycle& poll, QObject* parent)
    : QObject(parent), program_(program), grid_(grid), poll_(poll) {}

bool PageClick::Opens(int slot) const {
  if (!grid_.HasSlot(slot)) return false;
  QString caller = program_.page.Field(slot, Caller);
  if (caller == "Not found"_L1) return false;
  // A picture that names no sender is opened: only a call that was read can be bad. A blocked sender's picture, which
  // the page blanks, is opened too.
  if (!caller.isEmpty() && IsBadCall(caller, program_.lstBadCalls)) return false;
  const Cell& cell = grid_.Cells().at(slot);
  // The cell of a site with nothing but a cam has no file.
  if (cell.lblFrom == "Cam only"_L1) return false;
  return !cell.lblCall.isEmpty() && !cell.picProg;
}

SourcePicture PageClick::PictureOf(int slot) const {
  const PageState& page = program_.page;
  const bool dsstv = page.OnDsstvPage();
  SourcePicture picture;
  picture.source = {PictureSource::Window::Page, slot};
  picture.file = dsstv ? PicturePath(program_.AppDataDir, page.CurrentPage, slot) : WxPath(program_.AppDataDir, slot);
  picture.site = dsstv ? page.Field(slot, SlotCall) : grid_.Cells().at(slot).lblCall;
  picture.sender = page.Field(slot, Caller);
  picture.mode = page.Field(slot, ModeText);
  picture.sentTime = page.Field(slot, SentTime);
  picture.weather = !dsstv;
  if (!dsstv) return picture;
  const QList<SiteRec>& sites = program_.sites.Sites;
  const auto site = static_cast<int>(Val(page.Field(slot, SlotSite)));
  if (site >= 0 && site < sites.size()) picture.host = QUrl(PlainUrl(sites.at(site).Url)).host();
  return picture;
}

PictureList PageClick::Pictures(int slot) const {
  PictureList list;
  for (int each = 0; each < grid_.Cells().size(); ++each) {
    if (each == slot) list.at = list.pictures.size();
    if (Opens(each)) list.pictures.append(PictureOf(each));
  }
  list.renew = [page = QPointer(this), slot]() { return page ? page->Pictures(slot) : PictureList(); };
  return list;
}

void PageClick::Press(int slot) {
  if (!grid_.HasSlot(slot)) return;
  program_.page.SelectedSlot = slot;
  if (!Opens(slot)) return;
  poll_.Rest();
  Q_EMIT ViewerWanted(Pictures(slot));
}

void PageClick::Mark(int slot) {
  if (Opens(slot)) grid_.ToggleMark(slot);
}

bool PageClick::Compare() {
  PictureList pair;
  for (const int slot : grid_.Marked()) {
    // A mark stays while its picture is replaced, even by an error box.
    if (Opens(slot)) pair.pictures.append(PictureOf(slot));
  }
  if (pair.pictures.size() != 2) return false;
  poll_.Rest();
  Q_EMIT ComparisonWanted(pair);
  return true;
}

void PageClick::MarkFilm(const SourcePicture& picture) {
  const int slot = picture.source.slot;
  if (picture.source.window != PictureSource::Window::Page || !Opens(slot)) return;
  if (PictureOf(slot) == picture) grid_.ShowFilm(slot);
}
