// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/settings_store.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QSet>

#include "platform/background.h"
#include "platform/text/text_file.h"

using namespace Qt::StringLiterals;

// The file is what QSettings' IniFormat writes and reads. QSettings itself is not used: on this system it tells letter
// cases apart, it does not know which of two spellings came last, it splits hand-written values at commas, and it
// writes when nobody asked it to.
namespace {

// Digits of the escapes %XX and %UXXXX.
constexpr int kHexByte = 2;
constexpr int kHexUnit = 4;
// Letters behind a backslash, and what they stand for.
constexpr QStringView kEscapeLetters = u"abfnrtv\"\\";
constexpr QStringView kEscapedAs = u"\a\b\f\n\r\t\v\"\\";

bool IsHexDigit(QChar c) {
  const QChar lower = c.toLower();
  return (c >= u'0' && c <= u'9') || (lower >= u'a' && lower <= u'f');
}

bool IsPlainInName(QChar c) {
  return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_' || c == u'-' ||
         c == u'.';
}

QString EscapedName(const QString& name) {
  QString out;
  for (const QChar c : name) {
    if (IsPlainInName(c)) {
      out += c;
    } else if (c.unicode() <= 0xFF) {
      out += u'%' + QString::number(c.unicode(), 16).rightJustified(kHexByte, u'0').toUpper();
    } else {
      out += u"%U"_s + QString::number(c.unicode(), 16).rightJustified(kHexUnit, u'0').toUpper();
    }
  }
  return out;
}

// A name that was written by hand may hold any character unescaped; a backslash separates section and key.
QString UnescapedName(const QString& text) {
  QString out;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    if (c != u'%') {
      out += c == u'\\' ? u'/' : c;
      continue;
    }
    const bool wide = i + 1 < text.size() && text[i + 1] == u'U';
    const qsizetype start = i + (wide ? 2 : 1);
    const qsizetype digits = wide ? kHexUnit : kHexByte;
    bool ok = false;
    const uint unit = start + digits <= text.size() ? text.sliced(start, digits).toUInt(&ok, 16) : 0;
    if (ok) {
      out += QChar(static_cast<char16_t>(unit));
      i = start + digits - 1;
    } else {
      out += c;
    }
  }
  return out;
}

// text without the blanks and tabs around it. QString::trimmed() would also take the wider spaces of other scripts,
// which belong to the text.
QString Stripped(const QString& text) {
  const auto isBlank = [](QChar c) { return c == u' ' || c == u'\t'; };
  const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
  const auto last = std::find_if_not(text.rbegin(), text.rend(), isBlank).base();
  return first < last ? QString(first, last - first) : QString();
}

QString EscapedValue(const QString& value) {
  QString out;
  // QSettings takes a leading @ for the mark of a typed value; a doubled one stands for a plain @.
  if (value.startsWith(u'@')) out += u'@';
  bool afterHex = false;
  for (const QChar c : value) {
    const qsizetype letter = kEscapedAs.indexOf(c);
    // A hexadecimal digit behind a \x escape would be read as part of it, so it is escaped as well.
    const bool asHex = letter < 0 && (c < u' ' || (afterHex && IsHexDigit(c)));
    if (letter >= 0) {
      out += u'\\';
      out += kEscapeLetters[letter];
    } else if (asHex) {
      out += u"\\x"_s + QString::number(c.unicode(), 16);
    } else {
      out += c;
    }
    afterHex = asHex;
  }
  const auto needsQuotes = [](QChar c) { return c == u';' || c == u',' || c == u'='; };
  return std::any_of(out.begin(), out.end(), needsQuotes) || out != Stripped(out) ? u'"' + out + u'"' : out;
}

// A value that begins with a quote is quoted; in any other value quotes, commas and semicolons are part of the text.
QString UnescapedValue(const QString& text) {
  const bool quoted = text.startsWith(u'"');
  QString out;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    if (c == u'"' && quoted) continue;
    if (c != u'\\' || i + 1 == text.size()) {
      out += c;
      continue;
    }
    const QChar next = text[i + 1];
    const qsizetype letter = kEscapeLetters.indexOf(next);
    if (next == u'x' && i + 2 < text.size() && IsHexDigit(text[i + 2])) {
      qsizetype end = i + 2;
      while (end < text.size() && IsHexDigit(text[end])) ++end;
      out += QChar(static_cast<char16_t>(text.sliced(i + 2, end - i - 2).toULongLong(nullptr, 16)));
      i = end - 1;
    } else if (letter >= 0 || next == u'0') {
      out += letter >= 0 ? kEscapedAs[letter] : QChar();
      ++i;
    } else {
      out += c;  // a lone backslash, as in a path written by hand
    }
  }
  // QSettings marks a text that contains a NUL in this way.
  if (out.startsWith("@String("_L1) && out.endsWith(u')')) return out.sliced(8).chopped(1);
  return out.startsWith("@@"_L1) ? out.sliced(1) : out;
}

