// SPDX-License-Identifier: GPL-3.0-or-later
// The intake of a picture: judges the bytes of an answer, stores them, reads their tail, has the thumb made and shows
// it. Bytes are touched beside the event loop; the answer's page is tested again when they come back.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include "core/program.h"
#include "page/thumb_grid.h"
#include "platform/background.h"
#include "platform/clock.h"
#include "platform/picture/picture_tool.h"
#include "poll/caption.h"
#include "poll/download_control.h"

class PictureIntake : public QObject {
  Q_OBJECT

 public:
  PictureIntake(Program& program, ThumbGrid& grid, PictureTool& tool, Background& background, const Clock& clock,
                UserControl1& download, QObject* parent = nullptr);

  // The caption of a picture that lies on the disk. A file that cannot be read is asked for anew.
  void ReadCaptionFromFile(int page, int slot, int site);

 Q_SIGNALS:
  // A picture stands in its cell; the poll looks whether it was exactly the last.
  void PictureShown();
  // A failed download has been counted.
  void PictureFailed();

 private:
  struct Answer {
    int page = 0;
    int slot = 0;
    int site = -1;   // -1: a WX picture
    int serial = 0;  // which answer for this slot; a later one makes it void
  };
  struct Judged {
    bool shortBody = false;
    bool errorPage = false;
    QString tail;
    QString type;
  };

  void PictureReady(const QString& key, const QByteArray& body);
  void NoImage(const QString& key);
  void Progress(const QString& key, qint64 max, qint64 read);

  std::optional<Answer> ReadKey(const QString& key) const;
  bool Current(const Answer& answer) const;
  void ClearFields(int slot);
  static Judged Store(const QByteArray& body, const QString& path, const QString& thumbPath);
  void Stored(const Answer& answer, const Judged& judged);
  void TakeCaption(int slot, int site, const Caption& caption);
  void Show(const Answer& answer, const QString& thumbPath);
  void Shown(const Answer& answer);
  // 1 for a blocked caller, 2 for a bad call, 0 for neither.
  int BlockReason(int slot) const;

  Program& program_;
  ThumbGrid& grid_;
  PictureTool& tool_;
  Background& background_;
  const Clock& clock_;
  UserControl1& download_;
  std::array<int, kMaxSlots> serials_{};
};
