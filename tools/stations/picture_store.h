// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated store of operators' pictures: "x/dl0qx/dl0qx.jpg" for the call DL0QX, painted when it is first asked
// for. StationBand makes it.
#pragma once

#include <QThreadPool>
#include <functional>
#include <map>
#include <vector>

#include "http_host.h"
#include "operators.h"

// The host of the store.
class PictureStore : public Host {
 public:
  PictureStore(const QHostAddress& address, quint16 port, QThreadPool& painters, QObject* parent);

  // Path of a call's picture, without a leading "/".
  static QString PathOf(const QString& call);

 protected:
  void Handle(const Request& request, const Deliver& deliver) override;

 private:
  // A painted picture, or whoever waits for it.
  struct Painted {
    QByteArray file;
    std::vector<Deliver> waiting;
  };

  void TakePainted(const QString& path, const QByteArray& file);

  QThreadPool& painters_;
  QHash<QString, const Operator*> people_;  // by path
  std::map<QString, Painted> painted_;
};
