// SPDX-License-Identifier: GPL-3.0-or-later
// What this system lacks for a film. Asked before a player is made, because the player's backend crashes where the
// basic plugins are missing. The system's own plugins are listed here, which may start a process and write a cache: it
// is done before the sandbox is entered.
#pragma once

#include <QString>
#include <QStringList>

// Names of the packages that are missing for a film with this ending (see FilmSignature), in the distribution's words.
// Empty: a player can be made, although a codec may turn out to be missing.
QStringList MissingPackages(const QString& ending);
// True if the decoders for most films of amateurs' cameras are there.
bool HasCommonDecoders();
