// SPDX-License-Identifier: GPL-3.0-or-later
#include "poll/download_control.h"

namespace {
constexpr qint64 kUnknownLength = 30000;  // bytes that fill the bar if the server announces no length
constexpr qint64 kBeyond = 5000;  // bytes by which the bar's end moves ahead of a body that is longer than announced
constexpr qsizetype kMeasuredBytes = 1024LL * 1024;  // of markers whose sizes are remembered: about 1,500 of them
}  // namespace

std::optional<int> PercentRead(qint64 max, qint64 read) {
  if (max <= 0) max = kUnknownLength;
  if (read > max) max = read + kBeyond;
  if (read >= max) return std::nullopt;
  return static_cast<int>(read * 100 / max);
}

UserControl1::UserControl1(UrlNetwork& network, QObject* parent, UrlPriority priority)
    : QObject(parent), reader_(network), priority_(priority) {
  connect(&reader_, &UrlReader::Done, this, &UserControl1::PictureReady);
  connect(&reader_, &UrlReader::Failed, this, &UserControl1::NoImage);
  connect(&reader_, &UrlReader::Progress, this, &UserControl1::Progress);
}

void UserControl1::DownloadFile(const QString& url, const QString& key) {
  reader_.Start(key, QUrl(url), priority_);
}

ucCkNew::ucCkNew(UrlNetwork& network, PictureTool& tool, QObject* parent)
    : QObject(parent), reader_(network), tool_(tool), measured_(kMeasuredBytes) {
  connect(&reader_, &UrlReader::Done, this, &ucCkNew::Measure);
  connect(&reader_, &UrlReader::Failed, this, &ucCkNew::NoImage);
}

void ucCkNew::DownloadFile(const QString& url, const QString& key) {
  Read& read = reads_[key];
  read.wanted.Ask();
  read.host = QUrl(url).host();
  reader_.Start(key, QUrl(url));
}

void ucCkNew::CancelAll() {
  reader_.CancelAll();
  for (auto& [key, read] : reads_) read.wanted.Withdraw();
}

void ucCkNew::Measure(const QString& key, const QByteArray& body) {
  if (const QSize* known = measured_.object(body)) {
    Q_EMIT PictureReady(key, *known);
    return;
  }
  const Read& read = reads_[key];
  const Wanted::Token token = read.wanted.Present();
  PictureOptions options;
  options.host = read.host;
  options.wanted = [token]() { return token.StillWanted(); };
  const auto measured = [this, key, token, body](const PictureAnswer& answer) {
    if (answer.ok) measured_.insert(body, new QSize(answer.size), body.size());
    if (!token.StillWanted()) return;
    if (answer.ok) {
      Q_EMIT PictureReady(key, answer.size);
    } else {
      Q_EMIT NoImage(key);
    }
  };
  tool_.Measure(body, this, measured, options);
}
