// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the type of a file by words in its first 300 bytes. The intake, the viewer and the picture tool call it.
#pragma once

#include <QByteArray>
#include <QString>

// "gif", "jpg", "jp2", "png", "bmp", "mp4", "mpg", "avi", "404", "locked" or empty. GetFileType reads the file at path,
// and gives an empty type where it cannot be read.
QString FileTypeOf(const QByteArray& first300);
QString GetFileType(const QString& path);
bool IsVideoType(const QString& type);
