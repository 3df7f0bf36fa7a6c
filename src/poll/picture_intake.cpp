// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/picture_intake.h"

#include <QFile>

#include "core/page_files.h"
#include "poll/blocked_caller.h"
#include "station/date_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kFileTail = 100;
constexpr qsizetype kLongestTail = 60;

// The last bytes of a weather picture are seldom a caption: only a complete one names a sender there.
bool IsWholeCaption(const QString& tail) {
  return tail.count(u'*') >= 2 && tail.contains(u':');
}

}  // namespace

PictureIntake::PictureIntake(Program& program, ThumbGrid& grid, SlotPictures& files, const Clock& clock,
                             UserControl1& download, QObject* parent)
    : QObject(parent), program_(program), grid_(grid), files_(files), clock_(clock), download_(download) {
  connect(&download_, &UserControl1::PictureReady, this, &PictureIntake::PictureReady);
  connect(&download_, &UserControl1::NoImage, this, &PictureIntake::NoImage);
  connect(&download_, &UserControl1::Progress, this, &PictureIntake::Progress);
}

std::optional<PictureKey> PictureIntake::KeyOf(const QString& text) const {
  const std::optional<PictureKey> key = PictureKey::Read(text);
  return key && OnScreen(*key) ? key : std::nullopt;
}

bool PictureIntake::OnScreen(const PictureKey& key) const {
  return key.page == program_.page.CurrentPage && grid_.HasSlot(key.slot);
}

int PictureIntake::DsstvSite(const PictureKey& key) {
  return key.page < PageState::WxPage ? key.site : PictureKey::kNoSite;
}

void PictureIntake::End(const Answer& answer, AnswerOutcome outcome) {
  if (answer.visit.StillWanted() && OnScreen(answer.key)) Q_EMIT Answered(answer.key.slot, outcome);
}

void PictureIntake::ClearFields(int slot) {
  program_.page.Field(slot, Caller).clear();
  program_.page.Field(slot, ModeText).clear();
  program_.page.Field(slot, SentTime).clear();
}

void PictureIntake::DropOfVacantSlot(const PictureKey& key) {
  const bool dsstv = key.page < PageState::WxPage;
  // The marker's height stays recorded. Should the site come back, its picture is fetched again because the file is
  // missing.
  if (dsstv && program_.sites.FindThumbPos(key.page, key.slot + 1).isEmpty()) files_.Remove(key.page, key.slot);
}

void PictureIntake::PictureReady(const QString& text, const QByteArray& body) {
  const std::optional<PictureKey> key = KeyOf(text);
  if (!key) return;
  const Answer answer{*key, program_.page.visit.Present()};
  if (!files_.Stands(*key)) {
    DropOfVacantSlot(*key);
    End(answer, AnswerOutcome::GivenUp);
    return;
  }
  ClearFields(key->slot);
  {
    const ThumbGrid::Edit cell = grid_.EditCell(key->slot);
    // The connecting label may still be there: a small picture may come whole without a progress signal, and no marker
    // check precedes the picture of a WX site.
    cell->lblConnect = false;
    cell->lblFrom.clear();
  }
  files_.Take(*key, body, [this, answer](FilesVerdict verdict, const QString& tail) { Stored(answer, verdict, tail); });
}

void PictureIntake::Stored(const Answer& answer, FilesVerdict verdict, const QString& tail) {
  const PictureKey& key = answer.key;
  if (verdict == FilesVerdict::GivenUp) return End(answer, AnswerOutcome::GivenUp);
  if (!OnScreen(key)) return;  // the page shows the stored files when the user comes back to it
  const ThumbGrid::Edit cell = grid_.EditCell(key.slot);
  if (verdict == FilesVerdict::Unusable) {
    grid_.ShowNotFound(key.slot, DsstvSite(key), false);
    return End(answer, AnswerOutcome::Unusable);
  }
  if (tail.size() <= kLongestTail) {
    TakeCaption(key.slot, DsstvSite(key), ParseTailFromDownload(tail, program_.ZeroGlyph), tail);
  }
  if (const int site = DsstvSite(key); site >= 0 && site < program_.sites.Sites.size()) {
    QString& lastSeen = program_.sites.Sites[site].LastSeen;
    if (lastSeen.isEmpty()) lastSeen = DateText(clock_.Now());
  }
  cell->picProg = false;
  if (verdict == FilesVerdict::NoThumb) {
    grid_.ShowNotFound(key.slot, DsstvSite(key), true);
    return Shown(answer, CellResult::Unreadable);
  }
  if (verdict == FilesVerdict::NoSandbox) {
    grid_.ShowNoSandbox(key.slot, DsstvSite(key));
    return Shown(answer, CellResult::NoSandbox);
  }
  Show(answer);
}

void PictureIntake::TakeCaption(int slot, int site, Caption caption, const QString& tail) {
  PageState& page = program_.page;
  if (caption.Caller) page.Field(slot, Caller) = *caption.Caller;
  if (caption.ModeText) page.Field(slot, ModeText) = *caption.ModeText;
  if (caption.SentTime) {
    page.Field(slot, SentTime) = *caption.SentTime;
    if (site >= 0 && site < program_.sites.Sites.size()) program_.sites.Sites[site].LastSeen = *caption.SentTime;
  }
  if (!page.OnDsstvPage() && !IsWholeCaption(tail)) caption.FromCall.reset();
  grid_.ShowCaption(slot, caption.ModeTag, caption.FromCall);
}

