#pragma once
// An HTML document: parsed by the HTML5 rules, changed, and written again by the fragment serialization rules of
// https://html.spec.whatwg.org/multipage/parsing.html#serialising-html-fragments with CR LF line ends.

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::html {

struct Node;
struct Tree;

/// A handle on an element of a document; valid as long as the document and until the element is replaced by a set of inner or
/// outer HTML above it.
class Element {
public:
  /// Lower-case name ("img").
  std::string_view tagName() const;
  std::optional<std::string> attribute(std::string_view name) const;
  bool hasAttribute(std::string_view name) const;
  /// Adds or replaces; an added attribute stands behind the others.
  void setAttribute(std::string_view name, std::string_view value);
  void removeAttribute(std::string_view name);

  std::string innerHtml() const;
  std::string outerHtml() const;
  /// Inner HTML behind what `out` holds already, for a caller that reuses its memory.
  void appendInnerHtml(std::string& out) const;
  /// Parsed in the context of this element.
  void setInnerHtml(std::string_view html);
  /// Parsed in the context of the parent; the handle is no longer valid afterwards. Does nothing to the root, nor to an element
  /// that is no longer part of the document.
  void setOuterHtml(std::string_view html);

  /// Text as it would be read: runs of white space as one blank, `br` and block borders as CR LF, cells of a row a blank apart,
  /// no script or style text. No-break spaces stay. All text of an element that is itself not shown.
  std::string innerText() const;
  /// All text, character by character; line ends are LF, as they are in attributes that were read.
  std::string textContent() const;

  std::optional<Element> parent() const;
  std::vector<Element> children() const;
  /// Elements below this one with the tag, in document order; "*" for all.
  std::vector<Element> elementsByTag(std::string_view tag) const;

  bool operator==(const Element&) const = default;

private:
  friend class Document;
  Element(Node* node, Tree* tree) : node_(node), tree_(tree) {}
  Node* node_;
  Tree* tree_;
};

/// Movable; handles stay valid. Different documents may be used on different threads at the same time.
class Document {
public:
  /// A whole document's text. Never fails: every text is a document. Depth of nesting is bounded; what lies deeper is flattened.
  static Document fromText(std::string_view html);

  Document(Document&&) noexcept;
  Document& operator=(Document&&) noexcept;
  ~Document();

  /// The `frameset` of a document of frames.
  Element body();
  Element head();
  /// First element with the id (compared exactly).
  std::optional<Element> elementById(std::string_view id);
  std::vector<Element> elementsByTag(std::string_view tag);
  /// All `img` elements, those in a `template` too.
  std::vector<Element> images();
  /// All `a` and `area` elements that have a `href`.
  std::vector<Element> links();

  /// A reference resolved against the first `base` element's `href`: one with a scheme as it is, a rooted path (`/x`, `\x`,
  /// `C:\x`) with "file://" before it, a relative one behind the base, `.` and `..` worked but never above the root. Both
  /// separators count, and every part keeps its own. Without a base everything is as it is, and so is an empty reference.
  std::string resolve(std::string_view reference) const;

  /// The whole document, doctype included.
  std::string outerHtml() const;

private:
  Document();
  Element partOfDocument(unsigned traits, std::string_view name);
  std::unique_ptr<Tree> tree_;
};

/// `text` as it stands inside a text node and inside a double-quoted attribute value.
std::string escapeText(std::string_view text);
std::string escapeAttribute(std::string_view text);

} // namespace mrd::html
