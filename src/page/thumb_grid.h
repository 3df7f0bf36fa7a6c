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

// The cells of the page on the screen.
class ThumbGrid : public QObject {
  Q_OBJECT

 public:
  using Done = PictureCells::Done;
  // Changes that belong together: their cells raise one CellChanged each when the last Edit ends.
  using Edit = PictureCells::Edit;

  ThumbGrid(Program& program, PictureTool& tool, const Clock& clock, QObject* parent = nullptr);

  // Makes the cells of the layout, all empty; sets ThumbCount.
  void MakeGrid(int thumbLayout);
  void ClearThumbs();
  void ClearCell(int slot) { cells_.Clear(slot); }
  // Voids all that is under way for the cells; takes "connecting" and the progress bar away.
  void EndWaiting();
  const QList<Cell>& Cells() const { return cells_.Cells(); }
  bool HasSlot(int slot) const { return cells_.HasSlot(slot); }
  // Opens an Edit of a cell; slot must be one of the page.
  [[nodiscard]] Edit EditCell(int slot) { return Edit(cells_, slot); }

  void SetPictureBox(QSize pixels) { cells_.SetPictureBox(pixels); }
  void Flash(int slot) { cells_.Flash(slot); }
  void ToggleMark(int slot) { cells_.ToggleMark(slot); }
  QList<int> Marked() const { return cells_.Marked(); }

  // Shows a thumb or a WX picture. One that cannot be shown at all is replaced by the error box before done is called.
  // anew: read the file even if the cell shows it already; without anew done is not called in that case.
  void ShowThumb(const QString& path, int slot, int site, bool anew, const Done& done);
  // Shows the error box; corrupt chooses its second line. Counts nothing: if the box answers a request, the caller has
  // to report that to the poll.
  void ShowNotFound(int slot, int site, bool corrupt);
  // Shows the error box with a tip that no picture can be decoded on this system; the picture itself may be good.
  void ShowNoSandbox(int slot, int site);
  // Blanks a picture; reason 1: a blocked call, 2: a bad call. Leaves an error box as it is and returns false.
  bool ShowBlockedCall(int slot, int reason);
  void ShowCamOnly(int slot);
  void ShowFilm(int slot) { cells_.ShowFilm(slot); }
  // Sets age suffix and state colour by the date of the cell's picture.
  void ColourByAge(int slot);
  // Writes the ages again after a change of language. Error boxes hold roles instead of texts and need nothing.
  void TakeLanguage();

  // Shows by the caption's tip and the cell's colour whether the station is on the air.
  void SetOnAir(int slot, bool onAir);
  void SetConnecting(int slot, bool visible);
  void SetProgress(int slot, int percent);
  void HideProgress(int slot);
  void SetFromVisible(int slot);
  // Names the cell's site. Its call is the caption until an age suffix comes.
  void SetSite(int slot, const QString& call);
  // Captions of a WX site: its title, and the connecting text in lblFrom.
  void SetWxSite(int slot, const QString& title);
  void ClearFrom(int slot);
  // The marker could not be read: puts the bare call back into the caption and removes the on-air tip.
  void ForgetOnAir(int slot);
  // Shows the mode tag in its colour (an empty one is hidden) and, if fromCall has a value, the sender's call.
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
  // The present time as UTC fields.
  QDateTime UtcNow() const;

  Program& program_;
  const Clock& clock_;
  PictureCells cells_;
};
