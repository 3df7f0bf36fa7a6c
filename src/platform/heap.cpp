// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/heap.h"

#include <malloc.h>

void ReturnFreedMemory() {
  // By itself glibc gives each thread a heap of its own and, once a picture of 14 MB has been freed, keeps the memory
  // of the next ones up to that size: a program that is open all day would hold its largest frame and body several
  // times.
  constexpr int kLargeBlock = 256 << 10;
  mallopt(M_MMAP_THRESHOLD, kLargeBlock);
  mallopt(M_TRIM_THRESHOLD, kLargeBlock);
  mallopt(M_ARENA_MAX, 2);
}

void GiveBackFreeMemory() {
  malloc_trim(0);
}
