// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/address_probe.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
const QString& Key() {
  static const QString key = u"probe"_s;
  return key;
}
}  // namespace

AddressProbe::AddressProbe(const PageState& page, UrlNetwork& network, PictureTool& tool, QObject* parent)
    : QObject(parent), page_(page), reader_(network), tool_(tool) {
  connect(&reader_, &UrlReader::Done, this, [this](const QString&, const QByteArray& body) { Measure(body); });
  connect(&reader_, &UrlReader::Failed, this, [this]() { Set(Finding::NoAnswer); });
}

void AddressProbe::Look(const QString& url) {
  if (url == url_ && finding_ != Finding::Nothing) return;
  End();
  url_ = url;
  if (url.isEmpty() || !page_.Online) return;
  const QUrl address(url);
  const bool isWeb = address.scheme() == "http"_L1 || address.scheme() == "https"_L1;
  if (!isWeb || address.host().isEmpty()) return Set(Finding::NoWebAddress);
  ReadOptions options;
  options.deadline = 15s;
  options.maxBody = 16LL * 1024 * 1024;
  // A cam may send pictures without end.
  options.firstPart = true;
  Set(Finding::Looking);
  reader_.StartWith(Key(), address, options);
}

void AddressProbe::End() {
  reader_.Cancel(Key());
  wanted_.Withdraw();
  url_.clear();
  Set(Finding::Nothing);
}

void AddressProbe::Measure(const QByteArray& body) {
  const Wanted::Token token = wanted_.Ask();
  PictureOptions options;
  options.host = QUrl(url_).host();
  options.wanted = [token]() { return token.StillWanted(); };
  tool_.Measure(
      body, this,
      [this, token](const PictureAnswer& answer) {
        if (!token.StillWanted()) return;
        size_ = answer.size;
        Set(answer.ok ? Finding::Picture : Finding::NoPicture);
      },
      options);
}

void AddressProbe::Set(Finding finding) {
  if (finding_ == finding) return;
  finding_ = finding;
  Q_EMIT Changed();
}
