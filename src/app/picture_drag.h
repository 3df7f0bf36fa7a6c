// SPDX-License-Identifier: GPL-3.0-or-later
// A picture that is dragged out of a window: a copy of its file, named by call and time, made when the drag begins and
// kept until the program ends, so that whoever has got it may read it later.
#pragma once

#include <QObject>
#include <QTemporaryDir>
#include <QWidget>
#include <memory>

#include "display/picture_save.h"
#include "display/source_file.h"
#include "platform/background.h"
#include "platform/wanted.h"

// Makes the copies and drags them.
class PictureDrag : public QObject {
  Q_OBJECT

 public:
  // Both outlive it.
  PictureDrag(SourceFiles& files, Background& background, QObject* parent);

  // The drag begins when the copy is there, if the button is still held then.
  void Begin(const SourcePicture& picture, QWidget* from);

 private:
  void Drag(const SavedCopy& copy, QWidget* from);

  SourceFiles& files_;
  Background& background_;
  std::shared_ptr<QTemporaryDir> copies_;  // made at the first drag; shared with the thread that writes into it
  Wanted wanted_;
};
