// SPDX-License-Identifier: GPL-3.0-or-later
// Who sends the demo's pictures, and a few more: made-up operators. The simulated callbook services and the picture
// store know them all, the demo's call database knows most.
#pragma once

#include <QString>
#include <vector>

// Whether the demo's call database lists an operator.
enum class Filed {
  Whole,
  WithoutPlace,  // coordinates 0, so that a look-up goes to the service
  Not
};

// What the picture store has for an operator.
enum class Portrait {
  Painted,
  None,
  NoPicture  // a file of the right name that is no picture
};

// One operator, as a callbook would list him.
struct Operator {
  QStringView call;
  QStringView name;  // no comma: the services end the name with one
  QStringView street;
  QStringView town;
  QStringView country;
  double lat = 0;  // degrees; 0: nobody knows the place
  double lon = 0;
  QStringView licence{};  // empty: not told
  int born = 0;           // year; 0: not told
  Filed filed = Filed::Whole;
  Portrait portrait = Portrait::Painted;
};

const std::vector<Operator>& Operators();
// Without regard to case; nullptr for a call that nobody has.
const Operator* FindOperator(const QString& call);
// True for the operator whose full record QRZ shows to subscribers only, signed in or not.
bool IsForSubscribers(const Operator& person);
