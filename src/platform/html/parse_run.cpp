#include "platform/html/parse_run.h"

#include <gumbo.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace mrd::html {
namespace {

constexpr std::size_t kMaxDepth = 512;
constexpr std::size_t kMaxAttributes = 256;

// An ordinary page takes some 20 to 60 bytes for each of its own; the shortest tags in a row about 300.
constexpr std::size_t kBytesPerByte = 512;
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

constexpr int kNoNodeType = 0x7F;

/// A list or a text of a node's size is taken for a node until it is looked at: the pointers or characters at its start make
/// no number as small as a node's type.
bool isNodeWithParent(const void* memory)
{
  std::uint32_t type = 0;
  std::memcpy(&type, memory, sizeof type);
  return type > GUMBO_NODE_DOCUMENT && type <= GUMBO_NODE_TEMPLATE;
}

} // namespace

/// Stands before each node in memory.
struct ParseRun::DepthOfNode {
  std::size_t depth;

  static DepthOfNode& of(GumboNode* node) { return reinterpret_cast<DepthOfNode*>(node)[-1]; }
};

ParseRun::ParseRun(std::string_view html, const std::optional<ParseContext>& context, ParseBounds bounds)
    : html_(html), context_(context), bounds_(bounds),
      arena_(std::min(html.size() * kUsualBytesPerByte, kLargestFirstChunk)),
      budget_(std::min(kBytesForAnyText + html.size() * kBytesPerByte, kBytesAtMost))
{
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
  // The library has no way of its own to be stopped. What it holds when it is left lies in the arena.
  if (setjmp(outOfBounds_) != 0)
    return nullptr;
  return gumbo_parse_with_options(&options, html_.empty() ? "" : html_.data(), html_.size());
}

void* ParseRun::allocate(void* run, std::size_t bytes)
{
  auto& self = *static_cast<ParseRun*>(run);
  if (self.bounds_ == ParseBounds::None)
    return self.arena_.allocate(bytes);
  if (self.arena_.used() + bytes > self.budget_)
    self.giveUp();
  if (bytes == sizeof(GumboNode))
    return self.allocateNode();
  if (bytes == sizeof(GumboAttribute))
    self.countAttribute();
  return self.arena_.allocate(bytes);
}

void* ParseRun::allocateNode()
{
  noteLastNode();
  attributesSinceNode_ = 0;
  auto* const depth = static_cast<DepthOfNode*>(arena_.allocate(sizeof(DepthOfNode) + sizeof(GumboNode)));
  depth->depth = 0;
  lastNode_ = reinterpret_cast<GumboNode*>(depth + 1);
  std::memset(lastNode_, kNoNodeType, sizeof(std::uint32_t));
  return lastNode_;
}

/// A node knows its parent only some time after its allocation: by the time that the next one is made.
void ParseRun::noteLastNode()
{
  if (lastNode_ == nullptr || !isNodeWithParent(lastNode_))
    return;
  if (lastNode_->parent != nullptr)
    DepthOfNode::of(lastNode_).depth = DepthOfNode::of(lastNode_->parent).depth + 1;
  if (DepthOfNode::of(lastNode_).depth > kMaxDepth)
    giveUp();
  if (lastNode_->type == GUMBO_NODE_ELEMENT && lastNode_->v.element.tag == GUMBO_TAG_HTML)
    root_ = lastNode_;
  if (lastNode_->type == GUMBO_NODE_ELEMENT && lastNode_->v.element.tag == GUMBO_TAG_BODY)
    body_ = lastNode_;
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
