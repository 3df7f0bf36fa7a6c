// SPDX-License-Identifier: GPL-3.0-or-later
// Writes copies of pictures into folders of the user: names that harm nothing, numbers that are free, and nothing left
// of a file that could not be written whole. Functions for the background thread; the actions on pictures call them.
#pragma once

#include <QByteArray>
#include <QString>

#include "display/source_file.h"

// What has become of a copy.
struct SavedCopy {
  QString path;        // of the file that was written, or that could not be
  bool saved = false;  // false: the folder cannot be written, or the disk is full
};

// The text as the name of a file without its extension: no separators, no control characters, none that turn the
// direction of writing, no dots at its ends, at most 120 letters. Never empty.
QString HarmlessName(const QString& text);
// Suggested name of a file: call and time.
QString SuggestedName(const SourceFile& file);
// "Omni-Perch_", the first number from 1 that no file has under any extension, and the extension.
SavedCopy SaveNumbered(const QString& folder, const QString& extension, const QByteArray& bytes);
// name, or, where a file is called so, name with " (2)" and so on. Replaces nothing.
SavedCopy SaveBesides(const QString& folder, const QString& name, const QString& extension, const QByteArray& bytes);
// The same with a file that is open, without its bytes passing through the program where the system can do that.
SavedCopy SaveBesides(const QString& folder, const QString& name, const QString& extension, const OpenFile& file);
// Replaces a file of that name, whole or not at all.
SavedCopy SaveOver(const QString& path, const QByteArray& bytes);
