// SPDX-License-Identifier: GPL-3.0-or-later
// Asks a small program of the desktop (xdg-user-dir, xdg-mime) for a line. Started by name with a list of arguments,
// never through a shell; one that does not answer is ended.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <functional>
#include <optional>

// Gives what the program has written, without blanks at its ends; nothing where there is no such program, or it took
// longer than three seconds. then is called later, once, unless context is gone by then.
void ReadProgramOutput(const QString& program, const QStringList& arguments, QObject* context,
                       const std::function<void(const std::optional<QByteArray>&)>& then);
