// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the site tables: Omni-Perch.lst, WXsites.lst and the older OmniPerch.lst. Start-up reads them; every
// save of the state writes the first two. What the program cannot use in them is carried along and written back.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "core/site_table.h"

class SiteListFile {
 public:
  SiteListFile(SiteTable& sites, const QString& appDataDir);

  bool HasSiteList() const;
  bool HasWxSiteList() const;

  // Turns OmniPerch.lst into Omni-Perch.lst and leaves the old file in place; nothing where there is none. The cams go
  // into lstCams here and once more when the new file is read: for this run they stand there twice.
  void ConvertOldSiteList();
  // Omni-Perch.lst into Sites, sorted, with the slots of the layout. A missing file leaves Sites as they are.
  void ReadSiteList(int layout);
  // WXsites.lst into WxSites, sorted.
  void ReadWxSiteList();

  // Drops duplicates, takes the masks of the layout back into the records and writes both files. Gives a text for each
  // record dropped, in the order of their finding. A file that is there and could not be read is left alone.
  QStringList SaveSiteLists(int layout);

  // What SaveSiteLists writes, from copies of the present tables: for a thread beside the event loop. Duplicates are
  // left out of the files and stay in the tables, until SaveSiteLists tells of them.
  std::function<void()> SaveLater(int layout) const;

 private:
  enum class Shape { Dsstv, Wx, Older };
  struct Source {
    QString path;
    QStringList unusedLines;  // lines that make no record, in their order
    bool unreadable = false;

    bool Exists() const;
    bool MayWrite() const;
    QList<SiteRec> Read(Shape shape);
  };

  SiteListFile(SiteTable& sites, const SiteListFile& sources);
  void AddCamsOfSites();
  void WriteSites();

  SiteTable& sites_;
  Source dsstv_;
  Source wx_;
  Source older_;
};
