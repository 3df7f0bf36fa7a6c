// SPDX-License-Identifier: GPL-3.0-or-later
// A text box that keeps out what a list's file cannot hold, and says in a word what it has left out. The windows that
// add and edit sites use it for calls, titles and addresses.
#pragma once

#include <QLineEdit>

// Line ends are never taken; a text that is too long is cut.
class CleanField : public QLineEdit {
  Q_OBJECT

 public:
  // What a box takes.
  struct Rule {
    int limit = 0;        // letters
    bool isField = true;  // of a line whose fields are divided by "*": neither that nor control characters are taken
  };
  // How letters and zeros are spelled: a call in upper case, its zeros as the ZeroGlyph; a title by its keys in upper
  // case, but otherwise as it is pasted.
  enum class Spelling { AsTyped, Title, Call };

  CleanField(const QString& name, const Rule& rule, QWidget* parent);

  void SetSpelling(Spelling spelling, QChar zeroGlyph);
  // Names the box for screen readers by its label's text, whose colon is left out.
  void SetRole(const QString& label);
  // What was left out of the last edit, in the present language; empty: nothing.
  QString Note() const;

 Q_SIGNALS:
  void NoteChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Cleaner;
  int Room() const;
  void TakeLost();
  // What has been left out.
  enum class Lost { Nothing, Signs, Foreign, Rest };

  const Rule rule_;
  Spelling spelling_ = Spelling::AsTyped;
  QChar zeroGlyph_ = u'0';
  Cleaner* cleaner_;
  Lost lost_ = Lost::Nothing;
};
