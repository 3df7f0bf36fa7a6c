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

QString HistoryFolder(const QString& appDataDir) {
  return appDataDir + u"/images/last15"_s;
}

QString HistoryPath(const QString& appDataDir, int number, bool sent) {
  return HistoryFolder(appDataDir) + (sent ? u"/TX%1.jpg"_s : u"/%1"_s).arg(number);
}
