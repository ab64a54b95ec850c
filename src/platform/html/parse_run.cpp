#include "platform/html/parse_run.h"

#include <gumbo.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace mrd::html {
namespace {

constexpr std::size_t kMaxDepth = 512;
constexpr std::size_t kMaxAttributes = 256;

// An ordinary page takes some 30 bytes for each of its own, a row of the shortest tags up to 125.
constexpr std::size_t kBytesPerByte = 256;
constexpr std::size_t kBytesForAnyText = std::size_t{4} << 20;
constexpr std::size_t kBytesAtMost = std::size_t{2} << 30;

constexpr std::size_t kUsualBytesPerByte = 24;
constexpr std::size_t kLargestFirstChunk = std::size_t{8} << 20;

GumboNamespaceEnum gumboNamespace(Namespace space)
{
  switch (space) {
  case Namespace::Svg:
    return GUMBO_NAMESPACE_SVG;
  case Namespace::MathMl:
    return GUMBO_NAMESPACE_MATHML;
  default:
    return GUMBO_NAMESPACE_HTML;
  }
}

// In a fragment the parser reads some fields of its own state before it sets them.
constexpr std::size_t kClearedAllocations = 16;

constexpr int kNoNodeType = 0x7F;

/// A list or a text of a node's size is taken for a node until it is looked at: the pointers or characters at its start make
/// no number as small as a node's type.
bool isNodeWithParent(const void* memory)
{
  std::uint32_t type = 0;
  std::memcpy(&type, memory, sizeof type);
  return type > GUMBO_NODE_DOCUMENT && type <= GUMBO_NODE_TEMPLATE;
}

thread_local ParseRun* currentRun = nullptr;

} // namespace

/// Stands before each node in memory.
struct ParseRun::DepthOfNode {
  std::size_t depth;

  static DepthOfNode& of(GumboNode* node) { return reinterpret_cast<DepthOfNode*>(node)[-1]; }
};

ParseRun::ParseRun(std::string_view html, const std::optional<ParseContext>& context, ParseBounds bounds)
    : context_(context), bounds_(bounds), budget_(std::min(kBytesForAnyText + html.size() * kBytesPerByte, kBytesAtMost)),
      arena_(std::min(html.size() * kUsualBytesPerByte, kLargestFirstChunk)), html_(withReadableEnd(html))
{
}

/// The parser looks some characters beyond the end of its text.
std::string_view ParseRun::withReadableEnd(std::string_view html)
{
  constexpr std::size_t kReadableBytes = 64;
  auto* const copy = static_cast<char*>(arena_.allocate(html.size() + kReadableBytes));
  std::copy(html.begin(), html.end(), copy);
  std::fill_n(copy + html.size(), kReadableBytes, '\0');
  return {copy, html.size()};
}

const GumboInternalOutput* ParseRun::parse()
{
  GumboOptions options = kGumboDefaultOptions;
  options.allocator = &ParseRun::allocate;
  options.deallocator = &ParseRun::deallocate;
  options.userdata = this;
  options.max_errors = 0;
  options.fragment_context = context_ ? static_cast<GumboTag>(context_->tag) : GUMBO_TAG_LAST;
  options.fragment_namespace = gumboNamespace(context_ ? context_->space : Namespace::Html);
  currentRun = this;
  // The library has no way of its own to be stopped. What it holds when it is left lies in the arena.
  if (setjmp(outOfBounds_) != 0) {
    currentRun = nullptr;
    return nullptr;
  }
  const GumboOutput* const output = gumbo_parse_with_options(&options, html_.data(), html_.size());
  currentRun = nullptr;
  return output;
}

void ParseRun::giveUpCurrent()
{
  if (currentRun != nullptr)
    currentRun->giveUp();
}

void* ParseRun::allocate(void* run, std::size_t bytes)
{
  auto& self = *static_cast<ParseRun*>(run);
  if (self.bounds_ == ParseBounds::Watched)
    self.watch(bytes);
  void* const memory = bytes == sizeof(GumboNode) ? self.allocateNode() : self.arena_.allocate(bytes);
  if (self.allocations_++ < kClearedAllocations)
    std::memset(memory, 0, bytes);
  return memory;
}

void ParseRun::watch(std::size_t bytes)
{
  if (arena_.used() + bytes > budget_)
    giveUp();
  if (bytes == sizeof(GumboNode)) {
    attributesSinceNode_ = 0;
    note(nodeBeforeLast_);
    note(lastNode_);
  } else if (bytes == sizeof(GumboAttribute)) {
    countAttribute();
  }
}

void* ParseRun::allocateNode()
{
  auto* const depth = static_cast<DepthOfNode*>(arena_.allocate(sizeof(DepthOfNode) + sizeof(GumboNode)));
  depth->depth = 0;
  nodeBeforeLast_ = lastNode_;
  lastNode_ = reinterpret_cast<GumboNode*>(depth + 1);
  std::memset(lastNode_, kNoNodeType, sizeof(std::uint32_t));
  return lastNode_;
}

/// A node knows its parent only some time after its allocation: by the time that the next one is made, or the one after that
/// where a text in front of it is made in between.
void ParseRun::note(GumboInternalNode* node)
{
  if (node == nullptr || !isNodeWithParent(node))
    return;
  if (node->parent != nullptr)
    DepthOfNode::of(node).depth = DepthOfNode::of(node->parent).depth + 1;
  if (DepthOfNode::of(node).depth > kMaxDepth)
    giveUp();
  if (node->type == GUMBO_NODE_ELEMENT && node->v.element.tag == GUMBO_TAG_HTML)
    root_ = node;
  if (node->type == GUMBO_NODE_ELEMENT && node->v.element.tag == GUMBO_TAG_BODY)
    body_ = node;
}

/// Every attribute is compared with all earlier ones of its tag, and those of a second `html` or `body` with all of the first.
void ParseRun::countAttribute()
{
  const auto hasTooMany = [](const GumboNode* node) {
    return node != nullptr && node->v.element.attributes.length > kMaxAttributes;
  };
  constexpr std::size_t kLookEvery = 64;
  if (++attributesSinceNode_ > kMaxAttributes)
    giveUp();
  if (++attributes_ % kLookEvery == 0 && (hasTooMany(root_) || hasTooMany(body_)))
    giveUp();
}

void ParseRun::giveUp() { std::longjmp(outOfBounds_, 1); }

} // namespace mrd::html

#ifdef __GLIBC__
// The parser library is built with its assertions, and some broken pages (a select in foreign content in a table) fail one.
// No page may end the program: a failure inside a run leaves the run. Any other one ends as it always does.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): this name is the C library's.
extern "C" [[noreturn]] void __assert_fail(const char* assertion, const char* file, unsigned line, const char* function) noexcept
{
  mrd::html::ParseRun::giveUpCurrent();
  std::fprintf(stderr, "%s:%u: %s: Assertion `%s' failed.\n", file, line, function, assertion);
  std::abort();
}
#endif
