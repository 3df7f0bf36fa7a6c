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
  Unchanged,  // its picture is known
  Fetching,   // its picture is asked for, and answers in its turn
  NoSite      // nobody stands in the slot any more
};

class NewImageCheck : public QObject {
  Q_OBJECT

 public:
  NewImageCheck(Program& program, HeightTable& heights, ThumbGrid& grid, ucCkNew& check, UserControl1& download,
                QObject* parent = nullptr);

  // Only addresses that end in "image1" have a marker beside their picture.
  static bool HasMarker(const QString& url);
  // Address of the marker; unique, where not empty, makes the request one of its kind.
  static QString MarkerUrl(const QString& url, const QString& unique);

 Q_SIGNALS:
  // A marker has been judged; not raised where the check failed, as only the picture's answer says something then.
  void Checked(int slot, CheckOutcome outcome);

 private:
  void PictureReady(const QString& key, QSize marker);
  void NoImage(const QString& key);
  // The slot of a key on the page, -1 outside it.
  int SlotOf(const QString& key) const;
  // True where no site stands in a slot of a DSSTV page: its site was removed while the marker was asked for.
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
