// SPDX-License-Identifier: GPL-3.0-or-later
// Hover tips: who sent a cell's picture and where that is, and when the tip comes and goes. The page's view tells where
// the pointer and the focus are, and shows what the signals say.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>

#include "callbook/call_database.h"
#include "core/program.h"

// Parts of a cell that have a tip: img, lblFrom, lblCall.
enum class TipPart { Picture, From, Call };

struct TipTexts {
  QString call;       // whose tip it is, plain zeros; empty: there is none
  QString HoverText;  // lines ended by CR LF; plain text, as callbooks and captions gave it
  QString imgTip;     // what the picture's own tip says instead or besides: a location that is missing

  // All of it, to be shown or read aloud; empty: no tip.
  QString Shown() const;
};

// Tip of a cell's picture: its sender. None on the WX page and for a cell without a sender.
TipTexts PictureTip(const Program& program, CallDatabase& database, int slot);
// Tip of a caption: the sender (where there is none, the site) for lblFrom, the site for lblCall. None on the WX page.
TipTexts CaptionTip(const Program& program, CallDatabase& database, int slot, TipPart part);

class HoverTip : public QObject {
  Q_OBJECT

 public:
  HoverTip(const Program& program, CallDatabase& database, QObject* parent = nullptr);

  QTimer Timer7;                     // from the pointer's arrival to the tip
  QTimer Timer8;                     // from its leaving until the tip goes
  std::function<bool()> MenuIsOpen;  // no tip rises over an open menu
  // What the tip of a cell's error box says, as the cell knows it; empty: it has none.
  std::function<QString(int slot)> BoxReason;

  // The pointer is over this part of a cell, or over none.
  void Enter(int slot, TipPart part);
  void Leave();
  // The keyboard's focus is on a cell, as if the pointer were on its picture; -1: on none.
  void Focus(int slot);
  // The tip goes and forgets where the pointer was: for presses, menus, another page, Escape. False: there was no tip.
  bool Close();

 Q_SIGNALS:
  // The tip of a cell has been made, to be read out as its description. Empty: it has none.
  void Built(int slot, const QString& text);
  // picToolTip opens; picturePath is the operator's picture, empty where none is stored.
  void Show(int slot, const QString& text, const QString& picturePath);
  void Hide();

 private:
  struct Place {
    int slot = -1;
    TipPart part = TipPart::Picture;
    bool operator==(const Place&) const = default;
  };

  void Timer7Tick();
  void Timer8Tick();
  void HideTip();
  QString PicturePath() const;

  const Program& program_;
  CallDatabase& database_;
  Place under_;  // the pointer
  Place shown_;  // slot -1: no tip stands
  TipTexts texts_;
};
