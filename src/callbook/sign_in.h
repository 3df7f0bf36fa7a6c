// SPDX-License-Identifier: GPL-3.0-or-later
// Signing in to a callbook service and out again, as a value. The lookup session makes the offer, the chooser of the
// service shows it.
#pragma once

#include <QString>

// Whether the user can sign in to or out of the chosen service.
struct SignInOffer {
  enum class Kind { None, SignIn, SignOut };
  Kind kind = Kind::None;
  QString text;  // never empty
};
