// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/picture_intake.h"

#include <QFile>
#include <QFileInfo>
#include <cmath>

#include "core/page_files.h"
#include "page/still_pictures.h"
#include "platform/picture/file_type.h"
#include "station/callsign.h"
#include "station/date_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kThumbBox(116, 86);
constexpr qsizetype kLeastBytes = 101;
constexpr qint64 kUnknownLength = 30000;  // scale of the bar where the server tells no length
constexpr qint64 kBeyond = 5000;          // and how far it moves ahead of a body that is longer than told
constexpr qint64 kFileTail = 100;

}  // namespace

PictureIntake::PictureIntake(Program& program, ThumbGrid& grid, PictureTool& tool, Background& background,
                             const Clock& clock, UserControl1& download, QObject* parent)
    : QObject(parent),
      program_(program),
      grid_(grid),
      tool_(tool),
      background_(background),
      clock_(clock),
      download_(download) {
  connect(&download_, &UserControl1::PictureReady, this, &PictureIntake::PictureReady);
  connect(&download_, &UserControl1::NoImage, this, &PictureIntake::NoImage);
  connect(&download_, &UserControl1::Progress, this, &PictureIntake::Progress);
}

std::optional<PictureIntake::Answer> PictureIntake::ReadKey(const QString& key) const {
  Answer answer;
  answer.page = static_cast<int>(std::floor(Val(key) / 100));
  if (answer.page != program_.page.CurrentPage) return std::nullopt;
  answer.slot = static_cast<int>(Val(key.section(u'-', 0, 0))) - answer.page * 100;
  // A site of the weather page is no index into the DSSTV table: its picture must not date a station of that table.
  if (key.contains(u'-') && program_.page.OnDsstvPage()) answer.site = static_cast<int>(Val(key.section(u'-', 1)));
  if (answer.slot < 0 || answer.slot > program_.page.ThumbCount - 1) return std::nullopt;
  return answer;
}

bool PictureIntake::Current(const Answer& answer) const {
  return answer.page == program_.page.CurrentPage && answer.slot < program_.page.ThumbCount &&
         serials_[static_cast<std::size_t>(answer.slot)] == answer.serial;
}

void PictureIntake::ClearFields(int slot) {
  program_.page.Field(slot, Caller).clear();
  program_.page.Field(slot, ModeText).clear();
  program_.page.Field(slot, SentTime).clear();
}

void PictureIntake::PictureReady(const QString& key, const QByteArray& body) {
  std::optional<Answer> answer = ReadKey(key);
  if (!answer) return;
  answer->serial = ++serials_[static_cast<std::size_t>(answer->slot)];
  ClearFields(answer->slot);
  // A small picture may come whole before its progress was ever told, and no check stands before one of the WX page.
  grid_.SetConnecting(answer->slot, false);
  grid_.ClearFrom(answer->slot);
  ++program_.page.SitesDone;
  const bool dsstv = program_.page.OnDsstvPage();
  const QString path =
      dsstv ? PicturePath(program_.AppDataDir, answer->page, answer->slot) : WxPath(program_.AppDataDir, answer->slot);
  const QString thumbPath = dsstv ? ThumbPath(program_.AppDataDir, answer->page, answer->slot) : path;
  background_.Run<Judged>(
      this, [body, path, thumbPath]() { return Store(body, path, thumbPath); },
      [this, answer = *answer](const Judged& judged) {
        if (Current(answer)) Stored(answer, judged);
      });
}

PictureIntake::Judged PictureIntake::Store(const QByteArray& body, const QString& path, const QString& thumbPath) {
  Judged judged;
  // The old picture goes before the new bytes are judged.
  QFile::remove(path);
  judged.shortBody = body.size() < kLeastBytes;
  if (judged.shortBody) return judged;
  judged.errorPage = body.contains("404") && body.contains("html");
  if (judged.errorPage) return judged;
  judged.tail = TailOfDownload(body);
  judged.type = FileTypeOf(body.left(300));
  // A picture can be fetched again: it is written plainly, without waiting for the disk as the user's lists are.
  QFile file(path);
  if (file.open(QIODevice::WriteOnly) && file.write(body) != body.size()) file.remove();
  file.close();
  if (thumbPath == path) return judged;
  if (judged.type == "gif"_L1) {
    // As it is, though the name ends in ".jpg": it plays in its cell.
    QFile::remove(thumbPath);
    QFile::copy(path, thumbPath);
  } else if (IsVideoType(judged.type)) {
    WriteStill(FilmStrip(), thumbPath);
  }
  return judged;
}

