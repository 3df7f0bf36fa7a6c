// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/film_player.h"

#include <utility>

#include "platform/picture/film_signature.h"
#include "platform/whole_file.h"

using namespace Qt::StringLiterals;

namespace {

// Copies a film into the folder, under a name with the ending of its format; the path of the copy. Empty where the
// bytes are not those of a film: the desktop chooses the program by the ending, and anything else could make it start
// one that does more than play.
QString CopyFilm(const OpenFile& film, const QString& folder, int number) {
  const QByteArray bytes = film.Bytes();
  const QString ending = FilmSignature(bytes.left(300));
  const QString copy = u"%1/film-%2.%3"_s.arg(folder, QString::number(number), ending);
  return !ending.isEmpty() && WriteWhole(copy, bytes) ? copy : QString();
}

}  // namespace

FilmPlayer::FilmPlayer(Dependencies services, QObject* parent) : QObject(parent), services_(std::move(services)) {}

FilmPlayer::~FilmPlayer() {
  Drop();
}

void FilmPlayer::startup(const QString& path, const QString& title) {
  Drop();
  const QString file = FileOfName(path);
  film_.Ask();
  file_ = std::make_shared<const OpenFile>(file);
  handedOn_ = false;
  process_ = std::make_unique<QProcess>();
  process_->setProgram(services_.player);
  process_->setArguments({file.isEmpty() ? path : file, services_.program.config.LanguageName, title});
  // What the decoders have to say about a stranger's film is of no use to the user.
  process_->setStandardErrorFile(QProcess::nullDevice());
  connect(process_.get(), &QProcess::readyReadStandardOutput, this, &FilmPlayer::ReadWishes);
  connect(process_.get(), &QProcess::finished, this, &FilmPlayer::ProcessEnded);
  connect(process_.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error != QProcess::FailedToStart) return;
    Drop();
    Q_EMIT Failed(Fault::NoPlayer);
  });
  process_->start();
}

// A player's memory takes the system tens of milliseconds to take back, and who deletes a QProcess waits for its end.
// So it deletes itself, when it has ended. It may also be the sender of the signal that is being handled.
void FilmPlayer::Drop() {
  if (!process_) return;
  QProcess* process = process_.release();
  process->disconnect(this);
  if (process->state() == QProcess::NotRunning) return process->deleteLater();
  connect(process, &QProcess::finished, process, &QObject::deleteLater);
  process->kill();
}

void FilmPlayer::Close() {
  if (!process_) return;
  Drop();
  Q_EMIT Closed();
}

void FilmPlayer::ProcessEnded() {
  Drop();
  Q_EMIT Closed();
}

void FilmPlayer::TakeLanguage() {
  if (process_) process_->write("language " + services_.program.config.LanguageName.toUtf8() + '\n');
}

void FilmPlayer::ReadWishes() {
  // A player that a film has taken over may write without end, and may ask for more than a user would.
  const QByteArray said = process_->read(64);
  process_->readAll();
  if (said != "open\n" || std::exchange(handedOn_, true)) return;
  // The process may end while the question is open, so it is not asked within a signal of the process.
  QMetaObject::invokeMethod(
      this, [this, film = film_.Present()]() { OpenElsewhere(film); }, Qt::QueuedConnection);
}

// The desktop's player has no sandbox. A film that has taken over ours can say that the user wants the other one, but
// it cannot answer a question of this process. A no holds until the film is opened again, so that nobody is asked on
// and on.
void FilmPlayer::OpenElsewhere(const Wanted::Token& film) {
  if (!film.StillWanted() || !services_.ask() || !film.StillWanted()) return;
  if (!copies_) copies_ = std::make_unique<QTemporaryDir>();
  if (!copies_->isValid()) {
    copies_.reset();
    return Refuse(Fault::NoCopy);
  }
  services_.background.Run<QString>(
      this,
      [file = file_, folder = copies_->path(), number = ++copyCount_]() { return CopyFilm(*file, folder, number); },
      [this, film](const QString& copy) {
        if (!film.StillWanted()) return;
        if (copy.isEmpty()) return Refuse(Fault::NoCopy);
        services_.openFile(QUrl::fromLocalFile(copy), [this, film](bool opened) {
          if (!film.StillWanted()) return;
          if (!opened) return Refuse(Fault::NoOtherPlayer);
          Close();
        });
      });
}

// What failed may be tried again.
void FilmPlayer::Refuse(Fault fault) {
  handedOn_ = false;
  Q_EMIT Failed(fault);
}
