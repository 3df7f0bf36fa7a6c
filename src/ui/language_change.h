// SPDX-License-Identifier: GPL-3.0-or-later
// Tells every window that the language has changed. Form1 calls it once the language file has been read and the
// translations have been swapped.
#pragma once

// Each window and each widget gets one QEvent::LanguageChange, before the call returns.
void SendLanguageChange();
