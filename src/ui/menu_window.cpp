// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menu_window.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleOptionMenuItem>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kSubMenuOverlap = 30;    // pixels
constexpr int kMonitorMargin = 4;      // pixels
constexpr double kCheckStroke = 0.14;  // line width as a part of the check mark's side
constexpr std::chrono::milliseconds kTick = 500ms;
constexpr std::chrono::milliseconds kTypingPause = 1s;

// The desktop's style, changed where these menus differ from those of other programs.
class PopupStyle : public QProxyStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    return metric == PM_SubMenuOverlap ? -kSubMenuOverlap : QProxyStyle::pixelMetric(metric, option, widget);
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    // A menu longer than the monitor scrolls instead of growing a second column.
    if (hint == SH_Menu_Scrollable) return 1;
    // The etched shadow of greyed text is lighter than the text itself in dark themes.
    if (hint == SH_EtchDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    const auto* row = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && row != nullptr && !row->checked) {
      // Draw a check mark for a setting that is on, but no empty box for one that is off.
      QStyleOptionMenuItem plain(*row);
      plain.checkType = QStyleOptionMenuItem::NotCheckable;
      QProxyStyle::drawControl(element, &plain, painter, widget);
      return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
  }

  // The check mark without the box that styles draw around it.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    if (element != PE_IndicatorCheckBox) return QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool selected = option->state.testFlag(State_Selected);
    const QColor colour = option->palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    const QRectF box(option->rect);
    const double side = std::min(box.width(), box.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(box.center());
    painter->scale(side, side);
    painter->setPen(QPen(colour, kCheckStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(QPolygonF({{-0.3, 0.02}, {-0.08, 0.26}, {0.32, -0.26}}));
    painter->restore();
  }
};

// A text as a menu row needs it: without the special meaning of "&" and tabs, which our texts do not use.
QString RowText(const QString& text, const QFontMetrics& metrics, int widest) {
  QString shown = metrics.elidedText(text, Qt::ElideRight, widest);
  for (QChar& c : shown) {
    if (c.category() == QChar::Other_Control) c = u' ';
  }
  return shown.replace(u'&', u"&&"_s);
}

}  // namespace

MenuWindow::MenuWindow(QWidget* parent) : QMenu(parent) {
  auto* style = new PopupStyle;
  style->setParent(this);
  setStyle(style);
  typedTimer_.setSingleShot(true);
  typedTimer_.setInterval(kTypingPause);
  connect(&typedTimer_, &QTimer::timeout, this, [this]() { typed_.clear(); });
}

QAction* MenuWindow::MakeRow(const MenuEntry& entry) {
  // A row wider than half the monitor would leave no space for the sub-menus.
  auto* row = new QAction(RowText(entry.text, fontMetrics(), screen()->availableGeometry().width() / 2), this);
  row->setCheckable(entry.hasCheck);
  row->setChecked(entry.checked);
  row->setEnabled(entry.enabled);
  return row;
}

void MenuWindow::MakeRows(const QList<MenuEntry>& entries) {
  // Delete former rows later: the row that was just chosen may be among them and still in use.
  const QList<QAction*> old = actions();
  for (QAction* row : old) {
    removeAction(row);
    row->deleteLater();
  }
  entries_ = entries;
  rows_.clear();
  for (const MenuEntry& entry : entries) {
    if (entry.separatorBefore) addSeparator();
    rows_.append(MakeRow(entry));
    addAction(rows_.last());
    if (entry.separatorAfter) addSeparator();
  }
}

const MenuEntry* MenuWindow::EntryOf(const QAction* action) const {
  const qsizetype place = rows_.indexOf(action);
  return place < 0 ? nullptr : &entries_.at(place);
}

void MenuWindow::keyPressEvent(QKeyEvent* event) {
  Q_EMIT KeyPressed();
  const QString text = event->text();
  const bool plain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
  if (plain && !text.isEmpty() && text.at(0).isPrint() && !(typed_.isEmpty() && text == u" "_s)) {
    FindTyped(text);
    return;
  }
  QMenu::keyPressEvent(event);
  // QMenu does not scroll to the last row when the user steps up to it from the first row of a long menu.
  QAction* row = activeAction();
  if (isVisible() && row != nullptr && row->menu() == nullptr && !rect().contains(actionGeometry(row))) {
    setActiveAction(row);
  }
}

// Selects the next row that begins with the typed text; the same letter again selects the next such row.
void MenuWindow::FindTyped(const QString& text) {
  typedTimer_.start();
  if (typed_.compare(text, Qt::CaseInsensitive) != 0) typed_ += text;
  const qsizetype start = rows_.indexOf(activeAction());
  const qsizetype first = typed_.size() > 1 ? std::max<qsizetype>(start, 0) : start + 1;
  for (qsizetype step = 0; step < rows_.size(); ++step) {
    const qsizetype place = (first + step) % rows_.size();
    const QString name = entries_.at(place).text.trimmed();
    if (entries_.at(place).enabled && name.startsWith(typed_, Qt::CaseInsensitive)) {
      SelectByKeys(rows_.at(place));
      return;
    }
  }
}

