// SPDX-License-Identifier: GPL-3.0-or-later
// frmWmp: plays one film in a window of its own. main makes the only one; the main program listens to its wishes.
#pragma once

#include <QAudioOutput>
#include <QLabel>
#include <QMediaPlayer>
#include <QPushButton>
#include <QTimer>
#include <QVideoSink>
#include <memory>

#include "film_canvas.h"
#include "film_controls.h"
#include "film_copy.h"

// What keeps a film from being played.
struct FilmFault {
  enum class Kind { None, NoFile, NoSandbox, NoPackages, Unplayable };
  Kind kind = Kind::None;
  QStringList packages;  // that are missing
};

// The window.
class frmWmp : public QWidget {
  Q_OBJECT

 public:
  // title: what the window is about; empty where nothing is known of the film. ending: of the film's bytes, empty where
  // their signature is that of no film.
  frmWmp(const QString& title, const QString& ending);

  // Plays the film and shows the window once its first picture is there.
  void startup(const QString& path);
  // Shows the window with what is missing instead.
  void ShowFault(const FilmFault& fault);
  // Shows every text in the present language.
  void ShowTexts();

 Q_SIGNALS:
  // The desktop's own player is to play the film.
  void OtherPlayerWanted();
  // The window has been closed.
  void Closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeLayout();
  void ConnectControls();
  void ConnectPlayer();
  void TakeFrame(const QVideoFrame& frame);
  // Shows the window, as large as the film or as fits on the screen.
  void ShowSized(QSize film);
  void TakeSound();
  void ShowSound();
  void ShowNote();
  void ShowState();
  void TogglePause();
  void Step(int by);
  void SeekTo(std::chrono::milliseconds position);
  void ToggleFullScreen();
  // On the full screen the strip hides while pointer and keys rest.
  void WakeControls();
  bool SoundKey(int key);
  std::chrono::milliseconds Length() const;

  QString title_;
  QString ending_;
  FilmFault fault_;
  bool waiting_ = false;  // the film has not begun though it has had its time
  FilmCanvas* WMP;
  QWidget* noteRow_;
  QLabel* lblNote_;
  QPushButton* cmdOther_;
  FilmControls* picControls;
  QTimer Timer6;                          // shows the position
  QTimer lateTimer_;                      // until the window shows without a picture
  QTimer stallTimer_;                     // until the window says that nothing comes
  QTimer restTimer_;                      // until the strip hides on the full screen
  std::chrono::milliseconds wanted_{-1};  // the place that is sought next; below 0: none
  std::unique_ptr<QVideoSink> sink_;
  std::unique_ptr<QAudioOutput> audio_;  // none without a device for sound
  std::unique_ptr<QMediaPlayer> player_;
};
