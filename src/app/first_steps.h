// SPDX-License-Identifier: GPL-3.0-or-later
// What a page without any site has to say: which steps the user can take next, and which copy of a lost list can be put
// back. EmptyPage shows it; Form1 owns the only one.
#pragma once

#include <QObject>
#include <QTimer>
#include <optional>

#include "core/list_copies.h"
#include "core/program.h"
#include "platform/background.h"
#include "sites/site_changes.h"

// Decides; knows no widgets.
class FirstSteps : public QObject {
  Q_OBJECT

 public:
  // All of it outlives this object.
  struct Dependencies {
    Program& program;
    Background& background;
    SiteChanges& changes;
    bool hasAuthor;  // the host of the author's list is known
  };

  explicit FirstSteps(const Dependencies& dependencies, QObject* parent = nullptr);

  // The lists have been read: looks beside the event loop for copies of those that are missing or empty.
  void ListsRead();
  // Something may have changed that is shown; several calls in a row make one Changed.
  void Look() { later_.start(); }

  // While no site stands on any of the 20 pages; on the weather page only for a copy of its list.
  bool Shown() const;
  qsizetype Sites() const { return deps_.program.sites.Sites.size(); }
  bool LocationIsSet() const;
  bool HasAuthor() const { return deps_.hasAuthor; }
  // The copy that can be put back on this page.
  std::optional<ListCopy> Copy() const;
  // Adds the sites of that copy.
  void PutBack();

 Q_SIGNALS:
  void Changed();
  // The copy was put back, but these files could not be written.
  void NotWritten(const QStringList& files);

 private:
  void Find(SiteList list);
  SiteList ListOfPage() const { return deps_.program.page.OnDsstvPage() ? SiteList::Dsstv : SiteList::Wx; }
  bool IsEmpty(SiteList list) const;

  const Dependencies deps_;
  QTimer later_;
  QList<ListCopy> copies_;
};
