// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/clean_field.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QValidator>
#include <algorithm>
#include <utility>

#include "ui/call_field.h"

using namespace Qt::StringLiterals;

// A validator may rewrite a text before textChanged is emitted, whatever way it came in. The box's history for undo
// ends there, so keys bring texts that need no rewriting.
class CleanField::Cleaner : public QValidator {
 public:
  explicit Cleaner(CleanField* field) : QValidator(field), field_(field) {}

  State validate(QString& input, int& caret) const override {
    Clean(input, field_->rule_.limit);
    caret = std::min(caret, static_cast<int>(input.size()));
    return Acceptable;
  }

  void Clean(QString& input, int limit) const {
    const qsizetype before = input.size();
    input.removeIf([this](QChar c) { return IsRefused(c); });
    if (input.size() != before) lost_ = Lost::Signs;
    const qsizetype plain = input.size();
    input.removeIf([this](QChar c) { return IsForeign(c); });
    if (input.size() != plain) lost_ = Lost::Foreign;
    if (input.size() > limit) {
      lost_ = Lost::Rest;
      // Half of a pair of surrogates is no letter.
      const bool halves = limit > 0 && input.at(limit - 1).isHighSurrogate();
      input.truncate(halves ? limit - 1 : limit);
    }
    if (field_->spelling_ == Spelling::Call) {
      // Character by character, because the upper case of a whole text may have another length.
      for (QChar& c : input) c = c == u'0' ? field_->zeroGlyph_ : c.toUpper();
    }
  }

  // What has been left out since this was called last.
  Lost TakeLost() { return std::exchange(lost_, Lost::Nothing); }

 private:
  // The call database and the lists hold Latin letters; an emoji is a pair of surrogates.
  bool IsForeign(QChar c) const {
    if (c.isSurrogate()) return true;
    return field_->spelling_ == Spelling::Call && c.unicode() > 0xff && c != field_->zeroGlyph_;
  }
  bool IsRefused(QChar c) const {
    if (c == u'\r' || c == u'\n' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator) return true;
    return field_->rule_.isField && (c == u'*' || c.category() == QChar::Other_Control);
  }

  CleanField* field_;
  mutable Lost lost_ = Lost::Nothing;
};

CleanField::CleanField(const QString& name, const Rule& rule, QWidget* parent)
    : QLineEdit(parent), rule_(rule), cleaner_(new Cleaner(this)) {
  setObjectName(name);
  // QLineEdit's own limit, of 32,767 letters, cuts before the cleaner sees the text.
  setValidator(cleaner_);
  connect(this, &QLineEdit::textChanged, this, &CleanField::TakeLost);
}

void CleanField::SetSpelling(Spelling spelling, QChar zeroGlyph) {
  if (spelling_ == Spelling::Call && spelling != Spelling::Call) setText(text().replace(zeroGlyph_, u'0'));
  spelling_ = spelling;
  zeroGlyph_ = zeroGlyph;
  setText(text());
}

void CleanField::SetRole(const QString& label) {
  setAccessibleName(RoleOf(label));
}

QString CleanField::Note() const {
  if (lost_ == Lost::Rest) return tr("Cut: only %1 letters fit.").arg(rule_.limit);
  if (lost_ == Lost::Foreign) return tr("Emoji and foreign letters are left out.");
  if (lost_ == Lost::Signs) return rule_.isField ? tr("* and line ends are left out.") : tr("Line ends are left out.");
  return {};
}

// Letters that the box has room for beside those that stay.
int CleanField::Room() const {
  return rule_.limit - static_cast<int>(text().size() - selectedText().size());
}

void CleanField::TakeLost() {
  const Lost before = std::exchange(lost_, cleaner_->TakeLost());
  if (lost_ != before) Q_EMIT NoteChanged();
}

void CleanField::keyPressEvent(QKeyEvent* event) {
  const bool isPaste = event->matches(QKeySequence::Paste);
  if (isReadOnly() || !(isPaste || TypesText(*event))) return QLineEdit::keyPressEvent(event);
  QString text = isPaste ? QGuiApplication::clipboard()->text() : event->text();
  if (!isPaste && spelling_ == Spelling::Title) text = text.toUpper();
  cleaner_->Clean(text, Room());
  // Nothing is left of it, so that no change of the text would tell.
  if (text.isEmpty()) return TakeLost();
  if (isPaste) return insert(text);
  QKeyEvent key(event->type(), event->key(), event->modifiers(), text, event->isAutoRepeat());
  QLineEdit::keyPressEvent(&key);
}
