// SPDX-License-Identifier: GPL-3.0-or-later
// The boxes of one site, with a word below each box about what was typed, and the frame that fetches coordinates. Form3
// and Form7 have one.
#pragma once

#include <QCheckBox>
#include <QLabel>

#include "callbook/fetch_group.h"
#include "sites/address_probe.h"
#include "sites/site_fields.h"
#include "ui/clean_field.h"

// txtCall, txtUrl, txtCamUrl and the coordinates.
class SiteForm : public QWidget {
  Q_OBJECT

 public:
  // What the boxes use; all of it outlives them.
  struct Dependencies {
    CoordinateFetch::Dependencies lookUps;
    SignInBrowser browser;
  };

  // fetchName: the given name of the window's fetch button. hasKeepBox: with the check box that keeps a site whatever
  // the server's list says.
  SiteForm(const Dependencies& dependencies, const QString& fetchName, bool hasKeepBox, QWidget* parent);

  void SetList(SiteTableKind list);
  // Shows a site, which is then not typed.
  void SetFields(const SiteFields& fields);
  SiteFields Fields() const;
  void ShowTexts();
  // Drops what is under way for the site that was shown.
  void EndLooking();
  CleanField* CallBox() const { return txtCall; }
  // The controls in the order of Tab.
  QList<QWidget*> TabChain() const;

 Q_SIGNALS:
  // A box says something else, by the user or by a fetch.
  void Edited();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // A box for an address, its label, and what is said below it.
  struct AddressRow {
    QLabel* label;
    CleanField* box;
    QLabel* note;
    AddressProbe* probe;
    bool waits = false;  // its address is looked at when the other look has ended
  };

  AddressRow MakeAddressRow(const QString& name);
  void MakeLayout();
  void ConnectSignals();
  void LookNext();
  void ShowNotes();
  QString NoteOf(const AddressRow& row, bool isPicture) const;
  void UrlEdited();

  Dependencies deps_;
  CoordinateFetch fetch_;
  SiteTableKind list_ = SiteTableKind::Dsstv;
  QLabel* callLabel_;
  CleanField* txtCall;
  QLabel* callNote_;
  AddressRow url_;
  AddressRow cam_;
  const bool hasKeepBox_;
  QCheckBox* ckKeep_;
  FetchGroup* group_;
  bool filling_ = false;  // the program writes the boxes
};
