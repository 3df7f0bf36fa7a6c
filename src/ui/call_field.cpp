// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/call_field.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QValidator>

namespace {

// As a call is shown. Character by character, because the upper case of a whole text may have another length.
void Spell(QString& text, QChar zeroGlyph) {
  text.removeIf([](QChar c) { return c == u'*' || c.category() == QChar::Other_Control; });
  for (QChar& c : text) c = c == u'0' ? zeroGlyph : c.toUpper();
}

// A validator may rewrite a text before textChanged is emitted, whatever way it came in. The box's history for undo
// ends there, so keys bring texts that need no rewriting.
class CallWriter : public QValidator {
 public:
  CallWriter(QChar zeroGlyph, QObject* parent) : QValidator(parent), zeroGlyph_(zeroGlyph) {}

  State validate(QString& input, int& caret) const override {
    Spell(input, zeroGlyph_);
    caret = std::min(caret, static_cast<int>(input.size()));
    return Acceptable;
  }

 private:
  QChar zeroGlyph_;
};

}  // namespace

CallField::CallField(const QString& name, QChar zeroGlyph, QWidget* parent) : QLineEdit(parent), zeroGlyph_(zeroGlyph) {
  setObjectName(name);
  setValidator(new CallWriter(zeroGlyph, this));
}

void CallField::SetRole(const QString& label) {
  setAccessibleName(RoleOf(label));
}

void CallField::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste) && !isReadOnly()) {
    QString text = QGuiApplication::clipboard()->text();
    Spell(text, zeroGlyph_);
    return insert(text);
  }
  if (!TypesText(*event)) return QLineEdit::keyPressEvent(event);
  QString typed = event->text();
  Spell(typed, zeroGlyph_);
  if (typed.isEmpty()) return;
  QKeyEvent key(event->type(), event->key(), event->modifiers(), typed, event->isAutoRepeat());
  QLineEdit::keyPressEvent(&key);
}

QString CallField::Call() const {
  return text().replace(u'Ø', u'0');
}

bool TypesText(const QKeyEvent& key) {
  const bool isCommand = (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::ControlModifier;
  return !isCommand && !key.text().isEmpty() && key.text().at(0).isPrint();
}

QString RoleOf(const QString& label) {
  QString role = label.trimmed();
  while (role.endsWith(u':') || role.endsWith(u'：')) role = role.chopped(1).trimmed();
  return role;
}
