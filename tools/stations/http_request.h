// SPDX-License-Identifier: GPL-3.0-or-later
// A caller's request to a host of the simulated band: its parts, and the reading of its head, its cookies and its form.
// The connection reads it, the host answers it.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <optional>

inline constexpr qsizetype kMostForm = 65536;  // bytes of a body

// One request.
struct Request {
  QByteArray method;                        // "GET", "HEAD" or "POST"
  QByteArray target;                        // path and query as they came
  QString path;                             // without the leading "/" and the query, percent signs decoded
  QByteArray query;                         // as it came, without the "?"
  QHash<QByteArray, QByteArray> headers{};  // by name in lower case; several of one name stand in one
  QByteArray body{};

  // By name; empty where the caller sent none.
  QByteArray Cookie(const QByteArray& name) const;
  // A value of the query, and of the form that is the body; the names are case-sensitive.
  QString QueryValue(const QByteArray& name) const;
  QString FormValue(const QByteArray& name) const;
};

// A request whose body may still be missing.
struct RequestHead {
  Request request;
  bool keepAlive = true;
  int refusal = 0;         // status that the request is to be refused with; 0: none
  qsizetype bodySize = 0;  // bytes that follow the head
};

// Reads a head. head: without the empty line at its end.
RequestHead ReadHead(const QByteArray& head);
