// SPDX-License-Identifier: GPL-3.0-or-later
// Text files in the encodings that users' folders hold. Every list, the configuration file and the language files are
// read and written through here.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

// Code page of bytes that are not valid UTF-8.
enum class CodePage { Western1252, CentralEuropean1250, Cyrillic1251, Japanese932 };

// Decodes UTF-8 where the bytes are valid UTF-8 (a mark at the start is dropped), else the code page. NULs stay.
QString DecodeText(const QByteArray& bytes, CodePage fallback = CodePage::Western1252);
// Encodes as Windows-1252, or as UTF-8 with a byte order mark where the text does not fit, so that nothing is lost.
QByteArray EncodeText(const QString& text);
// Lines without their ends (CR LF, LF or CR); a last line without an end counts, an empty rest behind the last end does
// not.
QStringList SplitLines(const QString& text);

// The whole file; nothing where it cannot be read.
std::optional<QByteArray> ReadFileBytes(const QString& path);
std::optional<QString> ReadTextFile(const QString& path);
// Lines joined by CR LF with one behind the last, encoded, through QSaveFile: the new file or the old one, never a torn
// one.
bool WriteTextLines(const QString& path, const QStringList& lines);