void PictureIntake::Show(const Answer& answer) {
  const PictureKey& key = answer.key;
  grid_.ShowThumb(files_.Thumb(key.page, key.slot), key.slot, DsstvSite(key), true, [this, answer](CellResult result) {
    if (result == CellResult::Unreadable) files_.RememberFailure(answer.key.page, answer.key.slot);
    if (result == CellResult::Overtaken) return End(answer, AnswerOutcome::GivenUp);
    Shown(answer, result);
  });
}

void PictureIntake::Shown(const Answer& answer, CellResult result) {
  const int slot = answer.key.slot;
  if (program_.page.OnDsstvPage()) grid_.ColourByAge(slot);
  program_.page.Field(slot, ShownMark).clear();
  if (result != CellResult::Shown) return End(answer, AnswerOutcome::Corrupt);
  const int reason = BlockReason(slot);
  const bool blanked = reason != 0 && grid_.ShowBlockedCall(slot, reason);
  End(answer, blanked ? AnswerOutcome::Blanked : AnswerOutcome::Shown);
}

int PictureIntake::BlockReason(int slot) const {
  return ::BlockReason(program_, program_.page.Field(slot, Caller));
}

void PictureIntake::NoImage(const QString& text) {
  const std::optional<PictureKey> key = KeyOf(text);
  if (!key) return;
  const Answer answer{*key, program_.page.visit.Present()};
  if (!files_.Stands(*key)) {
    DropOfVacantSlot(*key);
    return End(answer, AnswerOutcome::GivenUp);
  }
  const ThumbGrid::Edit cell = grid_.EditCell(key->slot);
  cell->lblConnect = false;
  ClearFields(key->slot);
  files_.Remove(key->page, key->slot);
  grid_.ShowNotFound(key->slot, DsstvSite(*key), false);
  End(answer, AnswerOutcome::Failed);
}

void PictureIntake::Progress(const QString& text, qint64 max, qint64 read) {
  const std::optional<PictureKey> key = KeyOf(text);
  if (!key || !files_.Stands(*key)) return;
  const std::optional<int> percent = PercentRead(max, read);
  const ThumbGrid::Edit cell = grid_.EditCell(key->slot);
  if (!percent) return grid_.HideProgress(key->slot);
  grid_.SetConnecting(key->slot, false);
  grid_.SetProgress(key->slot, *percent);
}

StoredCaption PictureIntake::ReadCaptionFromFile(int page, int slot, int site) {
  if (!grid_.HasSlot(slot)) return StoredCaption::Read;
  const ThumbGrid::Edit cell = grid_.EditCell(slot);
  cell->lblConnect = false;
  cell->fromVisible = true;
  QFile file(PicturePath(program_.AppDataDir, page, slot));
  QByteArray last;
  if (file.open(QIODevice::ReadOnly) && file.size() >= kFileTail && file.seek(file.size() - kFileTail)) {
    last = file.read(kFileTail);
  }
  if (last.size() != kFileTail) {
    if (program_.page.Online && site >= 0 && site < program_.sites.Sites.size()) {
      download_.DownloadFile(PlainUrl(program_.sites.Sites.at(site).Url), PictureKey{page, slot, site}.Text());
    }
    return StoredCaption::AskedAnew;
  }
  ClearFields(slot);
  cell->lblFrom.clear();
  if (last.contains("html")) {
    grid_.ShowNotFound(slot, site, false);
    return StoredCaption::ErrorPage;
  }
  const FileTail tail = TailOfFile(last);
  TakeCaption(slot, site, ParseTailFromFile(tail, program_.ZeroGlyph), tail.tail);
  // A blocked picture is blanked again when it comes from the disk. Nothing is counted, since nothing was asked.
  const int reason = BlockReason(slot);
  return reason != 0 && grid_.ShowBlockedCall(slot, reason) ? StoredCaption::Blanked : StoredCaption::Read;
}

void PictureIntake::ShowStored(int page, int slot, int site) {
  const PictureKey key{page, slot, site};
  const auto fail = [this, key]() { grid_.ShowNotFound(key.slot, key.site, true); };
  if (files_.HasFailed(page, slot)) return fail();
  const QString thumb = files_.Thumb(page, slot);
  const auto show = [this, key, thumb]() {
    grid_.ShowThumb(thumb, key.slot, key.site, false, [this, key](CellResult result) {
      if (result == CellResult::Unreadable) files_.RememberFailure(key.page, key.slot);
    });
  };
  if (QFile::exists(thumb)) return show();
  if (!QFile::exists(files_.Picture(page, slot))) return;
  files_.MakeMissingThumb(key, [this, key, show, fail](FilesVerdict verdict) {
    // The user may have left the page, or blocked the sender, while the thumb was made.
    if (verdict == FilesVerdict::GivenUp || !OnScreen(key) || BlockReason(key.slot) != 0) return;
    if (verdict == FilesVerdict::NoThumb) return fail();
    if (verdict == FilesVerdict::NoSandbox) return grid_.ShowNoSandbox(key.slot, key.site);
    show();
  });
}
