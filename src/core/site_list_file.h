// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the site tables: Omni-Perch.lst, WXsites.lst and the older OmniPerch.lst. Start-up reads them; every
// save of the state writes the first two. Lines that the program cannot use are kept and written back.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "core/site_table.h"

// The three files, and the tables that they fill.
class SiteListFile {
 public:
  SiteListFile(SiteTable& sites, const QString& appDataDir);

  bool HasSiteList() const;
  bool HasWxSiteList() const;

  // Converts OmniPerch.lst into Omni-Perch.lst and leaves the old file in place; does nothing without an old file. The
  // cams are added to lstCams here and again when the new file is read, so that for this run they are there twice.
  void ConvertOldSiteList();
  // Reads Omni-Perch.lst into Sites, sorts them and builds the slots of the layout. Without the file Sites stay as they
  // are.
  void ReadSiteList(int layout);
  // Reads WXsites.lst into WxSites and sorts them.
  void ReadWxSiteList();

  // What came of a save.
  struct Saved {
    QStringList messages;    // one for each duplicate dropped, in the order in which they were found
    QStringList notWritten;  // names of the files that could not be written
  };
  // Drops duplicates, stores the masks of the layout in the records and writes both files. A file that exists but could
  // not be read is left alone, and counts as not written.
  Saved SaveSiteLists(int layout);

  // A function that writes the same as SaveSiteLists from copies of the present tables, to be called on another thread;
  // it returns the names of the files that it could not write. It leaves duplicates out of the files; they stay in the
  // tables until SaveSiteLists or DropDuplicates reports them.
  std::function<QStringList()> SaveLater(int layout) const;
  // Drops the duplicates of both tables without writing; returns the messages about them.
  QStringList DropDuplicates();

 private:
  enum class Shape { Dsstv, Wx, Older };
  // One of the files.
  struct Source {
    QString path;
    QStringList unusedLines;  // lines that are not part of a record, in their order
    bool unreadable = false;

    bool Exists() const;
    bool MayWrite() const;
    QList<SiteRec> Read(Shape shape);
  };

  SiteListFile(SiteTable& sites, const SiteListFile& sources);
  void AddCamsOfSites();
  bool WriteSites() const;

  SiteTable& sites_;
  Source dsstv_;
  Source wx_;
  Source older_;
};
