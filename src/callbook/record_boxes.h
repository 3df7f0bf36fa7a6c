// SPDX-License-Identifier: GPL-3.0-or-later
// The boxes of one record in the editor of the call database, with their labels and the note about coordinates that do
// not come from the service. Form26 has one.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include "callbook/database_editor.h"
#include "core/language_file.h"
#include "ui/call_field.h"
#include "ui/coordinate_field.h"

// txtCall, the eight boxes of a record, txtNickName and Label4.
class RecordBoxes : public QWidget {
  Q_OBJECT

 public:
  // corner: shown beside the boxes, at the top right.
  RecordBoxes(QChar zeroGlyph, QWidget* corner, QWidget* parent);

  void ShowTexts(const LanguageTexts& texts);
  // Fills all boxes from the editor, without a signal.
  void Fill(const DatabaseEditor& editor);
  void SetNickname(const QString& nickname);
  CallField* Call() const { return txtCall; }
  // The boxes in the order of Tab.
  QList<QWidget*> TabChain() const;
  // note: the text of Label4, visible while a coordinate is marked.
  void SetNote(const QString& note) { label4_->setText(note); }
  void HideNote() { label4_->hide(); }

 Q_SIGNALS:
  // The user types.
  void CallTyped(const QString& shown);
  void BoxTyped(Box box, const QString& text);
  void NicknameTyped(const QString& text);

 private:
  void MakeLayout(QWidget* corner);

  CallField* txtCall;
  std::array<QLineEdit*, kBoxes> boxes_;
  QLineEdit* txtNickName;
  CoordinateNote* label4_;
  std::array<QLabel*, kBoxes + 2> labels_;  // of txtCall, the boxes, and txtNickName
};
