// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated band: receiving stations and the named hosts of the outside world, all on loopback and on the event
// loop of whoever makes it. The tests use it in-process, omni-perch-stations serves it to a running program.
#pragma once

#include <QDateTime>
#include <QHash>
#include <QSize>
#include <QThreadPool>
#include <map>
#include <memory>
#include <vector>

#include "band_pictures.h"
#include "http_host.h"

// One receiving station: image1 to image30 (the newest first), TX1.jpg to TX5.jpg, cam.jpg, cam.mjpg
// (the same as a stream without end), private/cam.jpg (for whoever gives a user name and a password), latest.jpg
// (the newest again, for weather sites), and the marker checknew.jpg. Pictures are painted beside the event loop when
// they are first asked for.
class Station : public Host {
 public:
  Station(const QString& call, const QHostAddress& address, quint16 port, QThreadPool& painters, QObject* parent);

  QString Call() const { return call_; }
  // Address of the newest picture: ".../image1".
  QString Url() const { return Base() + QStringLiteral("/image1"); }

  // Size of the marker in pixels; width 1 tells that the station is on the air. An empty size is an empty answer.
  void SetMarker(QSize size) { marker_ = size; }
  QSize Marker() const { return marker_; }
  void SetOnAir(bool onAir);

  // Sets the file of the newest picture, tail included, until the next NewPicture().
  void SetPicture(const QByteArray& file);
  // Sets what the station receives: in pictures that are painted from now on, everything that the recipe leaves open
  // follows from its seed and the picture's number. A recipe's sender, scene and time hold for the newest picture only.
  // Call it before the station is asked for anything.
  void SetRecipe(const PictureRecipe& recipe);
  // Another picture comes in, sent at that time (UTC) by that caller; without one, by whom the seed says. The others
  // move on by one and the marker's height changes.
  void NewPicture(const QDateTime& sent = QDateTime::currentDateTimeUtc(), const QString& caller = {});
  // Whether the newest picture was sent by that call.
  bool HasReceived(const QString& caller) const { return RecipeOf(newest_).caller == caller; }
  // Paints the newest picture before anyone asks for it; done is called on the event loop.
  void Prepare(const std::function<void()>& done);
  // A further file, by path without a leading "/".
  void SetFile(const QString& path, const QByteArray& file) { files_.insert(path, file); }

 protected:
  void Handle(const Request& request, const Deliver& deliver) override;

 private:
  // A painted picture, or whoever waits for it.
  struct Painted {
    QByteArray file;
    std::vector<std::function<void(const QByteArray&)>> waiting;
  };

  PictureRecipe RecipeOf(int number) const;
  // priority: of the painting, where it has yet to be done.
  void WithPicture(int number, int priority, const std::function<void(const QByteArray&)>& then);
  void TakePainted(int number, const QByteArray& file);

  QString call_;
  QThreadPool& painters_;
  QSize marker_;
  PictureRecipe recipe_;
  QHash<int, QDateTime> sentAt_;  // of pictures that came in while we run, by number
  QHash<int, QString> callers_;   // of those for which one was told
  QHash<QString, QByteArray> files_;
  std::map<int, Painted> painted_;  // by number: the newest is newest_, image2 is one below
  int newest_ = 0;
};

// A host of pages, each made when it is asked for.
class PageHost : public Host {
 public:
  using Host::Host;
  void SetPage(const QString& path, const std::function<QByteArray()>& make) { pages_.insert(path, make); }

 protected:
  void Handle(const Request& request, const Deliver& deliver) override;

 private:
  QHash<QString, std::function<QByteArray()>> pages_;
};

// The whole band.
class StationBand : public QObject {
 public:
  // Port 0: every host takes a free port of its own.
  explicit StationBand(quint16 port = 0, QObject* parent = nullptr);
  ~StationBand() override;

  // A station with small JPEG pictures, off the air. Addresses follow the order in which stations are added.
  Station& AddStation(const QString& call);
  Station* Find(const QString& call) const;
  const std::vector<Station*>& Stations() const { return stations_; }

  // The named hosts: "Connectivity" (root page), "Author" (root page with the version, list of bad calls), "Time",
  // the callbook services "eHam", "QRZ", "QRZCQ", "Callook" and "HamCall", "Pictures", and the on-air sources
  // "OnAirCgi" and "OnAirText", the latter with the file of propagation paths. In order of the alphabet.
  QStringList HostNames() const;
  Host* FindHost(const QString& name) const { return hosts_.value(name); }
  // Scheme and authority, as hosts.ini wants it; empty for a name that the band does not play.
  QString HostUrl(const QString& name) const;
  // The whole text of a hosts.ini in which every name that the band does not play is none.
  QByteArray HostsIni() const;

  int TotalRequests() const;
  // False where any host could not listen on its address.
  bool HasAddresses() const;

 private:
  QHostAddress NextAddress();
  PageHost* AddPageHost(const QString& name);
  void AddServices();
  QStringList Receivers() const;

  QThreadPool painters_;
  std::vector<Station*> stations_;
  QHash<QString, Host*> hosts_;
  quint16 port_;
  quint32 lastAddress_;
};
