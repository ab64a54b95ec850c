#pragma once
// One run of the parser library, kept within bounds of memory and nesting.

#include "platform/html/arena.h"
#include "platform/html/tree.h"

#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

// The library's own names, so that its header stays out of this one.
struct GumboInternalNode;
struct GumboInternalOutput;

namespace mrd::html {

/// What a fragment is parsed as the content of: the parser's number of the element's name, and its namespace.
struct ParseContext {
  std::uint16_t tag;
  Namespace space;
};

enum class ParseBounds {
  Watched,
  /// For a text that cannot make the parser run away.
  None,
};

/// The parser takes all its memory from here, and its output lives as long as the run. The library's own way of giving back
/// a tree recurses, and its working time grows with the square of the nesting, of the attributes of a tag and of formatting
/// elements that are never closed. The run therefore watches what the parser allocates, and leaves it when a text goes
/// beyond what any page needs. It also outlives the library's assertions, some of which fail on broken pages.
class ParseRun {
public:
  /// A whole document without a context.
  ParseRun(std::string_view html, const std::optional<ParseContext>& context, ParseBounds bounds);
  ParseRun(const ParseRun&) = delete;
  ParseRun& operator=(const ParseRun&) = delete;

  /// Null when the text went out of bounds or made the parser fail; to be called once.
  const GumboInternalOutput* parse();

  /// Leaves the run that is under way on this thread; returns when there is none.
  static void giveUpCurrent();

private:
  struct DepthOfNode;

  static void* allocate(void* run, std::size_t bytes);
  static void deallocate(void*, void*) {}

  void watch(std::size_t bytes);
  void* allocateNode();
  void note(GumboInternalNode* node);
  void countAttribute();
  [[noreturn]] void giveUp();

  std::string_view withReadableEnd(std::string_view html);

  std::optional<ParseContext> context_;
  ParseBounds bounds_;
  std::size_t budget_;
  Arena arena_;
  std::string_view html_;
  GumboInternalNode* lastNode_ = nullptr;
  GumboInternalNode* nodeBeforeLast_ = nullptr;
  const GumboInternalNode* root_ = nullptr;
  const GumboInternalNode* body_ = nullptr;
  std::size_t allocations_ = 0;
  std::size_t attributesSinceNode_ = 0;
  std::size_t attributes_ = 0;
  std::jmp_buf outOfBounds_;
};

} // namespace mrd::html
