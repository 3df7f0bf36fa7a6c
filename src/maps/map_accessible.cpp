// SPDX-License-Identifier: GPL-3.0-or-later
#include "maps/map_accessible.h"

using namespace Qt::StringLiterals;

AccessibleMapView::AccessibleMapView(QWidget* view, MapLabels* labels)
    : QAccessibleWidget(view, QAccessible::Pane), source_(labels) {}

AccessibleMapView::~AccessibleMapView() {
  for (const QAccessible::Id id : std::as_const(labels_)) QAccessible::deleteAccessibleInterface(id);
}

QWidget* AccessibleMapView::View() const {
  return qobject_cast<QWidget*>(object());
}

int AccessibleMapView::childCount() const {
  return View() == nullptr ? 0 : static_cast<int>(source_->Labels().size());
}

QAccessibleInterface* AccessibleMapView::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  if (!labels_.contains(index)) {
    labels_.insert(index, QAccessible::registerAccessibleInterface(new AccessibleMapLabel(View(), source_, index)));
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
    if (source_->LabelRect(i).contains(place)) return child(i);
  }
  return nullptr;
}

QAccessibleInterface* AccessibleMapView::focusChild() const {
  if (View() == nullptr || !View()->hasFocus()) return nullptr;
  const qsizetype label = source_->FocusedLabel();
  return label < 0 ? QAccessible::queryAccessibleInterface(View()) : child(static_cast<int>(label));
}

void AccessibleMapView::Install() {
  static const bool installed = []() {
    QAccessible::installFactory([](const QString& className, QObject* object) -> QAccessibleInterface* {
      if (className != "MapView"_L1) return nullptr;
      auto* labels = dynamic_cast<MapLabels*>(object);
      return labels != nullptr ? new AccessibleMapView(qobject_cast<QWidget*>(object), labels) : nullptr;
    });
    return true;
  }();
  Q_UNUSED(installed)
}

void AccessibleMapView::LabelsChanged(QWidget* view) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent changed(view, QAccessible::ObjectReorder);
  QAccessible::updateAccessibility(&changed);
}

void AccessibleMapView::FocusMoved(QWidget* view, qsizetype focusedLabel) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent focus(view, QAccessible::Focus);
  if (focusedLabel >= 0) focus.setChild(static_cast<int>(focusedLabel));
  QAccessible::updateAccessibility(&focus);
}

AccessibleMapLabel::AccessibleMapLabel(QWidget* view, MapLabels* labels, int index)
    : view_(view), source_(labels), index_(index) {}

bool AccessibleMapLabel::isValid() const {
  return view_ != nullptr && index_ < source_->Labels().size();
}

bool AccessibleMapLabel::IsClickable() const {
  return isValid() && source_->Labels().at(index_).clickable;
}

QWindow* AccessibleMapLabel::window() const {
  return view_ == nullptr ? nullptr : view_->window()->windowHandle();
}

QAccessibleInterface* AccessibleMapLabel::parent() const {
  return view_ == nullptr ? nullptr : QAccessible::queryAccessibleInterface(view_);
}

QString AccessibleMapLabel::text(QAccessible::Text kind) const {
  if (!isValid()) return {};
  const MapOverlay::Label& label = source_->Labels().at(index_);
  if (kind == QAccessible::Description) return label.tip.simplified();
  return kind == QAccessible::Name ? label.text.simplified() : QString();
}

QRect AccessibleMapLabel::rect() const {
  if (!isValid()) return {};
  const QRect place = source_->LabelRect(index_);
  return {view_->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::Role AccessibleMapLabel::role() const {
  return IsClickable() ? QAccessible::Button : QAccessible::StaticText;
}

QAccessible::State AccessibleMapLabel::state() const {
  QAccessible::State state;
  state.invisible = view_ == nullptr || !view_->isVisible();
  state.offscreen = isValid() && !view_->rect().intersects(source_->LabelRect(index_));
  state.focusable = IsClickable();
  state.focused = isValid() && view_->hasFocus() && source_->FocusedLabel() == index_;
  return state;
}

void* AccessibleMapLabel::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList AccessibleMapLabel::actionNames() const {
  return IsClickable() ? QStringList{pressAction()} : QStringList();
}

void AccessibleMapLabel::doAction(const QString& actionName) {
  if (isValid() && actionName == pressAction()) source_->PressLabel(index_, true);
}
