// SPDX-License-Identifier: GPL-3.0-or-later
// Takes from the player what no film needs: the network, writing to files, the user's own files, other programs. It
// keeps its window and the devices of sound and graphics. Called by the player's main, in this order.
#pragma once

// First of all, while there is one thread: from now on nothing is written outside of the caches that the libraries use
// to start faster, by any thread.
void ForbidWriting();
// When the window is there and before the film's first byte is read: no file of the user is opened any more, no
// connection to the net and no other program is made, memory has an end. False where the kernel cannot do that; the
// film must not be played then.
bool EnterFilmSandbox();
