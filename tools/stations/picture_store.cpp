// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture_store.h"

#include "portrait.h"

namespace {

Answer PictureAnswer(const QByteArray& file) {
  return {200, "image/jpeg", file, {}};
}

}  // namespace

PictureStore::PictureStore(const QHostAddress& address, quint16 port, QThreadPool& painters, QObject* parent)
    : Host(address, port, parent), painters_(painters) {
  for (const Operator& person : Operators()) {
    if (person.portrait != Portrait::None) people_.insert(PathOf(person.call.toString()), &person);
  }
}

QString PictureStore::PathOf(const QString& call) {
  const QString lower = call.toLower();
  return lower.right(1) + u'/' + lower + u'/' + lower + QStringLiteral(".jpg");
}

void PictureStore::Handle(const Request& request, const Deliver& deliver) {
  const Operator* person = people_.value(request.path);
  if (person == nullptr) {
    deliver(NoSuchPage());
    return;
  }
  if (person->portrait == Portrait::NoPicture) {
    deliver(PictureAnswer(QByteArray(3000, '\x9d')));
    return;
  }
  Painted& picture = painted_[request.path];
  if (!picture.file.isEmpty()) {
    deliver(PictureAnswer(picture.file));
    return;
  }
  picture.waiting.push_back(deliver);
  if (picture.waiting.size() > 1) return;
  painters_.start([this, path = request.path, call = person->call.toString()] {
    const QByteArray file = PaintPortrait(call);
    QMetaObject::invokeMethod(
        this, [this, path, file] { TakePainted(path, file); }, Qt::QueuedConnection);
  });
}

void PictureStore::TakePainted(const QString& path, const QByteArray& file) {
  Painted& picture = painted_[path];
  picture.file = file;
  for (const Deliver& deliver : std::exchange(picture.waiting, {})) deliver(PictureAnswer(file));
}
