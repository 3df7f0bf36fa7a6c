// SPDX-License-Identifier: GPL-3.0-or-later
// Signing in to a callbook service and out again: what is offered, and its words in the eight languages. The lookup
// session asks for them, the lookup window shows them.
#pragma once

#include <QString>

// What can be done about the login at the chosen service.
struct SignInOffer {
  enum class Kind { None, SignIn, SignOut };
  Kind kind = Kind::None;
  QString text;  // "Sign in to QRZ"; there for None too
};

// languageName as in Config; a name that is not known speaks English.
QString SignInText(const QString& languageName, const QString& service);
QString SignOutText(const QString& languageName, const QString& service);
// Message where the windows for web pages cannot be loaded.
QString NoBrowserText(const QString& languageName);
// What the small window with the operator's picture is called.
QString PictureText(const QString& languageName, const QString& call);
// What the line with the distance is, for screen readers.
QString DistanceLabelText(const QString& languageName);
