// SPDX-License-Identifier: GPL-3.0-or-later
// How the C library keeps freed memory. main sets it once, before any other thread runs.
#pragma once

// Makes large blocks go back to the system as soon as they are freed. Errors are ignored: memory is then kept longer.
void ReturnFreedMemory();
