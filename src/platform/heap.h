// SPDX-License-Identifier: GPL-3.0-or-later
// How the C library keeps freed memory. main sets it once, before any other thread runs; the network and Windows ask
// for small blocks to be given back too, when there were many.
#pragma once

// Makes large blocks go back to the system as soon as they are freed. Errors are ignored: memory is then kept longer.
void ReturnFreedMemory();
// Gives back what is free among small blocks, as the rows of a long list leave it. Takes some milliseconds where much
// is free: to be called beside the event loop.
void GiveBackFreeMemory();
