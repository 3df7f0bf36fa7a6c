// SPDX-License-Identifier: GPL-3.0-or-later
// The history of one site: its last 30 pictures, or the 5 that it has sent itself. Empties the folder, reads the
// pictures, judges and stores them, and keeps what the cells of Form15 show. The window makes the only one; every
// opening voids all that is under way for the one before.
#pragma once

#include <QObject>
#include <QString>
#include <vector>

#include "core/picture_key.h"
#include "core/program.h"
#include "display/picture_source.h"
#include "page/hover_tip.h"
#include "page/picture_cells.h"
#include "platform/background.h"
#include "poll/caption.h"
#include "poll/download_control.h"
#include "poll/picture_store.h"

// What a history is opened for. The site comes from the slot, or else from its index.
struct HistoryOrigin {
  int Last15Slot = 0;   // slot of the page on the screen, from 1; 0: opened from elsewhere
  int Last15Site = -1;  // index into Sites
  bool TxMode = false;  // the pictures that the site has sent
};

// The pictures of one site.
class History : public QObject {
  Q_OBJECT

 public:
  // The services that it uses.
  struct Dependencies {
    Program& program;
    UrlNetwork& network;
    PictureTool& tool;
    Background& background;
  };
  // What is known of one picture. The names are those of fields 4 to 6 of ThumbFields; they are kept here, because a
  // reload of the page erases the shared ones while this history stays open.
  struct Fields {
    QString Caller;  // "Not found" in the error box
    QString ModeText;
    QString SentTime;
  };

  explicit History(const Dependencies& dependencies, QObject* parent = nullptr);
  ~History() override;

  // Begins anew for a site.
  void Open(const HistoryOrigin& origin);
  // Ends all reads and voids all that is under way. Called when the window closes.
  void Stop();
  // Reads one picture again.
  void ReloadSlot(int slot);
  // Writes the captions again after a change of language.
  void TakeLanguage();
  // Blanks the pictures of senders that are blocked now, and shows those of senders that no longer are.
  void TakeBlocks();

  const QList<Cell>& Cells() const { return cells_.Cells(); }
  const Fields& FieldsOf(int slot) const { return pictures_.at(static_cast<std::size_t>(slot)).fields; }
  void SetPictureBox(QSize pixels) { cells_.SetPictureBox(pixels); }
  // Call of the site, with plain zeros.
  const QString& Site() const { return site_.Call; }
  bool TxMode() const { return txMode_; }
  int Count() const { return static_cast<int>(pictures_.size()); }
  // The overall bar: pictures for which an answer has come.
  int Answered() const;
  // Pictures that are there and can be shown.
  int Found() const;
  // The pictures that a click opens, blocked senders' among them as on the page; at: that of the slot, or -1 where the
  // slot has none.
  PictureList Pictures(int slot) const;
  SourcePicture PictureOf(int slot) const;
  // Marks a picture for the comparison, or takes its mark back; nothing of a slot that has no picture to show.
  void ToggleMark(int slot);
  // The marked pictures, at most two.
  PictureList Marked() const;
  std::optional<TipSubject> TipSubjectOf(int slot) const;

 Q_SIGNALS:
  // Another site, with other cells.
  void Opened();
  void CellChanged(int slot);
  // Answered() or Found() may be another.
  void Progressed();

 private:
  // One picture of the history.
  struct Picture {
    Fields fields;
    QString fromCall;  // of the sender, as shown
    bool answered = false;
    bool found = false;
    int blockReason = 0;  // the picture is blanked if not 0, see BlockReason
    Wanted wanted;        // the answer that is being dealt with
  };

  void FetchHistory(int Last15Slot);
  void FetchHistoryOfSite(int Last15Site);
  void ShowTxPictures(int Last15Slot);
  SiteRec SiteOfSlot(int Last15Slot);
  void FetchAll();
  void Fetch(int slot);
  QString UrlOf(int slot) const;
  QString PathOf(int slot) const;
  QString KeyOf(int slot) const;
  // The slot in a key; -1 if it is not one of this opening.
  int SlotOf(const QString& key) const;
  bool Opens(int slot) const;
  void ShowBlocked(int slot);
  Picture& At(int slot) { return pictures_[static_cast<std::size_t>(slot)]; }

  void PictureReady(const QString& key, const QByteArray& body);
  void NoImage(const QString& key);
  void Progress(const QString& key, qint64 max, qint64 read);
  void CountAnswer();
  void Answer(int slot);
  void Stored(int slot, const StoredBody& stored, const QString& part);
  void TakeCaption(int slot, const Caption& caption);
  void ShowThumb15(int slot);
  void Shown(int slot, CellResult result);
  void ShowNotFound15(int slot, bool corrupt);
  QString CaptionOf(int slot) const;

  Program& program_;
  Background& background_;
  UserControl1 ucLast15;
  PictureCells cells_;
  std::vector<Picture> pictures_;
  SiteRec site_;
  int siteIndex_ = PictureKey::kNoSite;
  int Last15Key = 0;  // stands for the page in the keys, so that they tell two slots apart
  bool txMode_ = false;
};
