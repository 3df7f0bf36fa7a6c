// SPDX-License-Identifier: GPL-3.0-or-later
// Informs every window that the language has changed. Form1 calls it once the language file has been read and the
// translations have been swapped.
#pragma once

// Sends one QEvent::LanguageChange to each window and each widget before it returns.
void SendLanguageChange();