void PictureIntake::Stored(const Answer& answer, const Judged& judged) {
  if (judged.shortBody || judged.errorPage) {
    grid_.ShowNotFound(answer.slot, answer.site, false);
    return;
  }
  if (judged.tail.size() <= 60) {
    TakeCaption(answer.slot, answer.site, ParseTailFromDownload(judged.tail, program_.ZeroGlyph));
  }
  const QString path = PicturePath(program_.AppDataDir, answer.page, answer.slot);
  const QString thumbPath = ThumbPath(program_.AppDataDir, answer.page, answer.slot);
  if (!program_.page.OnDsstvPage()) {
    Show(answer, WxPath(program_.AppDataDir, answer.slot));
  } else if (judged.type == "gif"_L1 || IsVideoType(judged.type)) {
    Show(answer, thumbPath);
  } else {
    // A thumb that cannot be made must not leave the former picture's thumb to be shown in its place.
    QFile::remove(thumbPath);
    tool_.MakeThumb(path, thumbPath, kThumbBox, this, [this, answer, thumbPath](const PictureAnswer&) {
      if (Current(answer)) Show(answer, thumbPath);
    });
  }
}

void PictureIntake::TakeCaption(int slot, int site, const Caption& caption) {
  PageState& page = program_.page;
  if (caption.Caller) page.Field(slot, Caller) = *caption.Caller;
  if (caption.ModeText) page.Field(slot, ModeText) = *caption.ModeText;
  if (caption.SentTime) {
    page.Field(slot, SentTime) = *caption.SentTime;
    if (site >= 0 && site < program_.sites.Sites.size()) program_.sites.Sites[site].LastSeen = *caption.SentTime;
  }
  grid_.ShowCaption(slot, caption.ModeTag, caption.FromCall);
}

void PictureIntake::Show(const Answer& answer, const QString& thumbPath) {
  if (answer.site >= 0 && answer.site < program_.sites.Sites.size()) {
    QString& lastSeen = program_.sites.Sites[answer.site].LastSeen;
    if (lastSeen.isEmpty()) lastSeen = DateText(clock_.Now());
  }
  grid_.HideProgress(answer.slot);
  grid_.ShowThumb(thumbPath, answer.slot, answer.site, [this, answer]() {
    if (Current(answer)) Shown(answer);
  });
}

void PictureIntake::Shown(const Answer& answer) {
  if (program_.page.OnDsstvPage()) grid_.ColourByAge(answer.slot, answer.site);
  program_.page.Field(answer.slot, ShownMark).clear();
  if (const int reason = BlockReason(answer.slot); reason != 0) grid_.ShowBlockedCall(answer.slot, reason);
  Q_EMIT PictureShown();
}

int PictureIntake::BlockReason(int slot) const {
  QString caller = program_.page.Field(slot, Caller);
  if (!caller.isEmpty() && IsBadCall(caller, program_.lstBadCalls)) return 2;
  for (QString entry : program_.lstBlock) {
    entry.replace(u'Ø', u'0');
    if (!entry.isEmpty() && caller.toUpper().contains(entry)) return 1;
  }
  return 0;
}

void PictureIntake::NoImage(const QString& key) {
  const std::optional<Answer> answer = ReadKey(key);
  if (!answer) return;
  ++serials_[static_cast<std::size_t>(answer->slot)];
  grid_.SetConnecting(answer->slot, false);
  ClearFields(answer->slot);
  QFile::remove(PicturePath(program_.AppDataDir, answer->page, answer->slot));
  QFile::remove(ThumbPath(program_.AppDataDir, answer->page, answer->slot));
  grid_.ShowNotFound(answer->slot, answer->site, false);
  // Counted once by the error box and once more here: the double count is the design's.
  ++program_.page.SitesDone;
  Q_EMIT PictureFailed();
}

void PictureIntake::Progress(const QString& key, qint64 max, qint64 read) {
  const std::optional<Answer> answer = ReadKey(key);
  if (!answer) return;
  if (max <= 0) max = kUnknownLength;
  if (read > max) max = read + kBeyond;
  if (read >= max) {
    grid_.HideProgress(answer->slot);
    return;
  }
  grid_.SetConnecting(answer->slot, false);
  grid_.SetProgress(answer->slot, static_cast<int>(read * 100 / max));
}

void PictureIntake::ReadCaptionFromFile(int page, int slot, int site) {
  if (slot > program_.page.ThumbCount - 1) return;
  grid_.SetConnecting(slot, false);
  grid_.SetFromVisible(slot);
  QFile file(PicturePath(program_.AppDataDir, page, slot));
  QByteArray last;
  if (file.open(QIODevice::ReadOnly) && file.size() >= kFileTail && file.seek(file.size() - kFileTail)) {
    last = file.read(kFileTail);
  }
  if (last.size() != kFileTail) {
    if (!program_.page.Online || site < 0 || site >= program_.sites.Sites.size()) return;
    download_.DownloadFile(PlainUrl(program_.sites.Sites.at(site).Url), u"%1-%2"_s.arg(page * 100 + slot).arg(site));
    return;
  }
  ClearFields(slot);
  grid_.ClearFrom(slot);
  if (last.contains("html")) {
    grid_.ShowNotFound(slot, site, false);
    return;
  }
  TakeCaption(slot, site, ParseTailFromFile(TailOfFile(last), program_.ZeroGlyph));
  // What may not be shown stays blanked when it comes from the disk; nothing is counted, since nothing was asked.
  if (const int reason = BlockReason(slot); reason != 0) grid_.BlankCall(slot, reason);
}
