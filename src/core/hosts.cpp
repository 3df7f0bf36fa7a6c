// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/hosts.h"

#include <QUrl>
#include <array>

#include "platform/paths.h"
#include "platform/text/text_file.h"

using namespace Qt::StringLiterals;

namespace {

struct HostRow {
  QLatin1String key;
  QString Hosts::*host;
  QLatin1String builtIn;
};

// The built-in names are neutral; which servers are asked is set in hosts.ini.
constexpr std::array<HostRow, 12> kHosts = {{
    {"Connectivity"_L1, &Hosts::Connectivity, "https://www.example.org"_L1},
    {"Author"_L1, &Hosts::Author, "https://author.example.org"_L1},
    {"Time"_L1, &Hosts::Time, "https://time.example.org"_L1},
    {"OnAirCgi"_L1, &Hosts::OnAirCgi, "https://onair.example.org"_L1},
    {"OnAirText"_L1, &Hosts::OnAirText, "https://onair-text.example.org"_L1},
    {"eHam"_L1, &Hosts::eHam, "http://eham.example.net"_L1},
    {"QRZ"_L1, &Hosts::QRZ, "https://qrz.example.net"_L1},
    {"QRZCQ"_L1, &Hosts::QRZCQ, "http://qrzcq.example.net"_L1},
    {"Callook"_L1, &Hosts::Callook, "http://callook.example.net"_L1},
    {"HamCall"_L1, &Hosts::HamCall, "http://hamcall.example.net"_L1},
    {"Pictures"_L1, &Hosts::Pictures, "https://pictures.example.net"_L1},
    {"Maps"_L1, &Hosts::Maps, "https://maps.example.org"_L1},
}};

QString HostOf(QString value) {
  while (value.endsWith(u'/')) {
    value.chop(1);
  }
  const QUrl url(value, QUrl::StrictMode);
  const bool isWeb = url.scheme() == "http"_L1 || url.scheme() == "https"_L1;
  return isWeb && !url.host().isEmpty() ? value : QString();
}

}  // namespace

Hosts Hosts::Read(const QString& appDataDir) {
  Hosts hosts;
  for (const HostRow& row : kHosts) {
    hosts.*row.host = row.builtIn;
  }
  const QString text = ReadTextFile(ResolvePath(appDataDir, u"hosts.ini"_s)).value_or(QString());
  bool inHosts = false;
  for (const QString& rawLine : SplitLines(text)) {
    const QString line = rawLine.trimmed();
    if (line.startsWith(u'[')) {
      inHosts = line.compare("[Hosts]"_L1, Qt::CaseInsensitive) == 0;
    }
    const qsizetype sign = line.indexOf(u'=');
    if (!inHosts || sign < 0) {
      continue;
    }
    const QString key = line.left(sign).trimmed();
    for (const HostRow& row : kHosts) {
      if (key.compare(row.key, Qt::CaseInsensitive) == 0) {
        hosts.*row.host = HostOf(line.mid(sign + 1).trimmed());
      }
    }
  }
  return hosts;
}
