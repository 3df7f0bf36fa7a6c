// SPDX-License-Identifier: GPL-3.0-or-later
// ucPollCam, the hidden control that reads one picture of each cam to find out whether the cam answers. CamRound asks
// it for the cams of a round.
#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QSet>
#include <QSize>
#include <QString>
#include <QTimer>
#include <map>

#include "platform/net/url_reader.h"
#include "platform/picture/picture_tool.h"
#include "platform/wanted.h"

// Limits of the read of one cam. Tests take shorter ones.
struct CamLimits {
  std::chrono::milliseconds opening = std::chrono::seconds(5);    // until there is a connection
  std::chrono::milliseconds deadline = std::chrono::seconds(20);  // in all
  std::chrono::milliseconds silence = std::chrono::seconds(1);    // after which a cam lets those go first that wait
  qint64 maxBody = 8LL * 1024 * 1024;
};

// Reads of cams, by key. Twelve run at once, behind the reads of the page; cams that failed last time come last.
class ucPollCam : public QObject {
  Q_OBJECT

 public:
  ucPollCam(UrlNetwork& network, PictureTool& tool, const CamLimits& limits = {}, QObject* parent = nullptr);

  // Reads a cam's picture past any cache; a read that is in flight under the same key is cancelled first. One of the
  // signals answers later.
  void DownloadCamPic(const QString& url, const QString& key);
  // Cancels all reads; none of them answers.
  void CancelAll();
  bool IsBusy() const { return !inFlight_.empty(); }
  // Size of the picture that was received last. Its pixels stay in the decoder's process: only that it decodes counts.
  QSize Picture() const { return picture_; }

 Q_SIGNALS:
  void GotCamPic(const QString& key);
  // The read failed or could not be started, or what came is no picture.
  void NoCamPic(const QString& key);
  // The last read in flight has answered.
  void Finished();

 private:
  // One read, from the call to its answer.
  struct Read {
    QString url;
    enum class At { Waiting, Handed, Decoding } at = At::Waiting;
    bool isPatient = false;  // others do not go first any more
    bool isHeard = false;
    QElapsedTimer running;  // invalid until the read has begun
    qint64 bytes = 0;       // that are being decoded
    Wanted wanted;
  };

  void Enqueue(const QString& key, bool isLate);
  void HandOut();
  QString TakeNext();
  void PutSilentLast();
  void Forget(const QString& key);
  void OnBody(const QString& key, const QByteArray& body);
  void OnFailed(const QString& key);
  void End(const QString& key, bool isGood);

  const CamLimits limits_;
  UrlReader reader_;
  PictureTool& tool_;
  std::map<QString, Read> inFlight_;  // by key
  QList<QString> waiting_;            // keys that have not been handed to the network
  QList<QString> late_;               // the same, of cams that failed last time, or kept silent in this round
  QSet<QString> failed_;              // addresses that failed last time
  QTimer start_;                      // hands out once the caller has asked for all cams of its round
  QTimer silence_;                    // looks for silent cams
  int handed_ = 0;
  qint64 decoding_ = 0;  // bytes
  QSize picture_;
};
