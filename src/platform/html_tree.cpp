// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html_tree.h"

#include <time.h>

#include <csetjmp>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "platform/html_source.h"

namespace {

constexpr size_t kChunk = size_t{256} * 1024;
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

}  // namespace

// All memory of one parse, given back at once: the library frees a tree by recursion, which a deep one does not
// survive.
struct HtmlTree::Memory {
  ~Memory() {
    for (void* chunk : chunks) std::free(chunk);
  }

  // The library knows no failure of an allocation: the way out is over its head. It is plain C and keeps nothing open.
  static void* Allocate(void* self, size_t size) {
    auto* memory = static_cast<Memory*>(self);
    void* piece = memory->Take((size + kAlignment - 1) / kAlignment * kAlignment);
    if (piece == nullptr) std::longjmp(memory->wayOut, 1);  // NOLINT
    return piece;
  }
  static void Release(void*, void*) {}

  void* Take(size_t size) {
    if (++calls % kCallsOfAClock == 0 && SecondsOfThread() - started > kMostSeconds) return nullptr;
    if (size > left) {
      const size_t chunk = size > kChunk / 4 ? size : kChunk;
      if (taken + chunk > most) return nullptr;
      void* fresh = std::malloc(chunk);
      if (fresh == nullptr) return nullptr;
      chunks.push_back(fresh);
      taken += chunk;
      if (chunk == size) return fresh;
      next = static_cast<std::byte*>(fresh);
      left = chunk;
    }
    void* piece = next;
    next += size;
    left -= size;
    return piece;
  }

  GumboOutput* Parse(const QByteArray& source) {
    GumboOptions options = kGumboDefaultOptions;
    options.allocator = Allocate;
    options.deallocator = Release;
    options.userdata = this;
    options.max_errors = 0;
    if (setjmp(wayOut) != 0) return nullptr;  // NOLINT
    return gumbo_parse_with_options(&options, source.constData(), static_cast<size_t>(source.size()));
  }

  std::vector<void*> chunks;
  std::byte* next = nullptr;
  size_t left = 0;
  size_t taken = 0;
  size_t most = 0;
  unsigned calls = 0;
  double started = SecondsOfThread();
  std::jmp_buf wayOut = {};
};

HtmlTree::HtmlTree(const QByteArray& html) {
  if (!NestsTooDeep(html)) Parse(ParserSource(html));
  if (body_ == nullptr) Parse(FlatSource(html));
}

HtmlTree::~HtmlTree() = default;

void HtmlTree::Parse(const QByteArray& source) {
  source_ = source;
  memory_ = std::make_unique<Memory>();
  memory_->most = static_cast<size_t>(source_.size()) * kBytesOfAByte + kBytesAtLeast;
  const GumboOutput* output = memory_->Parse(source_);
  if (output == nullptr) return;
  isQuirky_ = output->document->v.document.doc_type_quirks_mode == GUMBO_DOCTYPE_QUIRKS;
  const GumboVector& children = output->root->v.element.children;
  for (unsigned i = 0; i < children.length; ++i) {
    const auto* child = static_cast<const GumboNode*>(children.data[i]);
    if (child->type == GUMBO_NODE_ELEMENT && child->v.element.tag == GUMBO_TAG_BODY) body_ = child;
  }
}
