// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop_places.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "platform/program_output.h"
#include "platform/text/ansi_text.h"

using namespace Qt::StringLiterals;

void FindDesktopFolder(QObject* context, const std::function<void(const QString&)>& then) {
  ReadProgramOutput(u"xdg-user-dir"_s, {u"DESKTOP"_s}, context, [then](const std::optional<QByteArray>& named) {
    const QString folder =
        named ? QFile::decodeName(*named) : QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    then(QFileInfo(folder).isAbsolute() && QFileInfo(folder).isDir() ? folder : QDir::homePath());
  });
}

// The blank and even "%" stay as they are, and the number is that of the character in Windows-1252: mail programs have
// got these links so from the beginning.
QByteArray UrlEscape(const QString& text) {
  QByteArray escaped;
  for (const char byte : AnsiBytes(text)) {
    if (byte >= ' ' && byte <= '~' && byte != '&') {
      escaped += byte;
    } else {
      escaped += '%' + QByteArray(1, byte).toHex().toUpper();
    }
  }
  return escaped;
}

QByteArray MailLink(const QString& to, const QString& cc, const QString& bcc, const QString& subject,
                    const QString& body) {
  QByteArray link = "mailto:" + UrlEscape(to);
  const auto start = link.size();
  const auto add = [&link](const char* name, const QString& value) {
    if (!value.isEmpty()) link += QByteArray("&") + name + '=' + UrlEscape(value);
  };
  add("CC", cc);
  add("BCC", bcc);
  add("Subject", subject);
  add("Body", body);
  if (link.size() > start) link[start] = '?';
  return link;
}

namespace {

// xdg-open would show in a browser what no program is set for, or nothing, and does not tell; so the desktop is asked
// first.
void OpenByType(const QUrl& url, const QString& type, QObject* context, const std::function<void(bool)>& opened) {
  ReadProgramOutput(u"xdg-mime"_s, {u"query"_s, u"default"_s, type}, context,
                    [url, opened](const std::optional<QByteArray>& handler) {
                      const bool none = handler && handler->isEmpty();
                      opened(!none && QDesktopServices::openUrl(url));
                    });
}

}  // namespace

void SendMail(const QString& to, const QString& cc, const QString& bcc, const QString& subject, const QString& body,
              QObject* context, const std::function<void(bool)>& opened) {
  const QByteArray link = MailLink(to, cc, bcc, subject, body);
  OpenByType(QUrl::fromEncoded(link), u"x-scheme-handler/mailto"_s, context, opened);
}

void OpenFilm(const QUrl& film, QObject* context, const std::function<void(bool)>& opened) {
  const QString ending = QFileInfo(film.path()).suffix();
  const QString type = ending == "avi"_L1   ? u"video/x-msvideo"_s
                       : ending == "mp4"_L1 ? u"video/mp4"_s
                                            : u"video/mpeg"_s;
  OpenByType(film, type, context, opened);
}
