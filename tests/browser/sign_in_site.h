// SPDX-License-Identifier: GPL-3.0-or-later
// A site on loopback with a sign-in: its login page sends its form by itself, the answer sets a cookie, and its pages
// say who is signed in. Some of its pages try what a page is not to do.
#pragma once

#include <QHash>

#include "loopback_server.h"

class SignInSite : public LoopbackServer {
 public:
  using LoopbackServer::LoopbackServer;

  // By path: how often it was asked for, and with which cookies the last time.
  QHash<QByteArray, int> asked;
  QHash<QByteArray, QByteArray> cookies;
  // Pages beside those of the sign-in; their title is what the tests see of them.
  QHash<QByteArray, QByteArray> pages;
  // Head lines of paths that answer with a redirect.
  QHash<QByteArray, QByteArray> redirects;

 protected:
  void Serve(QTcpSocket* socket, const QByteArray& request) override {
    socket->write(Answer(request));
    socket->disconnectFromHost();
  }

 private:
  QByteArray Answer(const QByteArray& request) {
    const QByteArray path = PathOf(request);
    const QByteArray cookie = Field(request, "cookie");
    ++asked[path];
    cookies[path] = cookie;
    if (path == "/session" && request.endsWith("call=ZZ1AA&password=secret"))
      return "HTTP/1.1 303 Go on\r\nLocation: /home\r\nConnection: close\r\n"
             "Set-Cookie: session=abc; HttpOnly; Path=/\r\n"
             "Set-Cookie: remember=me; Max-Age=864000; Path=/home\r\n\r\n";
    if (redirects.contains(path)) return "HTTP/1.1 302 Go on\r\nConnection: close\r\n" + redirects.value(path) + "\r\n";
    QByteArray page = pages.value(path);
    if (path == "/login")
      page =
          "<title>login</title><form action=/session method=post><input name=call value=ZZ1AA>"
          "<input name=password type=password value=secret></form><script>document.forms[0].submit()</script>";
    if (path == "/home") page = cookie.contains("session=abc") ? "<title>Hello ZZ1AA</title>" : "<title>Who?</title>";
    return "HTTP/1.1 " + QByteArray(page.isEmpty() ? "404 None" : "200 OK") +
           "\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n" + page;
  }
};
