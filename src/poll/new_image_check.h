// SPDX-License-Identifier: GPL-3.0-or-later
// Decides on each marker answer whether a site has a picture that has not been seen, and asks for it. A marker's height
// is the only identity that a picture has; its width tells whether the station is on the air.
#pragma once

#include <QObject>
#include <QSize>
#include <QString>

#include "core/program.h"
#include "page/thumb_grid.h"
#include "poll/download_control.h"
#include "poll/height_table.h"

// What a marker's answer led to.
enum class CheckOutcome {
  Unchanged,  // the site's picture is known
  Fetching,   // a picture is being fetched; its answer comes later
  NoSite      // there is no site in the slot any more
};

// Takes the marker answers for the page on the screen.
class NewImageCheck : public QObject {
  Q_OBJECT

 public:
  NewImageCheck(Program& program, HeightTable& heights, ThumbGrid& grid, ucCkNew& check, UserControl1& download,
                QObject* parent = nullptr);

  // Only a site whose address ends in "image1" has a marker beside its picture.
  static bool HasMarker(const QString& url);
  // Address of the marker. unique: a text that no earlier request had, so that no cache can answer; empty: left out.
  static QString MarkerUrl(const QString& url, const QString& unique);

 Q_SIGNALS:
  // A marker has been judged. Not raised where the marker could not be read and a picture is fetched instead: then that
  // picture's answer counts.
  void Checked(int slot, CheckOutcome outcome);

 private:
  void PictureReady(const QString& key, QSize marker);
  void NoImage(const QString& key);
  // The slot that a key names; -1 if the page has no such slot.
  int SlotOf(const QString& key) const;
  // True if a slot of a DSSTV page has no site: it was removed while the marker was being read.
  bool IsVacant(int slot) const;
  CheckOutcome Judge(int slot, int height);
  void RemoveFormerPictures() const;
  CheckOutcome Fetch(int slot);
  int StoredHeight(int slot) const;

  Program& program_;
  HeightTable& heights_;
  ThumbGrid& grid_;
  ucCkNew& check_;
  UserControl1& download_;
};
