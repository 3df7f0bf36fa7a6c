// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/html/html_tree.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <utility>
#include <vector>

namespace {

// Enough for a page of 20 kB.
constexpr size_t kChunk = size_t{512} * 1024;
constexpr size_t kAlignment = alignof(std::max_align_t);

}  // namespace

// All memory of one parse, freed at once: the library frees a tree by recursion, and the stack is too small for a deep
// tree.
struct HtmlTree::Memory {
  Memory() = default;
  ~Memory() {
    for (void* chunk : chunks) std::free(chunk);
  }
  Q_DISABLE_COPY_MOVE(Memory)

  static void* Allocate(void* self, size_t size) {
    return static_cast<Memory*>(self)->Take((size + kAlignment - 1) / kAlignment * kAlignment);
  }
  // Only the piece that was allocated last is used again; all others are freed at the end.
  static void Release(void* self, void* piece) {
    auto* memory = static_cast<Memory*>(self);
    if (piece == nullptr || piece != memory->last) return;
    memory->left += static_cast<size_t>(memory->next - memory->last);
    memory->next = memory->last;
    memory->last = nullptr;
  }

  void* Take(size_t size) {
    if (size > left) AddChunk(size);
    void* piece = next;
    last = next;
    next += size;
    left -= size;
    return piece;
  }

  // The library does not expect that an allocation fails. Without memory the process ends, and with it the page's job.
  void AddChunk(size_t size) {
    left = std::max(size, kChunk);
    next = static_cast<std::byte*>(std::malloc(left));
    if (next == nullptr) std::abort();
    chunks.push_back(next);
  }

  const GumboOutput* Parse(const std::string& source) {
    GumboOptions options = kGumboDefaultOptions;
    options.allocator = Allocate;
    options.deallocator = Release;
    options.userdata = this;
    options.max_errors = 0;
    return gumbo_parse_with_options(&options, source.data(), source.size());
  }

  std::vector<void*> chunks;
  std::byte* next = nullptr;
  std::byte* last = nullptr;
  size_t left = 0;
};

HtmlTree::HtmlTree(const QByteArray& html) : html_(html) {
  PageSource source = ParserSource(html_);
  Parse(source.text.empty() ? FlatSource(html_) : std::move(source));
}

HtmlTree::~HtmlTree() = default;

void HtmlTree::Parse(PageSource source) {
  source_ = std::move(source);
  memory_ = std::make_unique<Memory>();
  const GumboOutput* output = memory_->Parse(source_.text);
  isQuirky_ = output->document->v.document.doc_type_quirks_mode == GUMBO_DOCTYPE_QUIRKS;
  const GumboVector& children = output->root->v.element.children;
  for (unsigned i = 0; i < children.length; ++i) {
    const auto* child = static_cast<const GumboNode*>(children.data[i]);
    if (child->type == GUMBO_NODE_ELEMENT && child->v.element.tag == GUMBO_TAG_BODY) body_ = child;
  }
}
