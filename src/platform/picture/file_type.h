// SPDX-License-Identifier: GPL-3.0-or-later
// Type of a file by what stands in its first 300 bytes. The intake, the viewer and the picture tool ask it.
#pragma once

#include <QByteArray>
#include <QString>

// "gif", "jpg", "jp2", "png", "bmp", "mp4", "mpg", "avi", "404", "locked" or empty.
QString FileTypeOf(const QByteArray& first300);
QString GetFileType(const QString& path);
bool IsVideoType(const QString& type);
