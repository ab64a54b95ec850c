#include "platform/html/document.h"

#include "platform/html/inner_text.h"
#include "platform/html/reader.h"
#include "platform/html/reference.h"
#include "platform/html/tree.h"
#include "platform/html/writer.h"

#include <utility>

namespace mrd::html {
namespace {

Node* childWith(Node* parent, TagTraits traits)
{
  for (Node* child = parent->firstChild; child != nullptr; child = child->next)
    if (child->isElement() && child->has(traits))
      return child;
  return nullptr;
}

std::string_view copyLowered(Arena& arena, std::string_view name)
{
  std::string lowered(name);
  for (char& c : lowered)
    c = lowerAscii(c);
  return arena.copy(lowered);
}

void addAttribute(Arena& arena, Node& node, std::string_view name, std::string_view value)
{
  Attribute** end = &node.attributes;
  while (*end != nullptr)
    end = &(*end)->next;
  *end = arena.make<Attribute>();
  (*end)->name = name;
  (*end)->value = value;
}

/// Moves the children of `holder`, which is in no tree, before `sibling`.
void moveChildrenBefore(Node& sibling, Node& holder)
{
  while (Node* const child = holder.firstChild) {
    unlink(*child);
    insertBefore(sibling, *child);
  }
}

/// The reference of the first `base` that has one; empty without.
std::string_view findBaseReference(const Tree& tree)
{
  std::string_view reference;
  firstElement(tree.document, [&](const Node& node) {
    const Attribute* const attribute = node.has(kBase) ? findAttribute(node, "href") : nullptr;
    if (attribute != nullptr)
      reference = attribute->value;
    return attribute != nullptr;
  });
  return reference;
}

} // namespace

std::string_view Element::tagName() const { return node_->text; }

std::optional<std::string> Element::attribute(std::string_view name) const
{
  const Attribute* const attribute = findAttribute(*node_, name);
  if (attribute == nullptr)
    return std::nullopt;
  return std::string(attribute->value);
}

bool Element::hasAttribute(std::string_view name) const { return findAttribute(*node_, name) != nullptr; }

void Element::setAttribute(std::string_view name, std::string_view value)
{
  if (node_->has(kBase))
    tree_->baseReference.reset();
  const std::string_view copy = tree_->arena.copy(value);
  if (Attribute* const attribute = findAttribute(*node_, name))
    attribute->value = copy;
  else
    addAttribute(tree_->arena, *node_, copyLowered(tree_->arena, name), copy);
}

void Element::removeAttribute(std::string_view name)
{
  if (node_->has(kBase))
    tree_->baseReference.reset();
  for (Attribute** link = &node_->attributes; *link != nullptr; link = &(*link)->next)
    if (sameName((*link)->name, name)) {
      *link = (*link)->next;
      return;
    }
}

std::string Element::innerHtml() const
{
  std::string out;
  appendInnerHtml(out);
  return out;
}

std::string Element::outerHtml() const
{
  std::string out;
  appendNode(out, *node_);
  return out;
}

void Element::appendInnerHtml(std::string& out) const { appendChildren(out, *node_); }

void Element::setInnerHtml(std::string_view html)
{
  tree_->baseReference.reset();
  Node* const holder = readFragment(*tree_, *node_, html);
  while (node_->firstChild != nullptr)
    unlink(*node_->firstChild);
  while (Node* const child = holder->firstChild) {
    unlink(*child);
    append(*node_, *child);
  }
}

void Element::setOuterHtml(std::string_view html)
{
  // The root has no element around it, nor has one that was taken out of the document.
  if (node_->parent == nullptr || !node_->parent->isElement())
    return;
  tree_->baseReference.reset();
  moveChildrenBefore(*node_, *readFragment(*tree_, *node_->parent, html));
  unlink(*node_);
}

std::string Element::innerText() const { return innerTextOf(*node_); }

std::string Element::textContent() const { return textContentOf(*node_); }

std::optional<Element> Element::parent() const
{
  if (node_->parent == nullptr || !node_->parent->isElement())
    return std::nullopt;
  return Element(node_->parent, tree_);
}

std::vector<Element> Element::children() const
{
  std::vector<Element> found;
  for (Node* child = node_->firstChild; child != nullptr; child = child->next)
    if (child->isElement())
      found.push_back(Element(child, tree_));
  return found;
}

std::vector<Element> Element::elementsByTag(std::string_view tag) const
{
  std::vector<Element> found;
  forEachElement(node_, [&](Node& node) {
    if (tag == "*" || sameName(node.text, tag))
      found.push_back(Element(&node, tree_));
  });
  return found;
}

Document::Document() : tree_(std::make_unique<Tree>()) {}
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&&) noexcept = default;
Document::~Document() = default;

Document Document::fromText(std::string_view html)
{
  Document document;
  readDocument(*document.tree_, html);
  return document;
}

Element Document::body() { return partOfDocument(kBody, "body"); }

Element Document::head() { return partOfDocument(kHead, "head"); }

/// A document always has both; one whose content was replaced gets them anew.
Element Document::partOfDocument(unsigned traits, std::string_view name)
{
  Node* html = childWith(tree_->document, kHtml);
  if (html == nullptr)
    html = appendElement(*tree_, *tree_->document, "html");
  Node* part = childWith(html, static_cast<TagTraits>(traits));
  if (part == nullptr)
    part = appendElement(*tree_, *html, name);
  return Element(part, tree_.get());
}

std::optional<Element> Document::elementById(std::string_view id)
{
  Node* const found = firstElement(tree_->document, [&](const Node& node) {
    const Attribute* const attribute = findAttribute(node, "id");
    return attribute != nullptr && attribute->value == id;
  });
  if (found == nullptr)
    return std::nullopt;
  return Element(found, tree_.get());
}

std::vector<Element> Document::elementsByTag(std::string_view tag)
{
  return Element(tree_->document, tree_.get()).elementsByTag(tag);
}

std::vector<Element> Document::images()
{
  std::vector<Element> found;
  forEachElement(tree_->document, [&](Node& node) {
    if (node.has(kImage))
      found.push_back(Element(&node, tree_.get()));
  });
  return found;
}

std::vector<Element> Document::links()
{
  std::vector<Element> found;
  forEachElement(tree_->document, [&](Node& node) {
    if (node.has(kLink) && findAttribute(node, "href") != nullptr)
      found.push_back(Element(&node, tree_.get()));
  });
  return found;
}

std::string Document::resolve(std::string_view reference) const
{
  if (!tree_->baseReference)
    tree_->baseReference = findBaseReference(*tree_);
  if (tree_->baseReference->empty())
    return std::string(reference);
  return resolveReference(*tree_->baseReference, reference);
}

std::string Document::outerHtml() const
{
  std::string out;
  appendNode(out, *tree_->document);
  return out;
}

} // namespace mrd::html
