// SPDX-License-Identifier: GPL-3.0-or-later
// The cells of the page on the screen and the page's own rules for them: ages and colours, on air or not, the texts of
// error boxes. The poll, the check and the intake call it; the window paints the cells and listens to CellChanged.
#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <functional>
#include <optional>

#include "core/program.h"
#include "page/picture_cells.h"
#include "platform/clock.h"

class ThumbGrid : public QObject {
  Q_OBJECT

 public:
  using Done = PictureCells::Done;
  // Changes that belong together: their cells raise one CellChanged each when the last Edit ends.
  using Edit = PictureCells::Edit;

  ThumbGrid(Program& program, PictureTool& tool, Background& background, const Clock& clock, QObject* parent = nullptr);

  // Makes the cells of the layout, all empty; sets ThumbCount.
  void MakeGrid(int thumbLayout);
  void ClearThumbs();
  void ClearCell(int slot) { cells_.Clear(slot); }
  const QList<Cell>& Cells() const { return cells_.Cells(); }
  bool HasSlot(int slot) const { return cells_.HasSlot(slot); }
  // To hold back the signals of several changes; slot has to be one of the page.
  PictureCells& Parts() { return cells_; }

  void SetPictureBox(QSize pixels) { cells_.SetPictureBox(pixels); }
  void Flash(int slot) { cells_.Flash(slot); }

  // Shows a thumb or a WX picture. What cannot be shown at all ends in the error box, before done is told so. anew:
  // even where the very file stands in the cell; else done may never be called.
  void ShowThumb(const QString& path, int slot, int site, bool anew, const Done& done);
  // Error box; corrupt chooses its second line. Whoever shows it has to tell the poll if it answers a request.
  void ShowNotFound(int slot, int site, bool corrupt);
  // The same box for a picture that may well be good: no picture is decoded on this system. Its tip says so.
  void ShowNoSandbox(int slot, int site);
  // Blanks a picture: 1 for a blocked call, 2 for one that may not be shown. Not over an error box: false.
  bool ShowBlockedCall(int slot, int reason);
  void ShowCamOnly(int slot);
  // Age suffix and state colour from the picture's date.
  void ColourByAge(int slot);
  // Ages again after another language has been read. Error boxes keep roles and need nothing.
  void TakeLanguage();

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

 private:
  void AgeOfNotFound(int slot, int site);
  QString Aged(const QString& call, qint64 days, qint64 from) const;
  // Present time as UTC.
  QDateTime UtcNow() const;

  Program& program_;
  const Clock& clock_;
  PictureCells cells_;
};
