// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/menu_strip.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastHeight = 26;
constexpr int kCallLetters = 9;
constexpr int kLeastCallLetters = 4;  // letters in the call field of a bar that is too narrow for its least captions
constexpr int kLeastSign = 22;
constexpr int kMargin = 4;
constexpr int kSpacing = 3;

// The greatest limit on the width of labels at which all of them fit into room; a label takes no more than it wants,
// and at least its own least width.
int WidestThatFits(const QList<int>& wanted, const QList<int>& least, int room) {
  int widest = *std::max_element(wanted.begin(), wanted.end());
  const auto sum = [&](int limit) {
    int total = 0;
    for (qsizetype i = 0; i < wanted.size(); ++i) total += std::max(least.at(i), std::min(wanted.at(i), limit));
    return total;
  };
  while (widest > 0 && sum(widest) > room) --widest;
  return widest;
}

template <typename Measure>
QList<int> Widths(const QList<BarLabel*>& labels, Measure measure) {
  QList<int> widths;
  for (const BarLabel* label : labels) widths.append((label->*measure)());
  return widths;
}

int Sum(const QList<int>& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0);
}

}  // namespace

MenuStrip::MenuStrip(QWidget* parent)
    : QWidget(parent),
      lblPages(new BarLabel(u"lblPages"_s, this)),
      lblRefresh(new BarLabel(u"lblRefresh"_s, this)),
      imgRefresh(new BusySign(this)),
      lblFind(new BarLabel(u"lblFind"_s, this)),
      lblCam(new BarLabel(u"lblCam"_s, this)),
      lblMap(new BarLabel(u"lblMap"_s, this)),
      txtCall(new QLineEdit(this)),
      cmdGo(new QPushButton(this)),
      lblOnAirNow(new BarLabel(u"lblOnAirNow"_s, this)),
      lblPropagation(new BarLabel(u"lblPropagation"_s, this)),
      lblSetup(new BarLabel(u"lblSetup"_s, this)),
      lblMore(new BarLabel(u"lblMore"_s, this)),
      pic1(new QWidget(this)) {
  setObjectName(u"Pic"_s);
  imgRefresh->setObjectName(u"imgRefresh"_s);
  imgRefresh->hide();
  txtCall->setObjectName(u"txtCall"_s);
  txtCall->setMaxLength(64);
  cmdGo->setObjectName(u"cmdGo"_s);
  cmdGo->setText(u"Go"_s);
  lblMore->hide();
  pic1->setObjectName(u"pic1"_s);
  pic1->setAutoFillBackground(true);
  pic1->hide();
}

void MenuStrip::ShowListSign(bool isPrimary) {
  QPalette colours = pic1->palette();
  colours.setColor(QPalette::Window, isPrimary ? Qt::white : Qt::yellow);
  pic1->setPalette(colours);
  pic1->show();
}

int MenuStrip::BarHeight() const {
  return std::max({kLeastHeight, fontMetrics().height() + 12, txtCall->sizeHint().height() + kMargin});
}

void MenuStrip::SetTexts(const LanguageTexts& texts) {
  // In a narrow bar the refresh rate behind the word is dropped first.
  lblRefresh->SetBriefCaption(texts[TextLine::kRefreshWord]);
  lblFind->SetCaption(texts[TextLine::kFindCaption]);
  lblCam->SetCaption(texts[TextLine::kCamsWord]);
  lblOnAirNow->SetCaption(texts[TextLine::kOnAirText]);
  lblPropagation->SetCaption(texts[TextLine::kPropagationCaption]);
  lblSetup->SetCaption(u"Setup"_s);
  lblMore->SetCaption(tr("More"));
  txtCall->setAccessibleName(texts[TextLine::kCallFieldName]);
  txtCall->setToolTip(texts[TextLine::kCallFieldName]);
  cmdGo->setAccessibleName(texts[TextLine::kLookUpName]);
  imgRefresh->setAccessibleName(texts[TextLine::kBusyName]);
  pic1->setAccessibleName(tr("The author's list of sites has been compared"));
  pic1->setToolTip(pic1->accessibleName());
}

QList<MenuEntry> MenuStrip::MoreEntries() const {
  QList<MenuEntry> entries;
  const QList<BarLabel*> movable = Movable();
  // The label that moves last comes first in the bar, so it comes first here.
  for (qsizetype i = movable.size(); i-- > 0;) {
    const BarLabel* label = movable.at(i);
    if (!label->Wanted() || !label->Moved()) continue;
    MenuEntry entry;
    entry.text = label->text();
    entry.command = Command::PressBarLabel;
    entry.index = static_cast<int>(i);
    entry.enabled = label->isEnabled();
    entries.append(entry);
  }
  return entries;
}

void MenuStrip::PressMoved(int index) {
  if (BarLabel* label = Movable().value(index)) label->click();
}

int MenuStrip::FieldWidth(int letters) const {
  return fontMetrics().horizontalAdvance(QString(letters, u'W'));
}

