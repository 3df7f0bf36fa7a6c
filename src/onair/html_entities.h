// SPDX-License-Identifier: GPL-3.0-or-later
// What HTMLDecode has to do where a reply is no page: a list of lines with entities in it. Rendering such a reply would
// run its lines into one. The feed asks which of the two a reply is; a page goes through the text process.
#pragma once

#include <QString>

// Whether a tag, a comment or a declaration begins anywhere in the text.
bool HasTags(const QString& text);
// Numbers and the names of Windows-1252's characters, each with its ";"; all else stays as it stands. Linear.
QString WithEntitiesDecoded(const QString& text);
