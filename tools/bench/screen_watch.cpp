// SPDX-License-Identifier: GPL-3.0-or-later
// Measures a program from outside, whatever it is made of: starts it, watches the memory-mapped screen of an Xvfb
// (-fbdir), and tells how long after the start the last photograph stood there, and what memory it had taken by then.
//
//   omni-perch-screen-watch SCREEN TOP QUIET_MS COLOURS SHOT PROGRAM [ARGUMENT...]
//
// SCREEN: the mapped file; TOP: rows that do not count (a blinking cursor, a clock); QUIET_MS: how long nothing may
// change until the screen counts as finished; COLOURS: how many it must show by then, for an empty window may stand
// still as well; SHOT: a PPM of what stood there. Prints one line
// "ms=... all_ms=... rss_kib=... pss_kib=... colours=...": the last change of a spot where the finished screen shows a
// photograph, the last change of any, VmRSS of the program, PSS of it with its children, and how many colours the
// screen showed, by which the caller tells a full page from an empty window.

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using Ticks = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::size_t kRowStep = 4;  // only every fourth row is compared: that takes well under a millisecond
constexpr milliseconds kCompareEvery{2};
constexpr milliseconds kPatience{60000};

// The mapped screen. Of the header of its X window dump only these fields are needed; they are big-endian words.
class Screen {
 public:
  explicit Screen(const char* path) {
    const int file = open(path, O_RDONLY);
    struct stat info = {};
    if (file < 0 || fstat(file, &info) != 0) return;
    length_ = static_cast<std::size_t>(info.st_size);
    void* mapped = mmap(nullptr, length_, PROT_READ, MAP_SHARED, file, 0);
    close(file);
    if (mapped != MAP_FAILED) bytes_ = static_cast<const std::uint8_t*>(mapped);
  }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  ~Screen() {
    if (bytes_) munmap(const_cast<std::uint8_t*>(bytes_), length_);
  }

  bool Valid() const { return bytes_ && Stride() >= Width() * 4 && PixelStart() + Stride() * Height() <= length_; }
  std::size_t Width() const { return Word(4); }
  std::size_t Height() const { return Word(5); }
  const std::uint8_t* Row(std::size_t y) const { return bytes_ + PixelStart() + y * Stride(); }

 private:
  std::size_t Word(std::size_t index) const {
    const std::uint8_t* at = bytes_ + index * 4;
    return static_cast<std::size_t>(at[0]) << 24U | static_cast<std::size_t>(at[1]) << 16U |
           static_cast<std::size_t>(at[2]) << 8U | at[3];
  }
  std::size_t Stride() const { return Word(12); }
  std::size_t PixelStart() const { return Word(0) + Word(19) * 12; }

  const std::uint8_t* bytes_ = nullptr;
  std::size_t length_ = 0;
};

// Keeps a copy of the screen as it was last seen, and when each spot of it changed last. A spot is eight by eight
// pixels.
class Watch {
 public:
  Watch(const Screen& screen, std::size_t top) : screen_(screen), top_(top) {
    last_.resize(RowBytes() * screen_.Height());
    changedAt_.resize(SpotsInRow() * (screen_.Height() / kSpot + 1));
    Compare(Ticks::time_point());
  }

  // Compares the screen with the copy. True where anything differs.
  bool Compare(Ticks::time_point now) {
    bool changed = false;
    for (std::size_t y = top_; y < screen_.Height(); y += kRowStep) {
      std::uint8_t* kept = last_.data() + y * RowBytes();
      const std::uint8_t* seen = screen_.Row(y);
      if (std::memcmp(kept, seen, RowBytes()) == 0) continue;
      changed = true;
      for (std::size_t spot = 0; spot < SpotsInRow(); ++spot) {
        const std::size_t at = spot * kSpot * 4;
        if (std::memcmp(kept + at, seen + at, kSpot * 4) != 0) changedAt_[SpotIndex(spot, y)] = now;
      }
      std::memcpy(kept, seen, RowBytes());
    }
    return changed;
  }

  // When the last spot of a photograph became as it is now: texts and borders have few colours, photographs many.
  Ticks::time_point LastOfPhotographs() const {
    Ticks::time_point last;
    for (std::size_t y = top_ / kSpot * kSpot + kSpot; y + kSpot <= screen_.Height(); y += kSpot) {
      for (std::size_t spot = 0; spot < SpotsInRow(); ++spot) {
        if (IsPhotograph(spot * kSpot, y)) last = std::max(last, changedAt_[SpotIndex(spot, y)]);
      }
    }
    return last;
  }

