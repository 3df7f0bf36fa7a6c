// SPDX-License-Identifier: GPL-3.0-or-later
// The frame in a setup window with a station's coordinates and what fetches them: the choice of service, the fetch
// button with the login state in its caption, the two boxes, and the notes below them. Form3, Form7 and Form11 have
// one.
#pragma once

#include <QGroupBox>
#include <QLabel>

#include "callbook/coordinate_fetch.h"
#include "callbook/service_chooser.h"
#include "callbook/sign_in_page.h"
#include "ui/coordinate_field.h"

// The frame. The window tells the fetch which call has been typed; all else goes between this frame and the fetch.
class FetchGroup : public QGroupBox {
  Q_OBJECT

 public:
  // The given names of the window's fetch button, of the note about derived coordinates, and of the message.
  struct Names {
    QString fetch;
    QString note;
    QString message;
  };

  // The fetch outlives the frame.
  FetchGroup(Program& program, CoordinateFetch& fetch, const SignInBrowser& browser, const Names& names,
             QWidget* parent);

  void ShowTexts();
  // Shows a place, in degrees, which is then neither typed nor fetched; Ctrl+Z does not bring the former one back.
  void SetPlace(double lat, double lon);
  CoordinateField* Lat() const { return txtLat; }
  CoordinateField* Lon() const { return txtLon; }
  // The controls in the order of Tab.
  QList<QWidget*> TabChain() const;

 Q_SIGNALS:
  // The user or a fetch has changed a coordinate.
  void PlaceChanged();

 private:
  void MakeLayout();
  void ShowView();
  void BeginFetch();
  void Fetch();
  void TakeStation(const FoundStation& station);

  Program& program_;
  CoordinateFetch& fetch_;
  SignInPage signIn_;
  ServiceChooser* service_;
  QLabel* latLabel_;
  QLabel* lonLabel_;
  CoordinateField* txtLat;
  CoordinateField* txtLon;
  QLabel* hint_;
  CoordinateNote* note_;
  QLabel* message_;
  QString kept_;          // what a fetch found after the user had typed a place
  bool filling_ = false;  // the program writes the boxes
  bool typed_ = false;    // the user has typed a coordinate since the last fetch began
};
