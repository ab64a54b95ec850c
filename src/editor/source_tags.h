#pragma once
// HTML source as people read it: what is a tag, a value, a comment, and which tags belong together. Texts and places are in the
// units of the field that shows them.

#include "platform/ui/source_field.h"

#include <functional>
#include <optional>
#include <string_view>

namespace mrd::editor {

enum class SourcePart { Tag, Attribute, Value, Entity, Comment, Program };

/// Tells the parts of one line. `state` is what the line before ended with, 0 for the first; the answer is what this one ends
/// with.
int partsOfLine(std::u16string_view line, int state,
                const std::function<void(SourcePart part, std::size_t start, std::size_t length)>& tell);

/// A tag from its "<" to its ">", and the one that opens or closes its element.
struct TagPair {
  ui::TextRange tag;
  /// Nothing for an element that has no end tag, or a tag that has no partner.
  std::optional<ui::TextRange> partner;
  /// The element has neither content nor end tag.
  bool isVoid = false;
};

/// The tag that the cursor touches.
std::optional<TagPair> tagAt(std::u16string_view source, std::size_t cursor);

} // namespace mrd::editor