  // Counts the colours on the screen, with a mark for each of 16 million.
  std::size_t Colours() const {
    std::vector<bool> seen(std::size_t{1} << 24U);
    std::size_t count = 0;
    for (std::size_t y = top_; y < screen_.Height(); y += kRowStep) {
      for (std::size_t x = 0; x < screen_.Width(); ++x) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, screen_.Row(y) + x * 4, 4);
        pixel &= 0xFFFFFFU;
        if (!seen[pixel]) ++count;
        seen[pixel] = true;
      }
    }
    return count;
  }

  void Save(const char* path) const {
    std::ofstream shot(path, std::ios::binary);
    shot << "P6\n" << screen_.Width() << ' ' << screen_.Height() << "\n255\n";
    for (std::size_t y = 0; y < screen_.Height(); ++y) {
      for (std::size_t x = 0; x < screen_.Width(); ++x) {
        const std::uint8_t* pixel = screen_.Row(y) + x * 4;  // blue, green, red, unused
        shot.put(static_cast<char>(pixel[2])).put(static_cast<char>(pixel[1])).put(static_cast<char>(pixel[0]));
      }
    }
  }

 private:
  static constexpr std::size_t kSpot = 8;
  static constexpr std::size_t kManyColours = 40;  // of the 64 pixels of a spot

  std::size_t RowBytes() const { return screen_.Width() * 4; }
  std::size_t SpotsInRow() const { return screen_.Width() / kSpot; }
  std::size_t SpotIndex(std::size_t spot, std::size_t y) const { return y / kSpot * SpotsInRow() + spot; }
  bool IsPhotograph(std::size_t left, std::size_t top) const {
    std::set<std::uint32_t> colours;
    for (std::size_t y = top; y < top + kSpot; ++y) {
      for (std::size_t x = left; x < left + kSpot; ++x) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, screen_.Row(y) + x * 4, 4);
        colours.insert(pixel & 0xFFFFFFU);
      }
    }
    return colours.size() >= kManyColours;
  }

  const Screen& screen_;
  std::size_t top_;
  std::vector<std::uint8_t> last_;
  std::vector<Ticks::time_point> changedAt_;
};

// Value in KiB of a "Name:   123 kB" line; 0 where there is none.
long KibOf(const std::string& path, const std::string& name) {
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.rfind(name + ":", 0) == 0) return std::strtol(line.c_str() + name.size() + 1, nullptr, 10);
  }
  return 0;
}

// PSS of a process and of everything that it has started.
long PssOfTree(const std::string& pid) {
  const std::string folder = "/proc/" + pid;
  long sum = KibOf(folder + "/smaps_rollup", "Pss");
  std::error_code error;
  for (const auto& task : std::filesystem::directory_iterator(folder + "/task", error)) {
    std::ifstream children(task.path() / "children");
    for (std::string child; children >> child;) sum += PssOfTree(child);
  }
  return sum;
}

double MillisecondsSince(Ticks::time_point start, Ticks::time_point end) {
  return std::chrono::duration<double, std::milli>(end - start).count();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 7) {
    std::fprintf(stderr, "usage: %s SCREEN TOP QUIET_MS COLOURS SHOT PROGRAM [ARGUMENT...]\n", argv[0]);
    return 2;
  }
  const Screen screen(argv[1]);
  if (!screen.Valid()) {
    std::fprintf(stderr, "%s is no mapped screen of 32 bits a pixel\n", argv[1]);
    return 2;
  }
  Watch watch(screen, std::strtoul(argv[2], nullptr, 10));
  const milliseconds quiet(std::strtol(argv[3], nullptr, 10));
  const std::size_t colours = std::strtoul(argv[4], nullptr, 10);

  const Ticks::time_point start = Ticks::now();
  const pid_t child = fork();
  if (child < 0) return 1;
  if (child == 0) {
    execvp(argv[6], argv + 6);
    _exit(127);
  }
  Ticks::time_point lastChange = start;
  bool open = true;  // something has changed since the screen was last found unfinished
  bool full = false;
  int status = 0;
  bool ended = false;
  while (!ended && !full) {
    std::this_thread::sleep_for(kCompareEvery);
    const Ticks::time_point now = Ticks::now();
    if (watch.Compare(now)) {
      lastChange = now;
      open = true;
    } else if (open && now - lastChange > quiet) {
      full = watch.Colours() >= colours;
      open = false;
    }
    if (now - start > kPatience) break;
    ended = waitpid(child, &status, WNOHANG) == child;
  }
  if (!full) {
    std::fprintf(stderr, "%s ended or never filled the screen\n", argv[6]);
    if (!ended) kill(child, SIGKILL);
    return 1;
  }
  const std::string pid = std::to_string(child);
  std::printf("ms=%.1f all_ms=%.1f rss_kib=%ld pss_kib=%ld colours=%zu\n",
              MillisecondsSince(start, watch.LastOfPhotographs()), MillisecondsSince(start, lastChange),
              KibOf("/proc/" + pid + "/status", "VmRSS"), PssOfTree(pid), watch.Colours());
  watch.Save(argv[5]);
  kill(child, SIGTERM);
  waitpid(child, &status, 0);
  return 0;
}
