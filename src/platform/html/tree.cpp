#include "platform/html/tree.h"

namespace mrd::html {

void append(Node& parent, Node& child)
{
  child.parent = &parent;
  child.previous = parent.lastChild;
  child.next = nullptr;
  (parent.lastChild != nullptr ? parent.lastChild->next : parent.firstChild) = &child;
  parent.lastChild = &child;
}

void insertBefore(Node& sibling, Node& child)
{
  child.parent = sibling.parent;
  child.previous = sibling.previous;
  child.next = &sibling;
  (sibling.previous != nullptr ? sibling.previous->next : sibling.parent->firstChild) = &child;
  sibling.previous = &child;
}

void unlink(Node& node)
{
  (node.previous != nullptr ? node.previous->next : node.parent->firstChild) = node.next;
  (node.next != nullptr ? node.next->previous : node.parent->lastChild) = node.previous;
  node.parent = node.previous = node.next = nullptr;
}

Node* following(Node* node, const Node* top)
{
  return node->firstChild != nullptr ? node->firstChild : followingSkippingChildren(node, top);
}

Node* followingSkippingChildren(Node* node, const Node* top)
{
  for (; node != top; node = node->parent)
    if (node->next != nullptr)
      return node->next;
  return nullptr;
}

Attribute* findAttribute(const Node& element, std::string_view name)
{
  for (Attribute* attribute = element.attributes; attribute != nullptr; attribute = attribute->next)
    if (sameName(attribute->name, name))
      return attribute;
  return nullptr;
}

} // namespace mrd::html
