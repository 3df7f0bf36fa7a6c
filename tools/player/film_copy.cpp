// SPDX-License-Identifier: GPL-3.0-or-later
#include "film_copy.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr off_t kMostBytes = 256 << 20;  // what is stored of a body is less
constexpr std::size_t kHeadBytes = 300;

bool CopyAll(int from, int to) {
  struct stat status = {};
  if (fstat(from, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > kMostBytes) return false;
  for (off_t left = status.st_size; left > 0;) {
    const ssize_t copied = sendfile(to, from, nullptr, static_cast<std::size_t>(left));
    if (copied < 0) return false;
    if (copied == 0) break;  // the file has become shorter
    left -= copied;
  }
  return fcntl(to, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE | F_SEAL_SEAL) == 0;
}

}  // namespace

FilmCopy CopyFilm(const QString& file) {
  FilmCopy film;
  // Without O_NONBLOCK a pipe of that name would hold the player up.
  const int from = open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (from < 0) return film;
  const int memory = memfd_create("film", MFD_CLOEXEC | MFD_ALLOW_SEALING);
  if (memory >= 0 && CopyAll(from, memory)) {
    film.path = u"/proc/self/fd/%1"_s.arg(memory);
    film.head.resize(kHeadBytes);
    film.head.resize(std::max<ssize_t>(0, pread(memory, film.head.data(), kHeadBytes, 0)));
  }
  close(from);
  return film;
}
