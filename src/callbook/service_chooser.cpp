// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/service_chooser.h"

#include <QEvent>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

ServiceChooser::ServiceChooser(ServiceSpelling spelling, const Names& names, QWidget* parent)
    : QWidget(parent),
      cboDB(new QComboBox(this)),
      cmdSignIn(new QToolButton(this)),
      fetch_(new QPushButton(this)),
      status_(new StatusLink(names.status, parent)) {
  cboDB->setObjectName(u"cboDB"_s);
  cmdSignIn->setObjectName(u"cmdSignIn"_s);
  fetch_->setObjectName(names.fetch);
  for (int i = 1; i <= kCallbookServices; ++i) cboDB->addItem(SpelledName(*FindCallbookService(i), spelling));
  cmdSignIn->setIcon(KeySign(palette(), devicePixelRatioF()));

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(cboDB);
  row->addWidget(cmdSignIn);
  row->addStretch(1);
  row->addWidget(fetch_);

  // activated, not currentIndexChanged: SetService must not count as a choice of the user.
  connect(cboDB, &QComboBox::activated, this, &ServiceChooser::Chosen);
  connect(fetch_, &QPushButton::clicked, this, &ServiceChooser::FetchWanted);
  connect(cmdSignIn, &QToolButton::clicked, this, &ServiceChooser::KeyPressed);
  connect(status_, &StatusLink::clicked, this, &ServiceChooser::StatusPressed);
}

void ServiceChooser::ShowTexts(const QString& selectDatabase) {
  setAccessibleName(selectDatabase);
  cboDB->setAccessibleName(selectDatabase);
  cboDB->setToolTip(selectDatabase);
}

void ServiceChooser::SetService(int callbookIndex) {
  cboDB->setCurrentIndex(callbookIndex - 1);
}

void ServiceChooser::SetFetchCaption(const QString& caption) {
  fetch_->setText(QString(caption).replace(u'&', "&&"_L1));
  fetch_->setAccessibleName(caption.simplified());
}

void ServiceChooser::SetLogin(const QString& status, const SignInOffer& offer) {
  const bool can = offer.kind != SignInOffer::Kind::None;
  status_->SetStatus(status, can ? offer.text : QString());
  cmdSignIn->setEnabled(can);
  cmdSignIn->setAccessibleName(offer.text);
  cmdSignIn->setToolTip(offer.text);
}

void ServiceChooser::Describe(const QString& shown) {
  for (QWidget* control : std::initializer_list<QWidget*>{fetch_, cboDB}) {
    if (control->accessibleDescription() != shown) control->setAccessibleDescription(shown);
  }
}

void ServiceChooser::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) cmdSignIn->setIcon(KeySign(palette(), devicePixelRatioF()));
}
