// SPDX-License-Identifier: GPL-3.0-or-later
// Looks whether a picture can be had at an address that has just been typed. The boxes of Form3 and Form7 own one; what
// it finds is said below the box and keeps nobody from adding the site.
#pragma once

#include <QObject>
#include <QSize>
#include <QString>

#include "core/page_state.h"
#include "platform/net/url_reader.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// One look at a time.
class AddressProbe : public QObject {
  Q_OBJECT

 public:
  // What is known of the address.
  enum class Finding { Nothing, Looking, Picture, NoPicture, NoAnswer, NoWebAddress };

  AddressProbe(const PageState& page, UrlNetwork& network, PictureTool& tool, QObject* parent = nullptr);

  // Looks at an address, unless that was the last one looked at. Without a connection nothing is asked.
  void Look(const QString& url);
  // Ends the look and forgets what was found: the address is being edited.
  void End();

  Finding Found() const { return finding_; }
  // Pixels of the picture that was found.
  QSize Size() const { return size_; }

 Q_SIGNALS:
  void Changed();

 private:
  void Measure(const QByteArray& body);
  void Set(Finding finding);

  const PageState& page_;
  UrlReader reader_;
  PictureTool& tool_;
  Wanted wanted_;
  QString url_;
  Finding finding_ = Finding::Nothing;
  QSize size_;
};
