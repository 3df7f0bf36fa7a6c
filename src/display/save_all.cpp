// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/save_all.h"

#include "platform/picture/film_signature.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kTypeBytes = 300;

// A picture that has vanished since it was shown has no path, and is no failure.
SavedCopy CopyOf(const SourcePicture& picture, const OpenFile& open, const QString& folder) {
  SourceFile file{picture, {}, open.Bytes(kTypeBytes), {}, false};
  if (file.Vanished()) return {};
  file.type = ShownTypeOf(file.bytes);
  return SaveBesides(folder, SuggestedName(file), file.Extension(), open);
}

}  // namespace

SaveAll::SaveAll(QObject* parent) : QObject(parent) {}

QList<SaveAll::OpenPicture> SaveAll::OpenAll(const PictureList& list) {
  QList<OpenPicture> pictures;
  for (const SourcePicture& picture : list.pictures) {
    pictures.append({picture, std::make_shared<const OpenFile>(FileOfName(picture.file))});
  }
  return pictures;
}

void SaveAll::Start(const QList<OpenPicture>& pictures, const QString& folder) {
  if (Busy() || pictures.isEmpty()) return;
  waiting_ = pictures;
  folder_ = folder;
  count_ = static_cast<int>(waiting_.size());
  saved_ = 0;
  Q_EMIT Progressed();
  Next();
}

void SaveAll::Next() {
  writer_.Run<SavedCopy>(
      this, [first = waiting_.first(), folder = folder_]() { return CopyOf(first.picture, *first.file, folder); },
      [this, token = wanted_.Ask()](const SavedCopy& copy) {
        // Of one that was stopped, the last copy must not count in the next.
        if (token.StillWanted()) Written(copy);
      });
}

void SaveAll::Written(const SavedCopy& copy) {
  if (copy.saved) ++saved_;
  waiting_.removeFirst();
  const bool failed = !copy.saved && !copy.path.isEmpty();
  if (failed) waiting_.clear();
  Q_EMIT Progressed();
  if (!waiting_.isEmpty()) return Next();
  wanted_.Withdraw();
  Q_EMIT Ended(failed ? copy.path : QString());
}

void SaveAll::Stop() {
  if (!Busy()) return;
  wanted_.Withdraw();
  waiting_.clear();
  Q_EMIT Ended({});
}
