// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the slots: puts a picture that came in at its place, has its thumb made, remembers what could not be
// shown, and moves all of it with its site. Goes on whatever page is shown. The intake, the poll and the changes of
// places call it.
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

// What has come of a picture's files.
enum class FilesVerdict {
  Ready,      // picture and thumb lie at their place
  NoThumb,    // it cannot be shown: no room on the disk, or nothing that decodes
  NoSandbox,  // the picture lies at its place, but nothing is decoded on this system
  Unusable,   // too short a body, or an error page
  GivenUp     // a newer answer has come, or its site has left the slot
};

class SlotPictures : public QObject {
  Q_OBJECT

 public:
  // tail: of the body, for its caption.
  using Taken = std::function<void(FilesVerdict verdict, const QString& tail)>;
  using Made = std::function<void(FilesVerdict verdict)>;

  SlotPictures(Program& program, HeightTable& heights, PictureTool& tool, Background& background,
               QObject* parent = nullptr);

  // True while the key's site stands in the key's slot.
  bool Stands(const PictureKey& key) const;
  // Picture of a slot on the disk; WX pictures are their own thumbs.
  QString Picture(int page, int slot) const;
  QString Thumb(int page, int slot) const;

  // An answer's body: the former picture goes, the new one and its thumb are put in place. taken is called once.
  void Take(const PictureKey& key, const QByteArray& body, const Taken& taken);
  // Makes the thumb of a picture that lies on the disk without one. made is never called where one is under way
  // already.
  void MakeMissingThumb(const PictureKey& key, const Made& made);
  // The slot's picture is not to be had: its files go.
  void Remove(int page, int slot);
  // Nothing that is under way for the slot is put in place any more.
  void Withdraw(int page, int slot);

  // The slot's picture could not be shown when it was last tried, and is still the same file.
  bool HasFailed(int page, int slot) const;
  void RememberFailure(int page, int slot);
  void ForgetFailure(int page, int slot);

  // Moves picture, thumb, remembered failure and height of each first slot to the second one.
  void Move(int page, const QList<QPair<int, int>>& moves);

 private:
  // One slot's chain from the body to the thumb.
  struct Chain {
    PictureKey key;
    Wanted::Token token;
    QString tail;
  };

  Chain Begin(const PictureKey& key);
  // False where nobody wants its result any more, and the chain has ended.
  bool GoesOn(const Chain& chain) const { return chain.token.StillWanted() && Stands(chain.key); }
  void End(const Chain& chain);
  void PutStored(const Chain& chain, const StoredBody& stored, const QString& picture, const QString& thumb,
                 const Taken& taken);
  void MakeThumb(const Chain& chain, const Made& made);
  QString FailureMark(int page, int slot) const;
  // Whose picture it is; empty for a site of the WX page, which its file stands for.
  QString HostOf(const PictureKey& key) const;

  Program& program_;
  HeightTable& heights_;
  PictureTool& tool_;
  Background& background_;
  // By place, page * 100 + slot.
  std::map<int, Wanted> wanted_;
  QSet<int> underWay_;
};
