// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/cell_signs.h"

using namespace Qt::StringLiterals;

QColor ModeColour(const QString& tag) {
  if (tag.contains("EP"_L1)) return {192, 192, 0};
  if (tag.contains("QK"_L1)) return {0, 192, 192};
  return {255, 120, 120};
}

BoxLines NotFoundBox(const BoxLine& first, bool corrupt) {
  return {{TextLine::kErrorCaption, {}}, first, {corrupt ? TextLine::kCorruptText : TextLine::kNoPictureText, {}}};
}

BoxLines BlockedBox(int reason, const QString& call) {
  return {{TextLine::kBlockedCaption, {}},
          {reason == 1 ? TextLine::kBlockedText : TextLine::kIllegalText, {}},
          {std::nullopt, call}};
}
