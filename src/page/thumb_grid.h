// SPDX-License-Identifier: GPL-3.0-or-later
// The cells of the page on the screen: what each shows, from a thumb on the disk to the error box. The poll, the check
// and the intake call it; the window paints the cells and listens to CellChanged.
#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <optional>

#include "core/program.h"
#include "page/cell.h"
#include "platform/background.h"
#include "platform/clock.h"
#include "platform/picture/picture_tool.h"

class ThumbGrid : public QObject {
  Q_OBJECT

 public:
  ThumbGrid(Program& program, PictureTool& tool, Background& background, const Clock& clock, QObject* parent = nullptr);

  // Makes the cells of the layout, all empty; sets ThumbCount.
  void MakeGrid(int thumbLayout);
  void ClearThumbs();
  void ClearCell(int slot);
  const QList<Cell>& Cells() const { return cells_; }
  bool HasSlot(int slot) const { return slot >= 0 && slot < cells_.size(); }

  // Size in device pixels of a cell's picture on the screen; pictures are read no larger than that. Where a thumb is
  // smaller, the stored picture itself is read again for the cell once nothing else is waiting.
  void SetPictureBox(QSize pixels);

  // Reads the file beside the event loop and shows it; a file that the cell cannot take is repaired to 24 bits first.
  // What cannot be shown at all ends in the error box. shown is called once the cell stands, unless something else was
  // put into the cell or the page changed meanwhile.
  void ShowThumb(const QString& path, int slot, int site, const std::function<void()>& shown = {});
  // Error box; corrupt chooses its second line. Counts an answer: NotFoundShown follows.
  void ShowNotFound(int slot, int site, bool corrupt);
  // Blanks a picture: 1 for a blocked call, 2 for one that may not be shown. BlockedShown follows.
  void ShowBlockedCall(int slot, int reason);
  // The same without counting, for pictures that come from the disk.
  void BlankCall(int slot, int reason);
  void ShowCamOnly(int slot);
  // Age suffix and state colour from the picture's date.
  void ColourByAge(int slot, int site);

  // Lets a cell blink in blue for three seconds, so that the eye finds it.
  void Flash(int slot);

  // Answer of the marker: tip and colour.
  void SetOnAir(int slot, bool onAir);
  void SetConnecting(int slot, bool visible);
  void SetProgress(int slot, int percent);
  void HideProgress(int slot);
  void SetFromVisible(int slot);
  // Ties a cell to a site: the call is its caption until an age suffix comes.
  void SetSite(int slot, const QString& call);
  // A fresh caption of a WX site: its title and the connecting text.
  void SetWxSite(int slot, const QString& title);
  void ClearFrom(int slot);
  // Caption back to the bare call, no on-air tip: the check failed.
  void ForgetOnAir(int slot);
  // Mode tag with its colour (empty hides it) and, where the tail told one, the sender's call.
  void ShowCaption(int slot, const QString& modeTag, const std::optional<QString>& fromCall);
  void SetReloadMark(int slot);
  void ShowCamLight(int slot, CamLight light);
  // Hides the picture of every cell, as a walk over the WX page begins.
  void HidePictures();

 Q_SIGNALS:
  void CellChanged(int slot);
  void GridMade();
  void NotFoundShown(int slot);
  void BlockedShown(int slot);

 private:
  struct Shown {
    QString path;  // file that the cell shows, to pass over showing it again
    qint64 changed = 0;
    qint64 size = 0;
  };

  Cell& At(int slot) { return cells_[slot]; }
  void Changed(int slot) { Q_EMIT CellChanged(slot); }
  // Whatever was under way for the cell's picture no longer counts.
  void Retire(int slot);
  bool Current(int slot, int generation, int page) const;
  void Loaded(const QString& path, int slot, int site, const PictureAnswer& answer, const std::function<void()>& shown);
  void ShowVideo(const QString& path, int slot, const std::function<void()>& shown);
  // The next cell whose thumb is enlarged on the screen gets its picture at that size. The thumb on the disk stays.
  void SharpenNext();
  void Timer2Tick();
  void Repair(const QString& path, int slot, int site, const std::function<void()>& shown);
  void Place(int slot, const PictureAnswer& answer);
  void ErrorBox(int slot, const QString& caption, const QString& first, const QString& second);
  void AgeOfNotFound(int slot, int site);
  // Present time as UTC.
  QDateTime UtcNow() const;

  Program& program_;
  PictureTool& tool_;
  Background& background_;
  const Clock& clock_;
  QList<Cell> cells_;
  QList<int> generations_;
  QList<Shown> shown_;
  QList<bool> blurred_;  // cells that show a thumb enlarged
  QTimer sharpenTimer_;
  QTimer Timer2_;  // 150 ms while a cell blinks
  int flashSlot_ = -1;
  int flashTicks_ = 0;
  QSize box_{232, 172};
};
