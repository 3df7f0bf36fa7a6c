// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_chooser.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>

#include "maps/map_list.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostMapsShown = 12;  // rows of the list before it scrolls
constexpr int kButtonShare = 3;     // the button is at most a third as wide as the window

QString PlainTip(const QString& text) {
  return Qt::convertFromPlainText(text, Qt::WhiteSpaceNoWrap);
}

}  // namespace

MapChooser::MapChooser(const QString& buttonName, const QString& listName, QWidget* bar, QWidget* window)
    : QWidget(bar), window_(window), lblMaps_(this), button_(buttonName, this), list_(window) {
  lblMaps_.setObjectName(u"lblMaps"_s);
  lblMaps_.setTextFormat(Qt::PlainText);
  lblMaps_.installEventFilter(this);
  // A click must not give the button the focus: the open list would lose it and close, and the same click would open
  // the list again.
  button_.setFocusPolicy(Qt::TabFocus);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(4);
  row->addWidget(&lblMaps_);
  row->addWidget(&button_);

  list_.setObjectName(listName);
  list_.setModel(&names_);
  // The view then measures one name instead of all, of which there may be ten thousand.
  list_.setUniformItemSizes(true);
  list_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_.setTextElideMode(Qt::ElideMiddle);
  list_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_.hide();
  list_.installEventFilter(this);
  list_.viewport()->installEventFilter(this);

  connect(&button_, &QToolButton::clicked, this, &MapChooser::Toggle);
  connect(&list_, &QListView::clicked, this, [this](const QModelIndex& index) { Choose(index.row()); });
}

// The list and the label still send events while they are being destroyed, and the event filter reads both members.
MapChooser::~MapChooser() {
  list_.viewport()->removeEventFilter(this);
  list_.removeEventFilter(this);
  lblMaps_.removeEventFilter(this);
}

void MapChooser::SetTexts(const QString& maps) {
  lblMaps_.setText(maps);
  list_.setAccessibleName(maps);
  ShowCaption();
}

void MapChooser::SetMaps(const QStringList& lstMap, int current) {
  lstMap_ = lstMap;
  current_ = current;
  ShowCaption();
}

void MapChooser::FitToWindow(int width) {
  if (room_ == width / kButtonShare) return;
  room_ = width / kButtonShare;
  ShowCaption();
}

void MapChooser::ShowCaption() {
  const QString name = MapListName(lstMap_.value(current_));
  const QString shown = room_ > 0 ? button_.fontMetrics().elidedText(name, Qt::ElideMiddle, room_) : name;
  button_.SetCaption(shown + u" ▾"_s);
  button_.setAccessibleName((lblMaps_.text() + u' ' + name).trimmed());
  button_.setToolTip(shown == name ? QString() : PlainTip(name));
}

void MapChooser::Toggle() {
  if (list_.isVisible()) {
    Choose(-1);
    return;
  }
  if (lstMap_.isEmpty()) return;
  if (filled_ != lstMap_) {
    filled_ = lstMap_;
    QStringList names;
    names.reserve(lstMap_.size());
    for (const QString& file : std::as_const(lstMap_)) names.append(MapListName(file));
    names_.setStringList(names);
  }
  PlaceList();
  list_.show();
  list_.raise();
  list_.setFocus();
  const QModelIndex current = names_.index(current_);
  list_.setCurrentIndex(current);
  list_.scrollTo(current);
}

void MapChooser::PlaceList() {
  qsizetype longest = 0;
  const QStringList names = names_.stringList();
  for (qsizetype i = 0; i < names.size(); ++i) {
    if (names.at(i).size() > names.at(longest).size()) longest = i;
  }
  const QFontMetrics metrics = list_.fontMetrics();
  const int edge = 2 * list_.frameWidth();
  // Wider than the name with the most characters, as a name with fewer but wider letters may be wider; and space for a
  // scroll bar.
  const int wanted = metrics.horizontalAdvance(names.value(longest)) * 11 / 10 + edge + 2 * metrics.height();
  const QPoint place = button_.mapTo(window_, QPoint(0, button_.height()));
  const int width = std::min(std::max(button_.width(), wanted), window_->width());
  const qsizetype rows = std::min<qsizetype>(names.size(), kMostMapsShown);
  const int height = static_cast<int>(rows) * list_.sizeHintForIndex(names_.index(0)).height() + edge;
  list_.setGeometry(std::min(place.x(), window_->width() - width), place.y(), width,
                    std::min(height, window_->height() - place.y()));
}

void MapChooser::Choose(int index) {
  list_.hide();
  if (index < 0) {
    Q_EMIT Dismissed();
  } else {
    Q_EMIT Chosen(index);
  }
}

bool MapChooser::ListKey(int key) {
  switch (key) {
    case Qt::Key_Escape:
      Choose(-1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      Choose(list_.currentIndex().row());
      return true;
    default:
      return false;
  }
}

bool MapChooser::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &lblMaps_ && event->type() == QEvent::MouseButtonRelease) Toggle();
  if (watched == &list_ && event->type() == QEvent::FocusOut) list_.hide();
  if (watched == &list_ && event->type() == QEvent::KeyPress) return ListKey(static_cast<QKeyEvent*>(event)->key());
  if (watched == list_.viewport() && event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString name = list_.indexAt(help->pos()).data().toString();
    QToolTip::showText(help->globalPos(), name.isEmpty() ? QString() : PlainTip(name), list_.viewport());
    return true;
  }
  return QWidget::eventFilter(watched, event);
}
