// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of a callbook service with the key that signs in to it, the button that fetches from it and the login
// state. The lookup window has one, and so has each setup window that fetches coordinates.
#pragma once

#include <QComboBox>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include "callbook/callbook_service.h"
#include "callbook/lookup_widgets.h"
#include "callbook/sign_in.h"

// cboDB, cmdSignIn and the fetch button in a row. The login state is placed by the window, in a row of its own.
class ServiceChooser : public QWidget {
  Q_OBJECT

 public:
  // The given names of the window's fetch button and login state.
  struct Names {
    QString fetch;
    QString status;
  };

  ServiceChooser(ServiceSpelling spelling, const Names& names, QWidget* parent);

  // selectDatabase: what the chooser is, in the present language.
  void ShowTexts(const QString& selectDatabase);
  // Selects a service by its CallbookIndex, without a signal.
  void SetService(int callbookIndex);
  // A caption may have several lines and any letters.
  void SetFetchCaption(const QString& caption);
  void SetLogin(const QString& status, const SignInOffer& offer);
  // What the window shows, so that a screen reader says it with the control in focus.
  void Describe(const QString& shown);

  QPushButton* FetchButton() const { return fetch_; }
  StatusLink* Status() const { return status_; }
  // From the left, as Tab passes through them; the login state behind them.
  QList<QWidget*> TabChain() const { return {fetch_, cboDB, cmdSignIn, status_}; }

 Q_SIGNALS:
  // The user has chosen a service, by its place in the list.
  void Chosen(int listIndex);
  void FetchWanted();
  // The key was pressed, or the login state; the offer says which of both is meant.
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
