// SPDX-License-Identifier: GPL-3.0-or-later
// Where the pictures of operators lie. The lookup stores them, hover tips show them.
#pragma once

#include <QByteArray>
#include <QString>

// Path of a call's picture. The name has the call's letters and digits, at most 20; empty if the call has none.
QString OperatorPicturePath(const QString& appDataDir, const QString& call);
// Stores a picture there, whole or not at all; false if it could not be written. Any thread may call it.
bool WriteOperatorPicture(const QString& path, const QByteArray& bytes);
