// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/menu_strip.h"

#include <QHBoxLayout>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {
constexpr int kLeastHeight = 26;
constexpr int kCallLetters = 9;
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
      lblSetup(new BarLabel(u"lblSetup"_s, this)) {
  setObjectName(u"Pic"_s);
  imgRefresh->setObjectName(u"imgRefresh"_s);
  imgRefresh->setFixedWidth(22);
  QSizePolicy keepsRoom = imgRefresh->sizePolicy();
  keepsRoom.setRetainSizeWhenHidden(true);
  imgRefresh->setSizePolicy(keepsRoom);
  imgRefresh->hide();
  txtCall->setObjectName(u"txtCall"_s);
  txtCall->setMaxLength(64);
  txtCall->setFixedWidth(fontMetrics().horizontalAdvance(QString(kCallLetters, u'W')));
  cmdGo->setObjectName(u"cmdGo"_s);
  cmdGo->setText(u"Go"_s);
  cmdGo->setFixedWidth(fontMetrics().horizontalAdvance(u"Go"_s) + fontMetrics().height() * 2);

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(4, 0, 4, 0);
  row->setSpacing(3);
  for (QWidget* part : std::initializer_list<QWidget*>{lblPages, lblRefresh, imgRefresh, lblFind, lblCam, lblMap}) {
    row->addWidget(part);
  }
  row->addStretch(1);
  for (QWidget* part : std::initializer_list<QWidget*>{txtCall, cmdGo, lblOnAirNow, lblPropagation, lblSetup}) {
    row->addWidget(part);
  }
}

int MenuStrip::BarHeight() const {
  return std::max(kLeastHeight, fontMetrics().height() + 12);
}

void MenuStrip::SetTexts(const LanguageTexts& texts) {
  lblFind->SetCaption(texts[TextLine::kFindCaption]);
  lblCam->SetCaption(texts[TextLine::kCamsWord]);
  lblOnAirNow->SetCaption(texts[TextLine::kOnAirText]);
  lblPropagation->SetCaption(texts[TextLine::kPropagationCaption]);
  lblSetup->SetCaption(u"Setup"_s);
  txtCall->setAccessibleName(texts[TextLine::kCallFieldName]);
  txtCall->setToolTip(texts[TextLine::kCallFieldName]);
  cmdGo->setAccessibleName(texts[TextLine::kLookUpName]);
  imgRefresh->setAccessibleName(texts[TextLine::kBusyName]);
}

void MenuStrip::paintEvent(QPaintEvent* event) {
  Q_UNUSED(event)
  QPainter painter(this);
  const QColor window = palette().color(QPalette::Window);
  const bool dark = qGray(window.rgb()) < 128;
  painter.fillRect(rect(), dark ? window.lighter(125) : window.darker(104));
  painter.fillRect(QRect(0, height() - 1, width(), 1), dark ? window.lighter(160) : window.darker(125));
}
