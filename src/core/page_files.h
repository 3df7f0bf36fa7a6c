// SPDX-License-Identifier: GPL-3.0-or-later
// Where the pictures of a page lie on the disk. The poll, the intake and the grid ask it. Slots are 0-based here and
// 1-based in the names of DSSTV files.
#pragma once

#include <QString>

QString PicturePath(const QString& appDataDir, int page, int slot);
QString ThumbPath(const QString& appDataDir, int page, int slot);
// Says beside the thumb that the picture could not be shown.
QString FailurePath(const QString& appDataDir, int page, int slot);
QString WxPath(const QString& appDataDir, int slot);
