// SPDX-License-Identifier: GPL-3.0-or-later
// Cells as such: reads pictures beside the event loop and places them, repairs what a cell cannot load, shows error
// boxes, blinks, and sharpens thumbs that are enlarged on the screen. Knows neither the program's state nor the poll;
// the rules of a window (which file, which texts, what is counted) stand in its owner, for the page in ThumbGrid.
#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>
#include <functional>
#include <vector>

#include "page/cell.h"
#include "page/frame_budget.h"
#include "platform/background.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// A picture that a cell is to show.
struct CellPicture {
  QString path;
  QString sharpPath;  // larger picture of the same, read once nothing else waits; empty: none
  QString host;       // where the picture comes from; empty: its file stands for it
  bool anew = false;  // read it even where the very file stands in the cell already
};

// How the showing of a picture ended.
enum class CellResult {
  Shown,
  Unreadable,  // the cell is as it was
  NoSandbox,   // nothing can be decoded on this system, which says nothing of the picture; the cell is as it was
  Overtaken    // something else was put into the cell meanwhile
};

class PictureCells : public QObject {
  Q_OBJECT

 public:
  using Done = std::function<void(CellResult)>;

  // Changes of one or more cells: each changed cell raises one CellChanged, when the outermost Edit ends.
  class Edit {
   public:
    Edit(PictureCells& cells, int slot) : cells_(cells), slot_(slot) { ++cells_.edits_; }
    ~Edit() { cells_.EndEdit(slot_); }
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;
    Cell* operator->() const { return &cells_.cells_[slot_]; }

   private:
    PictureCells& cells_;
    int slot_;
  };

  PictureCells(PictureTool& tool, Background& background, QObject* parent = nullptr);

  // So many cells, all empty.
  void MakeCells(int count);
  const QList<Cell>& Cells() const { return cells_; }
  bool HasSlot(int slot) const { return slot >= 0 && slot < cells_.size(); }
  void Clear(int slot);

  // Size in device pixels of a cell's picture on the screen; pictures are read no larger than that.
  void SetPictureBox(QSize pixels);
  // Decoded bytes that all cells may hold together.
  void SetFrameBudget(qint64 bytes) { budget_ = bytes; }

  // Reads and shows a file; one that the cell cannot take is repaired to 24 bits a pixel first. done is called once.
  // False, and done never: the very file stands in the cell, or is on its way into it.
  bool Show(int slot, const CellPicture& picture, const Done& done);
  // A picture of the program itself.
  void ShowStill(int slot, const QImage& still, const QRectF& frame);
  // The error box in the picture's place.
  void ShowBox(int slot, const BoxLines& box);
  // No picture and no box; whatever is under way for the cell is no longer wanted.
  void HidePicture(int slot);
  // Lets a cell blink in blue for three seconds, so that the eye finds it.
  void Flash(int slot);

 Q_SIGNALS:
  void CellChanged(int slot);

 private:
  // One reading of a file into a cell.
  struct Reading {
    int slot = 0;
    CellPicture picture;
    Done done;
    Wanted::Token token;
  };
  // What stands in a cell, or is on its way into it.
  struct Standing {
    QString path;
    QString sharpPath;
    qint64 changed = 0;
    qint64 size = 0;
    bool operator==(const Standing&) const = default;
  };
  // A read for a cell is dropped once something else has been put there.
  static PictureOptions OptionsOf(const Reading& reading);
  static Standing StandingOf(const CellPicture& picture);

  void EndEdit(int slot);
  // Nothing is under way for the cell any more.
  void Empty(int slot);
  // False, and the reading has ended: it is no longer wanted.
  bool GoesOn(const Reading& reading) const;
  void Loaded(const Reading& reading, const PictureAnswer& answer);
  void ShowVideo(const Reading& reading);
  void Repair(const Reading& reading);
  void Place(int slot, const PictureAnswer& answer);
  void KeepWithinBudget();
  void SharpenNext();
  void Timer2Tick();

  PictureTool& tool_;
  Background& background_;
  QList<Cell> cells_;
  std::vector<Wanted> wanted_;  // by slot; it outlives its cell, so that old answers stay old
  QList<Standing> standing_;
  QSet<int> enlarged_;  // cells whose thumb is smaller than their picture on the screen
  QTimer sharpenTimer_;
  QTimer Timer2_;  // 150 ms while a cell blinks
  int flashSlot_ = -1;
  int flashTicks_ = 0;
  QSize box_{232, 172};
  qint64 budget_ = kPageFrameBytes;
  int edits_ = 0;  // Edits that are open
  QSet<int> changed_;
};
