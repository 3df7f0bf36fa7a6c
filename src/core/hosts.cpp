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

// Public services are built in. What persons run is empty until the user writes it into hosts.ini. The connectivity
// test asks a public site that will last.
constexpr std::array<HostRow, 12> kHosts = {{
    {"Connectivity"_L1, &Hosts::Connectivity, "https://www.wikipedia.org"_L1},
    {"Author"_L1, &Hosts::Author, {}},
    {"Time"_L1, &Hosts::Time, {}},
    {"OnAirCgi"_L1, &Hosts::OnAirCgi, {}},
    {"OnAirText"_L1, &Hosts::OnAirText, {}},
    {"eHam"_L1, &Hosts::eHam, "http://www.eham.net"_L1},
    {"QRZ"_L1, &Hosts::QRZ, "https://www.qrz.com"_L1},
    {"QRZCQ"_L1, &Hosts::QRZCQ, "http://www.qrzcq.com"_L1},
    {"Callook"_L1, &Hosts::Callook, "http://callook.info"_L1},
    {"HamCall"_L1, &Hosts::HamCall, "http://hamcall.net"_L1},
    {"Pictures"_L1, &Hosts::Pictures, "https://files.qrz.com"_L1},
    {"Maps"_L1, &Hosts::Maps, "https://www.google.com"_L1},
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
