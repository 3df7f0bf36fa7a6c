// SPDX-License-Identifier: GPL-3.0-or-later
// What On Air Now and the on-air map show, without the windows: the feed, the ticked boxes and where they are kept, the
// filtered and sorted entries, titles and counts. Each of the two windows owns one and paints what it holds.
#pragma once

#include <QObject>

#include "core/stored_settings.h"
#include "onair/on_air_feed.h"
#include "onair/on_air_list.h"
#include "platform/settings_store.h"

// Which of the two windows a session is for: they keep their boxes apart.
enum class OnAirWindow { List, Map };

// The entries and all texts that follow them.
struct OnAirView {
  QList<OnAirEntry> entries;
  QString title;    // of the window: the on-air text and the count
  QString caption;  // of lblOnAirNow: the same with one blank
  QString leftOut;  // what of the feed is not shown; empty: nothing
};

// One window's state. Filtering, looking up and sorting happen beside the event loop.
class OnAirSession : public QObject {
  Q_OBJECT

 public:
  // What a session uses beside its feed.
  struct Dependencies : OnAirFeed::Dependencies {
    SettingsStore& store;
    CallDatabase& database;
  };

  OnAirSession(const Dependencies& dependencies, OnAirWindow window, QObject* parent = nullptr);

  // Reads the stored boxes and begins the first refresh.
  void Open();
  void Refresh() { feed_.GetOnAirList(); }
  // The entries anew: the boxes, the order, the language, the database or own position have changed.
  void Rebuild();
  // A click on the head of a column.
  void SortBy(OnAirColumn head);

  const OnAirView& View() const { return view_; }
  const OnAirOrder& Order() const { return order_; }
  const CheckBoxes& ckBand() const { return ckBand_; }
  const CheckBoxes& ckMode() const { return ckMode_; }
  // A panel has been closed with these boxes: they go to the disk, and the entries are made anew.
  void SetBands(const CheckBoxes& boxes);
  void SetModes(const CheckBoxes& boxes);
  // What the buttons say: the ticked bands or modes, or that it is all of them.
  QString BandSummary() const;
  QString ModeSummary() const;
  static QStringList BandCaptions();
  static QStringList ModeCaptions();

  OnAirFeed& Feed() { return feed_; }

 Q_SIGNALS:
  // The entries or a text have changed.
  void Changed();
  void FilterChanged();

 private:
  void ReadBoxes(CheckBoxes& boxes, Setting each, Setting single);
  void StoreBoxes(const CheckBoxes& boxes, Setting each, Setting single);
  void Take(const QList<OnAirEntry>& entries);

  const Program& program_;
  SettingsStore& store_;
  Background& background_;
  const OnAirWindow window_;
  OnAirFeed feed_;
  CheckBoxes ckBand_;
  CheckBoxes ckMode_;
  OnAirOrder order_;
  OnAirView view_;
  Wanted rebuild_;
  // Used by the background thread only: ten thousand look-ups would hold the event loop.
  std::shared_ptr<OnAirPlaces> places_;
};
