// SPDX-License-Identifier: GPL-3.0-or-later
// The on-air text as cmdOnAir of the on-air map reads it: the language's, until the main window's Timer13 has written
// over it. Windows owns the only one.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

#include "core/program.h"

class OnAirCaption : public QObject {
  Q_OBJECT

 public:
  // isListOpen: whether frmOnAirNow is there.
  OnAirCaption(const Program& program, std::function<bool()> isListOpen, QObject* parent = nullptr);

  QString Text() const;
  // A language has been loaded: the text is its own again.
  void TakeLanguage() { overwritten_ = false; }

  QTimer Timer13;  // minutes, as long as the program runs

 Q_SIGNALS:
  void Changed();

 private:
  void Timer13Tick();

  const Program& program_;
  std::function<bool()> isListOpen_;
  int ticks_ = 0;
  bool overwritten_ = false;
};
