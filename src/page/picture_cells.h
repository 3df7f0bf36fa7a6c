// SPDX-License-Identifier: GPL-3.0-or-later
// Cells without the page's rules: reads pictures beside the event loop and places them, repairs files that a cell
// cannot load, shows error boxes, blinks, and sharpens thumbs that are enlarged on the screen. Knows neither the
// program's state nor the poll; which file, which texts and what is counted is decided by its owner, for the page by
// ThumbGrid.
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
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// A picture that a cell is to show.
struct CellPicture {
  QString path;
  QString sharpPath;  // a larger version of the picture, read when nothing else is waiting; empty: none. A picture that
                      // is its own one is read again when the cells have grown.
  QString host;       // the station's, by which the picture tool holds back pictures that hang; empty: by path
  bool anew = false;  // read the file even if the cell shows this very file already
  // The file is no thumb but the picture itself, which others read too: nothing is repaired in it or written over it.
  bool keepFile = false;
};

// How the showing of a picture ended.
enum class CellResult {
  Shown,
  Unreadable,  // the cell is as it was
  NoSandbox,   // nothing can be decoded on this system, which says nothing of the picture; the cell is as it was
  Overtaken    // something else was put into the cell meanwhile
};

// The cells of one window.
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

  explicit PictureCells(PictureTool& tool, QObject* parent = nullptr);

  // Changes the number of cells; new ones are empty, the others stay as they are.
  void MakeCells(int count);
  const QList<Cell>& Cells() const { return cells_; }
  bool HasSlot(int slot) const { return slot >= 0 && slot < cells_.size(); }
  // Empties a cell and voids all that is under way for it.
  void Clear(int slot);

  // Voids all that is under way for the cells and lets them stand as they are. Each reads its picture anew when it is
  // shown next.
  void WithdrawAll();

  // Size in device pixels of a cell's picture on the screen; pictures are read no larger than that.
  void SetPictureBox(QSize pixels);
  // Decoded bytes that all cells may hold together.
  void SetFrameBudget(qint64 bytes) { budget_ = bytes; }

  // Reads and shows a file. A file that the cell cannot load is first repaired to 24 bits a pixel. Calls done once; but
  // returns false, and never calls done, if the cell already shows or is loading this file in its present state.
  bool Show(int slot, const CellPicture& picture, const Done& done);
  // Shows a picture that the program itself has drawn; frame in page units within the cell.
  void ShowStill(int slot, const QImage& still, const QRectF& frame);
  // The mark of a film in the place of the picture; the file stays as it is.
  void ShowFilm(int slot);
  // The error box in the picture's place.
  void ShowBox(int slot, const BoxLines& box);
  // Removes picture and error box, and voids all that is under way for the cell.
  void HidePicture(int slot);
  // Marks a cell for the comparison, or takes its mark back. Two can be marked: a third takes the place of the older.
  void ToggleMark(int slot);
  // The marked cells, the one marked first before the other.
  QList<int> Marked() const;
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
  // The file that a cell shows or is loading. A file with another time (ms since 1970, UTC) or size counts as another
  // one.
  struct Standing {
    QString path;
    QString sharpPath;
    qint64 changed = 0;
    qint64 size = 0;
    bool operator==(const Standing&) const = default;
  };
  // Has the picture tool drop the read once something else has been put into the cell.
  static PictureOptions OptionsOf(const Reading& reading);
  static Standing StandingOf(const CellPicture& picture);

  void EndEdit(int slot);
  // Voids all that is under way for the cell and forgets its file.
  void Empty(int slot);
  // True if the reading is still wanted; otherwise calls its done with Overtaken.
  bool GoesOn(const Reading& reading) const;
  void Loaded(const Reading& reading, const PictureAnswer& answer);
  void Load(const Reading& reading, const PictureTool::Done& loaded);
  void ShowVideo(const Reading& reading);
  void Repair(const Reading& reading);
  void Place(int slot, const PictureAnswer& answer);
  void KeepWithinBudget();
  void SharpenNext();
  void Timer2Tick();

  PictureTool& tool_;
  QList<Cell> cells_;
  std::vector<Wanted> wanted_;  // by slot; never shortened, so that an answer for a cell of a larger layout stays void
  QList<Standing> standing_;
  QSet<int> enlarged_;  // slots whose thumb is smaller than its frame on the screen
  QTimer sharpenTimer_;
  QTimer Timer2_;  // 150 ms while a cell blinks
  int flashSlot_ = -1;
  int flashTicks_ = 0;
  QSize box_{232, 172};
  qint64 budget_ = kPageFrameBytes;
  int edits_ = 0;  // number of open Edits
  QSet<int> changed_;
};
