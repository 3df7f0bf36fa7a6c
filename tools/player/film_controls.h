// SPDX-License-Identifier: GPL-3.0-or-later
// picControls: the strip beneath the film with its buttons and bars. It shows what it is told and says what the user
// wants; the window does it.
#pragma once

#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <chrono>

#include "film_signs.h"
#include "film_slider.h"

// The strip.
class FilmControls : public QWidget {
  Q_OBJECT

 public:
  explicit FilmControls(QWidget* parent);

  void ShowTexts();
  // length 0: it is not known, and no place can be chosen.
  void ShowPlace(std::chrono::milliseconds position, std::chrono::milliseconds length);
  void ShowPlaying(bool playing);
  // why: what keeps the film silent, empty where the user may choose.
  void ShowSound(bool muted, int percent, const QString& why);
  void ShowFullScreen(bool full);
  // Nothing can be played: all controls are grey.
  void ShowNothing();
  bool IsDragged() const { return imgBar->isSliderDown(); }

 Q_SIGNALS:
  void PauseWanted();
  void StepWanted(int by);  // -1 back, 1 forward
  void PlaceWanted(std::chrono::milliseconds position);
  void MuteWanted();
  void VolumeWanted(int percent);
  void FullScreenWanted();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void MakeLayout();
  // The slider on imgBar; it stands for the given imgBset.
  QSlider* imgBset() const { return imgBar; }
  void ShowSigns();
  static void Name(QWidget* control, const QString& text, const QString& keys);

  QToolButton* imgBack;
  QToolButton* imgPausePlay;
  QToolButton* imgForward;
  FilmSlider* imgBar;
  QLabel* lblTime;
  QToolButton* imgSpkr;
  FilmSlider* picVol;
  QToolButton* imgFullScreen;
  QString whySilent_;
  bool playing_ = false;
  bool muted_ = false;
  bool full_ = false;
};
