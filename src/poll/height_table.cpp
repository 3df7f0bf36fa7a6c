// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/height_table.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <limits>

#include "platform/paths.h"
#include "platform/text/delimited_fields.h"
#include "platform/text/numbers.h"
#include "platform/text/text_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPages = 20;
constexpr int kSlots = 36;

QString HeightsPath(const QString& appDataDir) {
  return ResolvePath(appDataDir, u"images/dsstv/ckNewHeight.txt"_s);
}

QString Prefix(int page, int slot) {
  return u"%1-%2-"_s.arg(page).arg(slot);
}

bool IsInTable(int page, int slot) {
  return page >= 1 && page <= kPages && slot >= 0 && slot < kSlots;
}

// A picture whose height is not known cannot be told from a new one, so all are removed and fetched again. Folders
// stay.
void WipePictures(const QString& appDataDir) {
  QDir folder(ResolvePath(appDataDir, u"images/dsstv"_s));
  if (!folder.exists()) return;
  const QStringList names = folder.entryList(QDir::Files | QDir::Hidden | QDir::System);
  for (const QString& name : names) folder.remove(name);
}

// Brings an entry of the file into the table's form: "x" for an unknown height, page and slot before a bare height.
QString Entry(const QString& text, int page, int slot) {
  QString field = text.section(u',', 0, 0);  // a quoted comma would make two entries of one in the next file
  if (field.isEmpty()) field = u"x"_s;
  return field.contains(u'-') ? field : Prefix(page, slot) + field;
}

}  // namespace

HeightTable::HeightTable() {
  Take({});
}

void HeightTable::Take(const QStringList& fields) {
  for (int page = 1; page <= kPages; ++page) {
    for (int slot = 0; slot < kSlots; ++slot) {
      const QString field = fields.value((page - 1) * kSlots + slot);
      entries_[static_cast<size_t>(page)][static_cast<size_t>(slot)] = Entry(field, page, slot);
    }
  }
}

void HeightTable::Read(const QString& appDataDir) {
  const QString path = HeightsPath(appDataDir);
  const std::optional<QString> text = ReadTextFile(path);
  QStringList fields = SplitFields(text.value_or(QString()));
  const bool unreadable = !text && QFileInfo::exists(path);
  if (!unreadable && !fields.value(0).contains(u'-')) {
    WipePictures(appDataDir);
    fields.clear();
  }
  Take(fields);
}

QStringList HeightTable::CkNewHeight() const {
  QStringList lines;
  for (size_t page = 1; page <= kPages; ++page) {
    for (const QString& entry : entries_[page]) lines.append(entry);
  }
  return lines;
}

bool HeightTable::Write(const QString& appDataDir) const {
  return WriteTextLines(HeightsPath(appDataDir), CkNewHeight());
}

int HeightTable::Height(int page, int slot) const {
  if (!IsInTable(page, slot)) return 0;
  const QStringList parts = entries_[static_cast<size_t>(page)][static_cast<size_t>(slot)].split(u'-');
  const double height = Val(parts.value(2));
  return height <= std::numeric_limits<int>::max() ? static_cast<int>(height) : 0;
}

void HeightTable::SetHeight(int page, int slot, int height) {
  if (!IsInTable(page, slot)) return;
  entries_[static_cast<size_t>(page)][static_cast<size_t>(slot)] = Prefix(page, slot) + QString::number(height);
}
