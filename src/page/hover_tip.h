// SPDX-License-Identifier: GPL-3.0-or-later
// Hover tips: who sent a cell's picture and where that station is, and when the tip comes and goes. PageView reports
// where pointer and focus are; the main window opens and closes picToolTip on the signals.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <optional>

#include "callbook/call_database.h"
#include "core/program.h"

// Parts of a cell that have a tip: img, lblFrom, lblCall.
enum class TipPart { Picture, From, Call };

// What a cell tells about its picture.
struct TipSubject {
  QString caller;  // as the cell's fields have it
  QString modeText;
  QString sentTime;
  QString site;  // call of the site
};
// The subject of a cell of the page; nothing on the WX page, which has no tips.
std::optional<TipSubject> TipSubjectOf(const Program& program, int slot);

// The texts of one tip.
struct TipTexts {
  QString call;       // the call that the tip is about, with plain zeros; empty: no tip
  QString HoverText;  // plain text in lines ended by CR LF; callbooks and captions may have put anything into it
  QString imgTip;     // the notice that a location is missing, instead of HoverText or below it

  // HoverText and imgTip as one text, to be shown or read aloud; empty: no tip.
  QString Shown() const;
};

// Tip of a cell's picture: its sender. None for a cell without a subject or a sender.
TipTexts PictureTip(const Program& program, CallDatabase& database, const std::optional<TipSubject>& subject);
// Tip of a caption: the sender (where there is none, the site) for lblFrom, the site for lblCall.
TipTexts CaptionTip(const Program& program, CallDatabase& database, const std::optional<TipSubject>& subject,
                    TipPart part);

// Decides when a tip opens and closes, and composes its text.
class HoverTip : public QObject {
  Q_OBJECT

 public:
  // Says what a cell is about.
  using SubjectOf = std::function<std::optional<TipSubject>(int slot)>;

  // The tips of the page.
  HoverTip(const Program& program, CallDatabase& database, QObject* parent = nullptr);
  // The tips of another grid of cells.
  HoverTip(const Program& program, CallDatabase& database, const SubjectOf& subjectOf, QObject* parent = nullptr);

  QTimer Timer7;                     // from the pointer's arrival to the opening of the tip
  QTimer Timer8;                     // from the pointer's leaving to the closing of the tip
  std::function<bool()> MenuIsOpen;  // asked before a tip opens: none may open over a menu
  // Gives the text that a cell has for the tip of its error box; empty: none.
  std::function<QString(int slot)> BoxReason;

  // The pointer is over this part of a cell, or over none.
  void Enter(int slot, TipPart part);
  void Leave();
  // The keyboard's focus is on a cell, as if the pointer were on its picture; -1: on none.
  void Focus(int slot);
  // Closes the tip and forgets where the pointer was. Called at presses, opening menus, a change of page, and Escape.
  // Returns false if no tip was open.
  bool Close();

 Q_SIGNALS:
  // The text of a cell's tip has been composed; PageView makes it part of the cell's description for screen readers.
  // Empty: the cell has no tip.
  void Built(int slot, const QString& text);
  // picToolTip opens; picturePath is the operator's picture, empty where none is stored.
  void Show(int slot, const QString& text, const QString& picturePath);
  void Hide();

 private:
  // A part of a cell.
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
  const SubjectOf subjectOf_;
  Place under_;  // where the pointer is
  Place shown_;  // cell of the open tip; slot -1: none is open
  TipTexts texts_;
};
