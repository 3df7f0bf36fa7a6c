// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of the simulated callbook services, each in its service's manner: the words and line ends are what a reader
// of such pages goes by. CallbookHost asks for them.
#pragma once

#include <QByteArray>
#include <QString>

#include "operators.h"

// The five services.
enum class Callbook { eHam, QRZ, QRZCQ, Callook, HamCall };

// The page of a call, as bytes of Windows-1252. person: nullptr for a call that nobody has. A service that has nothing
// on the person gives the same page as for nobody.
QByteArray CallPage(Callbook service, const QString& call, const Operator* person, bool signedIn);
// The front page of a service, which says whether somebody is signed in.
QByteArray FrontPage(Callbook service, bool signedIn);
// The form of a sign-in; failed: after a wrong password.
QByteArray LoginPage(Callbook service, bool failed);

QString CallbookName(Callbook service);