// Selects by simulated arrow keys, because setActiveAction would open the row's sub-menu at once, and the sub-menu
// would take the next key.
void MenuWindow::SelectByKeys(const QAction* row) {
  for (qsizetype step = 0; step < rows_.size() && activeAction() != row; ++step) {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QMenu::keyPressEvent(&down);
  }
}

frmMenu::frmMenu(QWidget* parent) : MenuWindow(parent) {
  setObjectName(u"frmMenu"_s);
  tmrMenus.setInterval(kTick);
  connect(&tmrMenus, &QTimer::timeout, this, &frmMenu::MenusTick);
  connect(this, &MenuWindow::KeyPressed, this, &frmMenu::KeepPointer);
  connect(this, &QMenu::triggered, this, &frmMenu::Dispatch);
  connect(this, &QMenu::aboutToHide, this, &frmMenu::AboutToClose);
}

void frmMenu::MakeMenu(const QList<MenuEntry>& entries, const SubMenuTable& subMenus) {
  close();
  const QList<frmSubMenu*> old = subMenus_;
  subMenus_.clear();
  MakeRows(entries);
  for (frmSubMenu* menu : old) menu->deleteLater();
  if (!subMenus) return;
  for (qsizetype i = 0; i < entries.size(); ++i) {
    const MenuId subMenu = entries.at(i).subMenu;
    if (subMenu == MenuId::None) continue;
    auto* menu = new frmSubMenu(this);
    menu->setObjectName(u"frmSubMenu"_s);
    menu->setFont(font());
    menu->setTitle(entries.at(i).text.trimmed());
    menu->setAccessibleName(menu->title());
    menu->MakeMenu(subMenus(subMenu));
    connect(menu, &MenuWindow::KeyPressed, this, &frmMenu::KeepPointer);
    Rows().at(i)->setMenu(menu);
    Rows().at(i)->setEnabled(entries.at(i).enabled);
    subMenus_.append(menu);
  }
}

void frmMenu::OpenAt(const QPoint& globalPoint, Opener opener) {
  const QWidgetList windows = QApplication::topLevelWidgets();
  for (QWidget* window : windows) {
    if (qobject_cast<MenuWindow*>(window) != nullptr && window->isVisible()) window->close();
  }
  if (Rows().isEmpty()) return;
  const QScreen* monitor = QGuiApplication::screenAt(globalPoint);
  if (monitor == nullptr) monitor = screen();
  // A menu exactly as high as the monitor would come out a pixel too high.
  setMaximumHeight(monitor->geometry().height() - kMonitorMargin);
  popup(globalPoint);
  KeepPointer();
  tmrMenus.start();
  if (opener == Opener::Pointer) return;
  const auto checked = std::find_if(Rows().begin(), Rows().end(), [](const QAction* row) { return row->isChecked(); });
  if (checked != Rows().end()) {
    setActiveAction(*checked);
  } else {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    keyPressEvent(&down);
  }
}

// Remembers the pointer's place. MenusTick ignores a pointer that has not moved since the menu opened or since the last
// key; otherwise somebody who works by keyboard would lose the menu at the next tick.
void frmMenu::KeepPointer() {
  restingPointer_ = QCursor::pos();
}

bool frmMenu::IsInside(const QPoint& pointer) const {
  const auto holds = [&pointer](const QWidget* window) {
    return window->isVisible() && window->geometry().contains(pointer);
  };
  return holds(this) || std::any_of(subMenus_.begin(), subMenus_.end(), holds);
}

void frmMenu::MenusTick() {
  if (!isVisible()) {
    tmrMenus.stop();
    return;
  }
  const QPoint pointer = QCursor::pos();
  if (pointer == restingPointer_ || IsInside(pointer) || QGuiApplication::mouseButtons() != Qt::NoButton) return;
  tmrMenus.stop();
  close();
}

void frmMenu::Dispatch(QAction* action) {
  // A mouse click or a key has closed the menus by now; a press by a screen reader or a switch has not, and then the
  // menu would keep the keyboard from the window that the choice opens. Such a press may also be on a row with a
  // sub-menu.
  if (action->menu() != nullptr) {
    setActiveAction(action);
    return;
  }
  close();
  const MenuEntry* entry = EntryOf(action);
  for (const frmSubMenu* menu : std::as_const(subMenus_)) {
    if (entry == nullptr) entry = menu->EntryOf(action);
  }
  if (entry == nullptr) return;
  // Copy it: the handler may rebuild this menu.
  const MenuEntry chosen = *entry;
  Q_EMIT Chosen(chosen);
}
