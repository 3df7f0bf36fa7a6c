// SPDX-License-Identifier: GPL-3.0-or-later
#include "author_pages.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray kSectionEnd = "/////5\r\n";

AuthorSite Listed(const DemoSite& site) {
  return {site.call, site.url, QString::number(site.lat), QString::number(site.lon), site.camUrl};
}

}  // namespace

QByteArray UpdatesFile(const AuthorList& list) {
  QStringList stations{u"Positions"_s};
  for (const AuthorSite& s : list.stations) stations << s.call + u'*' + s.lat + u'*' + s.lon;
  QStringList sites;
  for (const AuthorSite& s : list.sites) {
    QString first = s.call + u'*' + s.lat + u'*' + s.lon;
    if (!s.camUrl.isEmpty()) first += u'*' + s.camUrl;
    sites << first << s.url;
  }
  const QByteArray text = "*" + QByteArray::number(list.date.month()) + '/' + QByteArray::number(list.date.day()) +
                          '/' + QByteArray::number(list.date.year()) + "\r\n" + kSectionEnd + "Notes\r\n" +
                          kSectionEnd + stations.join("\r\n"_L1).toUtf8() + "\r\n" + kSectionEnd + "Notes\r\n" +
                          kSectionEnd + (QStringList{u"Calls"_s} + list.calls).join("\r\n"_L1).toUtf8() + "\r\n" +
                          kSectionEnd + "Notes\r\n" + kSectionEnd + sites.join("\r\n"_L1).toUtf8() + "\r\n";
  // The digits of the size count themselves.
  qsizetype size = text.size();
  while (size != text.size() + QByteArray::number(size).size()) size = text.size() + QByteArray::number(size).size();
  return QByteArray::number(size) + text;
}

AuthorList ChangedDemo(const Demo& demo, QDate date) {
  AuthorList list{date};
  for (std::size_t i = 0; i < demo.sites.size(); ++i) {
    const DemoSite& site = demo.sites.at(i);
    AuthorSite listed = Listed(site);
    if (i == 4) continue;
    if (i == 10) {
      list.calls << site.call + u'*' + site.call + u'X';
      listed.call += u'X';
    }
    if (i == 12) listed.url.replace(u"/image1"_s, u"/pictures/image1"_s);
    if (i == 14) listed.lat = QString::number(site.lat + 0.5);
    if (i == 2) listed.camUrl.clear();
    if (i == 3) listed.camUrl = site.url + u".cam"_s;
    list.sites.push_back(listed);
  }
  const DemoSite& first = demo.sites.front();
  for (const auto& call : {u"ZZ9NEW"_s, u"ZZ9TWO"_s}) {
    AuthorSite added = Listed(first);
    added.call = call;
    list.sites.push_back(added);
  }
  list.stations.push_back({first.call, {}, QString::number(first.lat + 1), QString::number(first.lon)});
  return list;
}

QByteArray VersionPage(const QString& version) {
  return "<html><body><h2>Download</h2><p>Omni-Perch ver " + version.toUtf8() +
         ", released 1/24/24</p></body></html>\n";
}

QByteArray BadCallsList() {
  return "BBZW\r\nBKZKY\r\nBITEME\r\nB1TEME\r\nCallsign\r\nDEN4CTFK\r\nFAWA\r\nFCR16\r\nFCR16B\r\nFFQKY\r\nIGNORED\r\n"
         "KX4QRT\r\nLBZW\r\nMARS\r\nN0CALL\r\nNOCALL\r\nXMOP";
}
