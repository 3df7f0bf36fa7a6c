// SPDX-License-Identifier: GPL-3.0-or-later
// The intake of a picture: takes the answers of the download control, has them stored, reads their tails and shows
// them, and restores captions from the disk. It says how each answer ended; the poll counts.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include "core/picture_key.h"
#include "core/program.h"
#include "page/thumb_grid.h"
#include "platform/clock.h"
#include "poll/caption.h"
#include "poll/download_control.h"
#include "poll/slot_pictures.h"

// How a picture's answer ended.
enum class AnswerOutcome {
  Shown,
  Blanked,   // its caller is blocked or bad
  Unusable,  // too short a body, or an error page: the error box
  Corrupt,   // stored, but it cannot be shown: the error box
  Failed,    // the read failed: the error box
  GivenUp    // overtaken by a newer answer, or its site has left the slot: nothing is stored or shown
};

// How reading the caption of a stored picture ended.
enum class StoredCaption {
  Read,
  AskedAnew,  // the file cannot be read, and the picture is fetched again
  ErrorPage,  // the file is an error page, and the cell shows the error box
  Blanked     // its caller is blocked or bad, and the cell blanked
};

// Takes the answers for the page on the screen.
class PictureIntake : public QObject {
  Q_OBJECT

 public:
  PictureIntake(Program& program, ThumbGrid& grid, SlotPictures& files, const Clock& clock, UserControl1& download,
                QObject* parent = nullptr);

  // Reads and shows the caption of a picture on the disk. If the file cannot be read, the picture is fetched again.
  StoredCaption ReadCaptionFromFile(int page, int slot, int site);
  // Shows a slot's picture from the disk without asking the site or counting: its thumb, which is made if it is
  // missing, or the error box if the picture could not be shown before.
  void ShowStored(int page, int slot, int site);

 Q_SIGNALS:
  // An answer for the page on the screen has been dealt with.
  void Answered(int slot, AnswerOutcome outcome);

 private:
  // An answer that is being dealt with.
  struct Answer {
    PictureKey key;
    Wanted::Token visit;  // the visit of the page in which the answer came; it counts only while that lasts
  };

  void PictureReady(const QString& text, const QByteArray& body);
  void NoImage(const QString& text);
  void Progress(const QString& text, qint64 max, qint64 read);

  // The key in a text; nothing if it is not one of the page on the screen.
  std::optional<PictureKey> KeyOf(const QString& text) const;
  bool OnScreen(const PictureKey& key) const;
  // The key's index into Sites; -1 for a WX site, which is not in that table.
  static int DsstvSite(const PictureKey& key);
  void End(const Answer& answer, AnswerOutcome outcome);
  void DropOfVacantSlot(const PictureKey& key);
  void ClearFields(int slot);
  void Stored(const Answer& answer, FilesVerdict verdict, const QString& tail);
  void TakeCaption(int slot, int site, Caption caption, const QString& tail);
  void Show(const Answer& answer);
  void Shown(const Answer& answer, CellResult result);
  // 1 for a blocked caller, 2 for a bad call, 0 for neither.
  int BlockReason(int slot) const;

  Program& program_;
  ThumbGrid& grid_;
  SlotPictures& files_;
  const Clock& clock_;
  UserControl1& download_;
};
