// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_tree.h"

#include <time.h>

#include <algorithm>
#include <csetjmp>
#include <cstddef>
#include <cstdlib>
#include <utility>
#include <vector>

namespace {

// Enough for a page of 20 kB.
constexpr size_t kFirstChunk = size_t{512} * 1024;
constexpr size_t kLaterChunk = size_t{1024} * 1024;
constexpr size_t kAlignment = alignof(std::max_align_t);
// A page of nothing but the shortest tags takes about 50 bytes a byte.
constexpr size_t kBytesOfAByte = 64;
constexpr size_t kBytesAtLeast = size_t{16} * 1024 * 1024;
constexpr double kMostSeconds = 3;
constexpr unsigned kCallsOfAClock = 1024;

// The processor time of this thread: a busy machine must not change what a page reads like.
double SecondsOfThread() {
  timespec now = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// The memory of the last page of this thread, for the next one: fresh memory costs a page fault every 4 kB.
class SpareMemory {
 public:
  ~SpareMemory() { std::free(chunk_); }

  void* Take() {
    if (chunk_ == nullptr) return std::malloc(kFirstChunk);
    return std::exchange(chunk_, nullptr);
  }

  void Keep(void* chunk) {
    if (chunk_ == nullptr) {
      chunk_ = chunk;
    } else {
      std::free(chunk);
    }
  }

 private:
  void* chunk_ = nullptr;
};

thread_local SpareMemory spareMemory;

}  // namespace

// All memory of one parse, given back at once: the library frees a tree by recursion, which a deep one does not
// survive.
struct HtmlTree::Memory {
  explicit Memory(size_t mostBytes) : most(mostBytes), first(spareMemory.Take()) {
    next = static_cast<std::byte*>(first);
    if (first != nullptr) left = kFirstChunk;
  }
  ~Memory() {
    for (void* chunk : chunks) std::free(chunk);
    spareMemory.Keep(first);
  }
  Q_DISABLE_COPY_MOVE(Memory)

  // The library knows no failure of an allocation: the way out is over its head. It is plain C and keeps nothing open.
  static void* Allocate(void* self, size_t size) {
    auto* memory = static_cast<Memory*>(self);
    void* piece = memory->Take((size + kAlignment - 1) / kAlignment * kAlignment);
    if (piece == nullptr) std::longjmp(memory->wayOut, 1);  // NOLINT
    return piece;
  }
  // What was taken last can be taken again; everything else waits for the end.
  static void Release(void* self, void* piece) {
    auto* memory = static_cast<Memory*>(self);
    if (piece == nullptr || piece != memory->last) return;
    memory->left += static_cast<size_t>(memory->next - memory->last);
    memory->next = memory->last;
    memory->last = nullptr;
  }

  void* Take(size_t size) {
    if (++calls % kCallsOfAClock == 0 && IsTooLate()) return nullptr;
    if (size > left && !AddChunk(size)) return nullptr;
    void* piece = next;
    last = next;
    next += size;
    left -= size;
    return piece;
  }

  bool AddChunk(size_t size) {
    const size_t chunk = std::max(size, kLaterChunk);
    if (taken + chunk > most) return false;
    void* fresh = std::malloc(chunk);
    if (fresh == nullptr) return false;
    chunks.push_back(fresh);
    taken += chunk;
    next = static_cast<std::byte*>(fresh);
    left = chunk;
    return true;
  }

  bool IsTooLate() {
    const double now = SecondsOfThread();
    if (started == 0) started = now;
    return now - started > kMostSeconds;
  }

  GumboOutput* Parse(const std::string& source) {
    GumboOptions options = kGumboDefaultOptions;
    options.allocator = Allocate;
    options.deallocator = Release;
    options.userdata = this;
    options.max_errors = 0;
    if (setjmp(wayOut) != 0) return nullptr;  // NOLINT
    return gumbo_parse_with_options(&options, source.data(), source.size());
  }

  size_t most;
  void* first;
  std::vector<void*> chunks;
  std::byte* next = nullptr;
  std::byte* last = nullptr;
  size_t left = 0;
  size_t taken = 0;
  unsigned calls = 0;
  double started = 0;
  std::jmp_buf wayOut = {};
};

HtmlTree::HtmlTree(const QByteArray& html) : html_(html) {
  Parse(ParserSource(html_));
  if (body_ == nullptr) Parse(FlatSource(html_));
}

HtmlTree::~HtmlTree() = default;

void HtmlTree::Parse(PageSource source) {
  if (source.text.empty()) return;
  source_ = std::move(source);
  memory_ = std::make_unique<Memory>(source_.text.size() * kBytesOfAByte + kBytesAtLeast);
  const GumboOutput* output = memory_->Parse(source_.text);
  if (output == nullptr) return;
  isQuirky_ = output->document->v.document.doc_type_quirks_mode == GUMBO_DOCTYPE_QUIRKS;
  const GumboVector& children = output->root->v.element.children;
  for (unsigned i = 0; i < children.length; ++i) {
    const auto* child = static_cast<const GumboNode*>(children.data[i]);
    if (child->type == GUMBO_NODE_ELEMENT && child->v.element.tag == GUMBO_TAG_BODY) body_ = child;
  }
}
