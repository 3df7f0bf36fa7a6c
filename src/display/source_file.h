// SPDX-License-Identifier: GPL-3.0-or-later
// The file of the picture that an action is about, with what its name and its window tell of it. The actions of the
// picture menus ask SourceFiles for it: copy, save, paste, print, mail, information, drag.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <functional>

#include "display/picture_source.h"
#include "platform/background.h"
#include "platform/picture/picture_tool.h"

// One file as it was when it was asked for; a newer picture that has come since is another file.
struct SourceFile {
  SourcePicture picture;  // as its window says it
  QString path;           // where the file was found
  QByteArray bytes;       // of the whole file; empty: there is no file any more, and nothing is to be done
  QString type;           // by its content, as GetFileType says; empty: unknown
  bool animated = false;

  bool Vanished() const { return bytes.isEmpty(); }
  // Suggested call: the sender's, else the site's.
  QString Call() const;
  // Suggested time: UTC as the cell has it; may be empty.
  const QString& SentTime() const { return picture.sentTime; }
  // Of the real type, without a dot; "jpg" where the type is unknown.
  QString Extension() const;
};

// Finds source files.
class SourceFiles : public QObject {
  Q_OBJECT

 public:
  // What it works with; both outlive it.
  struct Dependencies {
    PictureTool& tool;
    Background& background;
  };
  using Found = std::function<void(const SourceFile&)>;

  explicit SourceFiles(const Dependencies& services, QObject* parent = nullptr);

  // The file is opened at once, so that it is the one of the click whatever is stored in its place meanwhile; it is
  // read beside the event loop. found is called once, unless context is gone by then.
  void FindSourceFile(const SourcePicture& picture, QObject* context, const Found& found);
  // The same for bytes that a window has already.
  void TakeBytes(const SourcePicture& picture, const QByteArray& bytes, QObject* context, const Found& found);

 private:
  Dependencies services_;
};

// An open file: that of the moment when it was opened, whatever takes its name later. Any thread may read it.
class OpenFile {
 public:
  explicit OpenFile(const QString& path);
  ~OpenFile();
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  // The first of its bytes, at most so many; nothing of what is no plain file, or larger than any picture.
  QByteArray Bytes(qsizetype most) const;
  QByteArray Bytes() const;
  // Its descriptor, for copies within the system; -1 where it could not be opened.
  int Handle() const { return file_; }

 private:
  int file_;
};

// The file of this name, or the first of this name with an extension; empty where there is none.
QString FileOfName(const QString& name);
// "1/24/2024 15:30" gives "2024_01_24 15_30". A text without a time gives the date alone; one that is no date, nothing.
QString MakeFileStamp(const QString& sentTime);
