// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/picture_key.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
constexpr int kSlotsOfAPage = 100;
}

QString PictureKey::Text() const {
  const QString place = QString::number(page * kSlotsOfAPage + slot);
  return site == kNoSite ? place : u"%1-%2"_s.arg(place).arg(site);
}

std::optional<PictureKey> PictureKey::Read(const QString& text) {
  const QStringList parts = text.split(u'-');
  bool placeOk = false;
  bool siteOk = true;
  const int place = parts.first().toInt(&placeOk);
  PictureKey key;
  if (parts.size() > 1) key.site = parts.at(1).toInt(&siteOk);
  if (!placeOk || !siteOk || place < 0 || parts.size() > 2) return std::nullopt;
  key.page = place / kSlotsOfAPage;
  key.slot = place % kSlotsOfAPage;
  return key;
}
