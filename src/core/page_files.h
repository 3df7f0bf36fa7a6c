// SPDX-License-Identifier: GPL-3.0-or-later
// Paths of the pictures of a page. The poll, the intake and the grid use them. Slots count from 0 here, and from 1 in
// the names of DSSTV files.
#pragma once

#include <QString>

QString PicturePath(const QString& appDataDir, int page, int slot);
QString ThumbPath(const QString& appDataDir, int page, int slot);
// The mark beside a thumb that the picture could not be shown.
QString FailurePath(const QString& appDataDir, int page, int slot);
QString WxPath(const QString& appDataDir, int slot);
// Folder of the pictures of a site's history, and the path of one of them; of the pictures that the site has sent with
// sent. number: from 1.
QString HistoryFolder(const QString& appDataDir);
QString HistoryPath(const QString& appDataDir, int number, bool sent);
