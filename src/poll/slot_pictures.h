// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the slots: puts a new picture at its place, has its thumb made, remembers which pictures could not be
// shown, and moves all of it with a site. Goes on whatever page is shown. The intake, the poll and the module that
// moves sites call it.
#pragma once

#include <QList>
#include <QObject>
#include <QPair>
#include <QSet>
#include <QString>
#include <functional>
#include <map>

#include "core/picture_key.h"
#include "core/program.h"
#include "platform/background.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"
#include "poll/height_table.h"
#include "poll/picture_store.h"

// How the work on a picture's files ended.
enum class FilesVerdict {
  Ready,      // picture and thumb are in place
  NoThumb,    // there is no thumb to show: the disk is full, or the picture cannot be decoded
  NoSandbox,  // the picture is in place, but nothing is decoded on this system
  Unusable,   // too short a body, or an error page
  GivenUp     // a newer answer has come, or its site has left the slot
};

// The files of all pages.
class SlotPictures : public QObject {
  Q_OBJECT

 public:
  // tail: the last characters of the body, for ParseTailFromDownload.
  using Taken = std::function<void(FilesVerdict verdict, const QString& tail)>;
  using Made = std::function<void(FilesVerdict verdict)>;

  SlotPictures(Program& program, HeightTable& heights, PictureTool& tool, Background& background,
               QObject* parent = nullptr);

  // True while the key's site is placed in the key's slot.
  bool Stands(const PictureKey& key) const;
  // Path of a slot's picture. A WX picture is its own thumb.
  QString Picture(int page, int slot) const;
  QString Thumb(int page, int slot) const;

  // Takes the body of an answer: removes the former picture, and puts the new one and its thumb in place. Calls taken
  // once.
  void Take(const PictureKey& key, const QByteArray& body, const Taken& taken);
  // Makes the missing thumb of a picture on the disk. made is never called if a thumb for the slot is being made
  // already.
  void MakeMissingThumb(const PictureKey& key, const Made& made);
  // The slot's picture cannot be had: removes picture, thumb and remembered failure, and voids what is under way.
  void Remove(int page, int slot);
  // Voids what is under way for the slot: no file of it is put in place any more.
  void Withdraw(int page, int slot);
  // The same for all slots of all pages.
  void WithdrawAll();

  // True if the slot's picture could not be shown when that was last tried, and its file has not changed since.
  bool HasFailed(int page, int slot) const;
  void RememberFailure(int page, int slot);
  void ForgetFailure(int page, int slot);

  // Moves picture, thumb, remembered failure and height of each first slot to the second one.
  void Move(int page, const QList<QPair<int, int>>& moves);
  // The same for whole pages, beside the event loop: the files of page pageBefore[p] become those of page p, 1 to 20;
  // index 0 is not used. Until moved is called no answer is stored for any slot. moved(false): a file could not be
  // moved, and all is as it was.
  void MovePages(const QList<int>& pageBefore, const std::function<void(bool)>& moved);

 private:
  // The steps for one slot from the body to the thumb.
  struct Chain {
    PictureKey key;
    Wanted::Token token;
    QString tail;
  };

  Chain Begin(const PictureKey& key);
  // True while no newer answer has come and the site is still in its slot.
  bool GoesOn(const Chain& chain) const { return chain.token.StillWanted() && Stands(chain.key); }
  void End(const Chain& chain);
  void PutStored(const Chain& chain, const StoredBody& stored, const QString& picture, const QString& thumb,
                 const Taken& taken);
  void MakeThumb(const Chain& chain, const Made& made);
  // Size and time of the picture's file, by which a remembered failure knows it; empty without a file.
  QString FailureMark(int page, int slot) const;
  // The station's host, by which the picture tool holds back hosts whose pictures hang; empty for a WX site.
  QString HostOf(const PictureKey& key) const;

  Program& program_;
  HeightTable& heights_;
  PictureTool& tool_;
  Background& background_;
  // Both by page * 100 + slot.
  std::map<int, Wanted> wanted_;
  QSet<int> underWay_;
  bool pagesMove_ = false;
};
