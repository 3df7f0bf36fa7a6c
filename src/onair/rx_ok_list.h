// SPDX-License-Identifier: GPL-3.0-or-later
// lstRxOk: the stations that received the user's own picture, from the thumbnails of the page and from the reports of
// the companion program. ReceivedOk has it built anew by Timer3; lblMap tells its count and frmMapRxOk draws it.
#pragma once

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QObject>

#include "core/program.h"

// A station that received the user's picture.
struct RxOkRow {
  QString call;
  double lat = 0;  // degrees, of the station's site; 0: it has no site, or the site no position
  double lon = 0;
  QString text;
  QString date;    // as the site or the companion wrote it
  QDateTime when;  // the same to the minute, UTC; invalid if it is no date

  bool operator==(const RxOkRow& other) const = default;
};

class RxOkList : public QObject {
  Q_OBJECT

 public:
  explicit RxOkList(QObject* parent = nullptr) : QObject(parent) {}

  // Reads the text of the companion's item txtRxOk, which counts from the next BuildRxOkList on.
  void SetReports(const QString& txtRxOk, const QStringList& lstBadCalls);
  // Builds the rows anew from the thumbnails of the page and the reports. The newest report's date goes into the
  // configuration as LastRxOkTime.
  void BuildRxOkList(Program& program);
  void Clear() { Take({}, {}); }

  // In the order in which they were found, at most 1,000.
  const QList<RxOkRow>& Rows() const { return rows_; }
  // The newest date among the reports, to the minute; invalid without any.
  QDateTime LastRxReport() const { return lastRxReport_; }
  // Less than two minutes between the row's date and LastRxReport: the station has received the last picture that was
  // transmitted, not one before it.
  bool IsOfLastImage(const RxOkRow& row) const;

 Q_SIGNALS:
  // A row, or the date of the newest report, is another.
  void Changed();

 private:
  class ListedCalls;
  QDateTime ToMinute(const QString& text);
  void AddThumbs(const Program& program, const QString& own, QList<RxOkRow>& rows, ListedCalls& listed);
  void ReadReports(const QStringList& lstBadCalls);
  void Take(const QList<RxOkRow>& rows, const QDateTime& lastRxReport);

  QString txtRxOk_;
  // What the text says, for the list of bad calls that it was read with.
  struct Reports {
    QStringList lstBadCalls;
    QList<RxOkRow> rows;
    QDateTime newest;
  } reports_;
  QHash<QString, QDateTime> dates_;  // to the minute, by their text
  QList<RxOkRow> rows_;
  QDateTime lastRxReport_;
};
