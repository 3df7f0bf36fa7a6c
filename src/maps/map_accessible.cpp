// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_accessible.h"

#include "maps/map_view.h"

using namespace Qt::StringLiterals;

AccessibleMapView::AccessibleMapView(MapView* view) : QAccessibleWidget(view, QAccessible::Pane) {}

AccessibleMapView::~AccessibleMapView() {
  for (const QAccessible::Id id : std::as_const(labels_)) QAccessible::deleteAccessibleInterface(id);
}

MapView* AccessibleMapView::View() const {
  return qobject_cast<MapView*>(object());
}

int AccessibleMapView::childCount() const {
  return View() == nullptr ? 0 : static_cast<int>(View()->Overlay().labels.size());
}

QAccessibleInterface* AccessibleMapView::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  if (!labels_.contains(index)) {
    labels_.insert(index, QAccessible::registerAccessibleInterface(new AccessibleMapLabel(View(), index)));
  }
  return QAccessible::accessibleInterface(labels_.value(index));
}

int AccessibleMapView::indexOfChild(const QAccessibleInterface* child) const {
  for (auto label = labels_.cbegin(); label != labels_.cend(); ++label) {
    if (QAccessible::accessibleInterface(label.value()) == child) return label.key();
  }
  return -1;
}

QAccessibleInterface* AccessibleMapView::childAt(int x, int y) const {
  if (View() == nullptr) return nullptr;
  const QPoint place = View()->mapFromGlobal(QPoint(x, y));
  for (int i = childCount() - 1; i >= 0; --i) {
    if (View()->LabelRect(i).contains(place)) return child(i);
  }
  return nullptr;
}

QAccessibleInterface* AccessibleMapView::focusChild() const {
  if (View() == nullptr || !View()->hasFocus()) return nullptr;
  const qsizetype label = View()->FocusedLabel();
  return label < 0 ? QAccessible::queryAccessibleInterface(View()) : child(static_cast<int>(label));
}

void AccessibleMapView::Install() {
  static const bool installed = []() {
    QAccessible::installFactory([](const QString& className, QObject* object) -> QAccessibleInterface* {
      if (className != "MapView"_L1) return nullptr;
      auto* view = qobject_cast<MapView*>(object);
      return view != nullptr ? new AccessibleMapView(view) : nullptr;
    });
    return true;
  }();
  Q_UNUSED(installed)
}

void AccessibleMapView::LabelsChanged(MapView* view) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent changed(view, QAccessible::ObjectReorder);
  QAccessible::updateAccessibility(&changed);
}

void AccessibleMapView::FocusMoved(MapView* view) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent focus(view, QAccessible::Focus);
  if (view->FocusedLabel() >= 0) focus.setChild(static_cast<int>(view->FocusedLabel()));
  QAccessible::updateAccessibility(&focus);
}

AccessibleMapLabel::AccessibleMapLabel(MapView* view, int index) : view_(view), index_(index) {}

bool AccessibleMapLabel::isValid() const {
  return view_ != nullptr && index_ < view_->Overlay().labels.size();
}

bool AccessibleMapLabel::IsClickable() const {
  return isValid() && view_->Overlay().labels.at(index_).clickable;
}

QWindow* AccessibleMapLabel::window() const {
  return view_ == nullptr ? nullptr : view_->window()->windowHandle();
}

QAccessibleInterface* AccessibleMapLabel::parent() const {
  return view_ == nullptr ? nullptr : QAccessible::queryAccessibleInterface(view_);
}

QString AccessibleMapLabel::text(QAccessible::Text kind) const {
  if (!isValid() || kind != QAccessible::Name) return {};
  return view_->Overlay().labels.at(index_).text.simplified();
}

QRect AccessibleMapLabel::rect() const {
  if (!isValid()) return {};
  const QRect place = view_->LabelRect(index_);
  return {view_->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::Role AccessibleMapLabel::role() const {
  return IsClickable() ? QAccessible::Button : QAccessible::StaticText;
}

QAccessible::State AccessibleMapLabel::state() const {
  QAccessible::State state;
  state.invisible = view_ == nullptr || !view_->isVisible();
  state.offscreen = isValid() && !view_->rect().intersects(view_->LabelRect(index_));
  state.focusable = IsClickable();
  state.focused = isValid() && view_->hasFocus() && view_->FocusedLabel() == index_;
  return state;
}

void* AccessibleMapLabel::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList AccessibleMapLabel::actionNames() const {
  return IsClickable() ? QStringList{pressAction()} : QStringList();
}

void AccessibleMapLabel::doAction(const QString& actionName) {
  if (isValid() && actionName == pressAction()) view_->PressLabel(index_, true);
}