int MenuStrip::SignWidth() const {
  return std::max(kLeastSign, fontMetrics().height() + 3);
}

int MenuStrip::ButtonWidth() const {
  return fontMetrics().horizontalAdvance(cmdGo->text()) + fontMetrics().height() * 2;
}

// The visible labels of the bar while those of `moved` are in the menu; lblMore is among them if there is a menu.
QList<BarLabel*> MenuStrip::LabelsBeside(const QList<BarLabel*>& moved) const {
  QList<BarLabel*> labels = {lblPages, lblRefresh, lblFind, lblCam, lblMap, lblOnAirNow, lblPropagation, lblSetup};
  labels.removeIf([&moved](const BarLabel* label) { return !label->Wanted() || moved.contains(label); });
  if (!moved.isEmpty()) labels.append(lblMore);
  return labels;
}

int MenuStrip::RoomFor(qsizetype labels, int field) const {
  // There is a gap behind each label, the busy sign, the call field and the button.
  const auto gaps = static_cast<int>(labels + 3) * kSpacing;
  return width() - 2 * kMargin - gaps - SignWidth() - field - ButtonWidth();
}

MenuStrip::Fit MenuStrip::FitLabels() const {
  QList<BarLabel*> movable = Movable();
  movable.removeIf([](const BarLabel* label) { return !label->Wanted(); });
  Fit fit;
  fit.field = FieldWidth(kCallLetters);
  for (;;) {
    const QList<BarLabel*> labels = LabelsBeside(fit.moved);
    const QList<int> whole = Widths(labels, &BarLabel::WholeWidth);
    const QList<int> brief = Widths(labels, &BarLabel::BriefWidth);
    const QList<int> least = Widths(labels, &BarLabel::LeastWidth);
    const int room = RoomFor(labels.size(), fit.field);
    // The refresh rate is left out as long as labels are in the menu.
    fit.brief = !fit.moved.isEmpty() || Sum(whole) > room;
    fit.widest = WidestThatFits(fit.brief ? brief : whole, least, room);
    const int lacking = Sum(least) - room;
    if (lacking <= 0) return fit;
    if (fit.moved.size() == movable.size()) {
      // The bar is too narrow even so: shorten the call field, and then the captions below their least width.
      fit.field = std::max(FieldWidth(kLeastCallLetters), fit.field - lacking);
      fit.least = false;
      fit.widest = WidestThatFits(brief, QList<int>(labels.size()), RoomFor(labels.size(), fit.field));
      return fit;
    }
    fit.moved.append(movable.at(fit.moved.size()));
  }
}

void MenuStrip::Arrange() {
  const Fit fit = FitLabels();
  const QList<BarLabel*> movable = Movable();
  pic1->setGeometry(0, 0, kMargin - 1, height());
  for (BarLabel* label : movable) label->SetMoved(fit.moved.contains(label));
  lblMore->setVisible(!fit.moved.isEmpty());
  int left = kMargin;
  for (BarLabel* label : {lblPages, lblRefresh, lblFind, lblCam, lblMap}) {
    if (!label->Wanted() || label->Moved()) continue;
    left = Place(label, left, fit.WidthOf(label)) + kSpacing;
    if (label == lblRefresh) left = Place(imgRefresh, left, SignWidth()) + kSpacing;
  }
  int right = width() - kMargin;
  for (BarLabel* label : {lblMore, lblSetup, lblPropagation, lblOnAirNow}) {
    if (!label->Wanted() || label->Moved()) continue;
    right -= fit.WidthOf(label);
    Place(label, right, fit.WidthOf(label));
    right -= kSpacing;
  }
  right -= ButtonWidth();
  Place(cmdGo, right, ButtonWidth());
  right -= kSpacing + fit.field;
  Place(txtCall, right, fit.field);
}

int MenuStrip::Fit::WidthOf(const BarLabel* label) const {
  const int wanted = brief ? label->BriefWidth() : label->WholeWidth();
  return std::max(least ? label->LeastWidth() : 0, std::min(wanted, widest));
}

int MenuStrip::Place(QWidget* part, int left, int partWidth) {
  const int partHeight = part == imgRefresh ? SignWidth() : part->sizeHint().height();
  const int fitting = std::min(partHeight, height() - 1);
  part->setGeometry(left, (height() - 1 - fitting) / 2, partWidth, fitting);
  return left + partWidth;
}

bool MenuStrip::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) Arrange();
  return QWidget::event(event);
}

void MenuStrip::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Arrange();
}

void MenuStrip::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange();
}

void MenuStrip::paintEvent(QPaintEvent* event) {
  Q_UNUSED(event)
  QPainter painter(this);
  const QColor window = palette().color(QPalette::Window);
  const bool dark = qGray(window.rgb()) < 128;
  painter.fillRect(rect(), dark ? window.lighter(125) : window.darker(104));
  painter.fillRect(QRect(0, height() - 1, width(), 1), dark ? window.lighter(160) : window.darker(125));
}
