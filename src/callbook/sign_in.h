// SPDX-License-Identifier: GPL-3.0-or-later
// Signing in to a callbook service and out again, as a value. The lookup session makes the offer, the chooser of the
// service shows it.
#pragma once

#include <QString>

// What can be done about the login at the chosen service.
struct SignInOffer {
  enum class Kind { None, SignIn, SignOut };
  Kind kind = Kind::None;
  QString text;  // "Sign in to QRZ"; there for None too
};
