#include "platform/html/inner_text.h"

#include "platform/html/writer.h"

namespace mrd::html {
namespace {

/// Collects words and lines; blanks and line ends at the border of a block wait until something follows.
class Lines {
public:
  void text(std::string_view text);
  void preformatted(std::string_view text)
  {
    flush();
    appendWithLineEnds(out_, text);
  }
  void blank() { blankIsDue_ = !isAtLineStart(); }
  void lineBreak()
  {
    blankIsDue_ = false;
    flush();
    out_ += "\r\n";
  }
  void blockBorder()
  {
    lineEndIsDue_ = lineEndIsDue_ || !(out_.empty() || out_.back() == '\n');
    blankIsDue_ = false;
  }
  std::string take() { return std::move(out_); }

private:
  bool isAtLineStart() const { return lineEndIsDue_ || out_.empty() || out_.back() == '\n'; }
  void flush();

  std::string out_;
  bool blankIsDue_ = false;
  bool lineEndIsDue_ = false;
};

void Lines::text(std::string_view text)
{
  for (std::size_t at = 0; at < text.size();) {
    if (isHtmlSpace(text[at])) {
      blank();
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < text.size() && !isHtmlSpace(text[end]))
      ++end;
    flush();
    out_.append(text, at, end - at);
    at = end;
  }
}

void Lines::flush()
{
  if (lineEndIsDue_)
    out_ += "\r\n";
  else if (blankIsDue_)
    out_ += ' ';
  lineEndIsDue_ = blankIsDue_ = false;
}

/// One way through all that is below an element, without recursion.
class Walk {
public:
  explicit Walk(const Node& top) : top_(top) {}

  std::string run()
  {
    for (const Node* node = &top_;;) {
      const bool descends = enter(*node) && node->firstChild != nullptr;
      if (descends) {
        node = node->firstChild;
        continue;
      }
      leave(*node);
      while (node != &top_ && node->next == nullptr) {
        node = node->parent;
        leave(*node);
      }
      if (node == &top_)
        return lines_.take();
      node = node->next;
    }
  }

private:
  /// Whether what is below belongs to the text.
  bool enter(const Node& node)
  {
    if (node.kind == NodeKind::Text)
      preformatted_ > 0 ? lines_.preformatted(node.text) : lines_.text(node.text);
    if (!node.isElement())
      return node.kind == NodeKind::Document;
    preformatted_ += node.has(kPreformatted) ? 1 : 0;
    if (&node == &top_)
      return true;
    if (node.has(kLineBreak))
      lines_.lineBreak();
    border(node);
    return !node.has(kHidden);
  }

  void leave(const Node& node)
  {
    preformatted_ -= node.has(kPreformatted) ? 1 : 0;
    if (&node != &top_)
      border(node);
  }

  void border(const Node& node)
  {
    if (node.has(kBlock))
      lines_.blockBorder();
    else if (node.has(kTableCell))
      lines_.blank();
  }

  const Node& top_;
  Lines lines_;
  /// How many elements around the present place keep white space as it is.
  int preformatted_ = 0;
};

} // namespace

std::string innerTextOf(const Node& element)
{
  // An element that is not shown itself has all its text.
  if (element.has(kHidden)) {
    std::string out;
    appendWithLineEnds(out, textContentOf(element));
    return out;
  }
  return Walk(element).run();
}

std::string textContentOf(const Node& element)
{
  std::string out;
  auto* const top = const_cast<Node*>(&element);
  for (const Node* node = following(top, top); node != nullptr; node = following(const_cast<Node*>(node), top))
    if (node->kind == NodeKind::Text)
      out += node->text;
  return out;
}

} // namespace mrd::html