bool Write(const QString& path, const QByteArray& bytes) {
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit();
}

QString IdOf(const QString& application, const QString& path) {
  return application.toCaseFolded() + u'\n' + path.toCaseFolded();
}

}  // namespace

SettingsStore::SettingsStore(const QString& path) : path_(path), groups_({Group()}) {
  if (const std::optional<QString> text = ReadTextFile(path)) {
    Read(*text);
  } else {
    unreadable_ = QFileInfo::exists(path);
  }
}

void SettingsStore::Read(const QString& text) {
  const QStringList lines = SplitLines(text);
  for (const QString& line : lines) {
    const QString trimmed = Stripped(line);
    if (trimmed.startsWith(u'[') && trimmed.endsWith(u']')) {
      groups_ += {line, UnescapedName(trimmed.sliced(1, trimmed.size() - 2)), {}};
      continue;
    }
    Group& group = groups_.last();
    const qsizetype equals = trimmed.indexOf(u'=');
    if (equals <= 0 || trimmed.startsWith(u';') || trimmed.startsWith(u'#')) {
      group.lines += {line, QString()};
      continue;
    }
    const QString id = IdOf(group.application, UnescapedName(Stripped(trimmed.first(equals))));
    values_.insert(id, UnescapedValue(Stripped(trimmed.sliced(equals + 1))));
    group.lines += {line, id};
  }
  DropOlderSpellings();
}

QString SettingsStore::Value(const QString& application, const QString& section, const QString& key,
                             const QString& fallback) const {
  return values_.value(IdOf(application, section + u'/' + key), fallback);
}

void SettingsStore::SetValue(const QString& application, const QString& section, const QString& key,
                             const QString& value) {
  const QString id = IdOf(application, section + u'/' + key);
  const auto known = values_.constFind(id);
  if (known != values_.constEnd() && *known == value) return;
  const bool isNew = known == values_.constEnd();
  values_.insert(id, value);
  ++changes_;
  const QString line = EscapedName(section) + u'\\' + EscapedName(key) + u'=' + EscapedValue(value);
  if (isNew) {
    QList<Line>& lines = GroupOf(application).lines;
    qsizetype at = lines.size();
    while (at > 0 && lines[at - 1].text.trimmed().isEmpty()) --at;  // before the empty line that ends the group
    lines.insert(at, {line, id});
    return;
  }
  for (Group& group : groups_)
    for (Line& entry : group.lines)
      if (entry.id == id) entry.text = line;
}

SettingsStore::Group& SettingsStore::GroupOf(const QString& application) {
  for (Group& group : groups_)
    if (!group.header.isEmpty() && group.application.compare(application, Qt::CaseInsensitive) == 0) return group;
  if (Group& last = groups_.last(); !last.lines.isEmpty() && !last.lines.last().text.trimmed().isEmpty())
    last.lines += {QString(), QString()};
  groups_ += {u'[' + EscapedName(application) + u']', application, {}};
  return groups_.last();
}

// Of entries whose names differ in letter case only, the last one of the file counts; the others are dropped.
void SettingsStore::DropOlderSpellings() {
  QSet<QString> seen;
  for (auto group = groups_.rbegin(); group != groups_.rend(); ++group) {
    QList<Line> kept;
    for (auto line = group->lines.crbegin(); line != group->lines.crend(); ++line) {
      if (!line->id.isEmpty() && seen.contains(line->id)) continue;
      seen.insert(line->id);
      kept += *line;
    }
    std::reverse(kept.begin(), kept.end());
    group->lines = kept;
  }
}

QByteArray SettingsStore::Text() const {
  QString text;
  for (const Group& group : groups_) {
    if (!group.header.isEmpty()) text += group.header + u'\n';
    for (const Line& line : group.lines) text += line.text + u'\n';
  }
  return text.toUtf8();
}

bool SettingsStore::Save() {
  return Writer()();
}

std::function<bool()> SettingsStore::Writer() {
  if (changes_ == writing_->saved) return []() { return true; };
  if (unreadable_) return []() { return false; };
  return [writing = writing_, mine = ++writing_->newest, path = path_, bytes = Text(), changes = changes_]() {
    const QMutexLocker lock(&writing->mutex);
    if (writing->newest != mine) return true;
    if (!Write(path, bytes)) return false;
    writing->saved = changes;
    return true;
  };
}

void SettingsStore::SaveLater(Background& background) {
  if (changes_ != writing_->saved) background.Run<bool>(&background, Writer(), [](bool) {});
}
