// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/page_files.h"

using namespace Qt::StringLiterals;

QString PicturePath(const QString& appDataDir, int page, int slot) {
  return u"%1/images/dsstv/%2-%3"_s.arg(appDataDir).arg(page).arg(slot + 1);
}

QString ThumbPath(const QString& appDataDir, int page, int slot) {
  return u"%1/images/dsstv/thumbs/%2-%3.jpg"_s.arg(appDataDir).arg(page).arg(slot + 1);
}

QString FailurePath(const QString& appDataDir, int page, int slot) {
  return u"%1/images/dsstv/thumbs/%2-%3.failed"_s.arg(appDataDir).arg(page).arg(slot + 1);
}

QString WxPath(const QString& appDataDir, int slot) {
  return u"%1/images/wx/%2"_s.arg(appDataDir).arg(slot);
}
