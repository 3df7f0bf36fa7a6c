// SPDX-License-Identifier: GPL-3.0-or-later
// Takes from the player what no film needs: the network, writing to files, the user's own files, other programs. It
// keeps its window and the devices of sound and graphics. Called by the player's main, in this order.
//
// What it does not hold off: the sockets of the user's own session stay open, because window and sound need them. So a
// film that has taken over the player can still reach the session bus and the X server, and over these other programs
// of the user. It makes an attack longer; it is not the sandbox of the decoder, which has no socket at all.
#pragma once

// First of all, while there is one thread: from now on nothing is written outside of the caches that the libraries use
// to start faster, by any thread.
void ForbidWriting();
// When the window is there and before the film's first byte is read: this thread and those that it starts
// from now on, which are the ones that decode, open no file of the user any more. No connection to the net and no other
// program is made, by any thread, and memory has an end. Threads that were there before (of the window system, of the
// bus) can still read files, and share their memory with the decoders. False where the kernel cannot do that; the
// film must not be played then.
bool EnterFilmSandbox();
