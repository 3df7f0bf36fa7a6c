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
