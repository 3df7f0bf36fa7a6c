// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/connectivity.h"

using namespace Qt::StringLiterals;

ConnectivityTest::ConnectivityTest(UrlNetwork& network, const QString& host, std::chrono::milliseconds patience,
                                   QObject* parent)
    : QObject(parent), reader_(network), host_(host) {
  patience_.setSingleShot(true);
  patience_.setInterval(patience);
  connect(&reader_, &UrlReader::Done, this, [this]() { Answer(true); });
  connect(&reader_, &UrlReader::Failed, this, [this]() { Answer(false); });
  connect(&patience_, &QTimer::timeout, this, [this]() { Answer(false); });
}

void ConnectivityTest::Run() {
  patience_.start();
  reader_.Start(u"root"_s, QUrl(host_.isEmpty() ? host_ : host_ + u"/"_s), UrlPriority::User);
}

void ConnectivityTest::Answer(bool reached) {
  patience_.stop();
  reader_.Cancel(u"root"_s);
  Q_EMIT Answered(reached);
}
