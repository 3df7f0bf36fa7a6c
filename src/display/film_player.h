// SPDX-License-Identifier: GPL-3.0-or-later
// Plays films: starts omni-perch-player, which is the window frmWmp in a process of its own, and follows it. A film
// comes from a stranger, so nothing of it is decoded here. Windows owns the only one.
#pragma once

#include <QObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>
#include <functional>
#include <memory>

#include "core/program.h"
#include "display/source_file.h"
#include "platform/background.h"
#include "platform/wanted.h"

// The player of films. There is one window; another film takes its place.
class FilmPlayer : public QObject {
  Q_OBJECT

 public:
  // The parts of the program that the player works with.
  struct Dependencies {
    const Program& program;
    Background& background;
    QString player;  // path of omni-perch-player
    // Asks the user whether the desktop's own player may have the film; returns when that is answered.
    std::function<bool()> ask;
    // Gives a film to the desktop's own player; opened(false) where it has none.
    std::function<void(const QUrl&, const std::function<void(bool opened)>&)> openFile;
  };

  // What could not be done.
  enum class Fault { NoPlayer, NoCopy, NoOtherPlayer };

  explicit FilmPlayer(Dependencies services, QObject* parent = nullptr);
  // Closes the window.
  ~FilmPlayer() override;

  // Plays the file, or the first one of this name with an extension. title: what the window is about.
  void startup(const QString& path, const QString& title);
  bool IsOpen() const { return process_ != nullptr; }
  void Close();
  // A language has been chosen.
  void TakeLanguage();

 Q_SIGNALS:
  // The window is gone, whoever closed it, or because a film has brought the player down.
  void Closed();
  void Failed(FilmPlayer::Fault fault);

 private:
  void ReadWishes();
  void ProcessEnded();
  // Hands a copy of the film to the desktop's own player, if the user agrees.
  void OpenElsewhere(const Wanted::Token& film);
  void Refuse(Fault fault);
  void Drop();

  Dependencies services_;
  Wanted film_;                           // the film that is played
  std::shared_ptr<const OpenFile> file_;  // its file, whatever is stored in its place meanwhile
  bool handedOn_ = false;                 // the user has been asked about the desktop's player
  std::unique_ptr<QProcess> process_;
  std::unique_ptr<QTemporaryDir> copies_;  // kept until the program ends, because another program reads them
  int copyCount_ = 0;
};
