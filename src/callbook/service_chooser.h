// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of a callbook service, with the button that signs in to it, the button that fetches from it, and the login
// state. The lookup window has one, and so has each setup window that fetches coordinates.
#pragma once

#include <QComboBox>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include "callbook/callbook_service.h"
#include "callbook/lookup_widgets.h"
#include "callbook/sign_in.h"

// cboDB, cmdSignIn and the fetch button in a row. The login state belongs to it, but the window places that in a row of
// its own.
class ServiceChooser : public QWidget {
  Q_OBJECT

 public:
  // The given names of the window's fetch button and login state.
  struct Names {
    QString fetch;
    QString status;
  };

  ServiceChooser(ServiceSpelling spelling, const Names& names, QWidget* parent);

  // selectDatabase: the chooser's name in the present language.
  void ShowTexts(const QString& selectDatabase);
  // Selects a service by its CallbookIndex, without a signal.
  void SetService(int callbookIndex);
  // The caption may have several lines and any characters ("&" is shown as such).
  void SetFetchCaption(const QString& caption);
  // Shows the login state and what cmdSignIn and a click on the state do.
  void SetLogin(const QString& status, const SignInOffer& offer);
  // shown: the texts of the window, which a screen reader reads with the focused control.
  void Describe(const QString& shown);

  QPushButton* FetchButton() const { return fetch_; }
  StatusLink* Status() const { return status_; }
  // The controls in the order of Tab, the login state last.
  QList<QWidget*> TabChain() const { return {fetch_, cboDB, cmdSignIn, status_}; }

 Q_SIGNALS:
  // The user has chosen a service; its row, from 0.
  void Chosen(int listIndex);
  void FetchWanted();
  // cmdSignIn, or the login state, was pressed; the SignInOffer says whether to sign in or out.
  void KeyPressed();
  void StatusPressed();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QComboBox* cboDB;
  QToolButton* cmdSignIn;
  QPushButton* fetch_;
  StatusLink* status_;
};
