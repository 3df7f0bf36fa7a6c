// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/picture_drag.h"

#include <QDir>
#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QUrl>

using namespace Qt::StringLiterals;

PictureDrag::PictureDrag(SourceFiles& files, Background& background, QObject* parent)
    : QObject(parent), files_(files), background_(background) {}

void PictureDrag::Begin(const SourcePicture& picture, QWidget* from) {
  if (copies_ == nullptr) copies_ = std::make_shared<QTemporaryDir>(QDir::tempPath() + u"/omni-perch-drag-XXXXXX"_s);
  // Without a place for the copy there is nothing to drag; the next drag tries again.
  if (!copies_->isValid()) return copies_.reset();
  const Wanted::Token token = wanted_.Ask();
  files_.FindSourceFile(picture, this, [this, token, from = QPointer(from)](const SourceFile& file) {
    if (!token.StillWanted() || file.Vanished()) return;
    background_.Run<SavedCopy>(
        this,
        [file, folder = copies_]() {
          return SaveBesides(folder->path(), SuggestedName(file), file.Extension(), file.bytes);
        },
        [this, token, from](const SavedCopy& copy) {
          if (token.StillWanted() && from != nullptr && copy.saved) Drag(copy, from);
        });
  });
}

// Qt itself runs the drag until the button is released, with the event loop turning.
void PictureDrag::Drag(const SavedCopy& copy, QWidget* from) {
  if (!QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) return;
  auto* data = new QMimeData;
  data->setUrls({QUrl::fromLocalFile(copy.path)});
  auto* drag = new QDrag(from);
  drag->setMimeData(data);
  drag->exec(Qt::CopyAction);
}
