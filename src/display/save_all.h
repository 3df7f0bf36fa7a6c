// SPDX-License-Identifier: GPL-3.0-or-later
// Saves all pictures of a page or of a history into a folder: each under call and time, an equal name gets a number,
// nothing is replaced. The pictures are those of the moment when it was started. PictureActions starts it.
#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "display/picture_save.h"
#include "display/picture_source.h"
#include "platform/background.h"
#include "platform/wanted.h"

// One saving at a time.
class SaveAll : public QObject {
  Q_OBJECT

 public:
  // A picture whose file is open, so that a newer one in its place changes nothing.
  struct OpenPicture {
    SourcePicture picture;
    std::shared_ptr<const OpenFile> file;
  };

  explicit SaveAll(QObject* parent = nullptr);

  static QList<OpenPicture> OpenAll(const PictureList& list);
  // Writes copies of the pictures, one after the other, beside the event loop. Does nothing while one is under way.
  void Start(const QList<OpenPicture>& pictures, const QString& folder);
  // The picture that is being written is finished; the others are left out.
  void Stop();
  bool Busy() const { return !waiting_.isEmpty(); }
  int Count() const { return count_; }
  // Pictures written so far.
  int Saved() const { return saved_; }

 Q_SIGNALS:
  // Another picture has been dealt with.
  void Progressed();
  // All have been, or it was stopped. failed: the first file that could not be written, with which the saving has
  // ended; empty: none.
  void Ended(const QString& failed);

 private:
  void Next();
  void Written(const SavedCopy& copy);

  QList<OpenPicture> waiting_;  // the first of them is being written
  QString folder_;
  int count_ = 0;
  int saved_ = 0;
  Wanted wanted_;
  Background writer_;  // of its own: a slow folder holds up nothing else
};
