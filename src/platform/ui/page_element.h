#pragma once
// Elements of the document that a surface shows.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::ui {

/// The elements of a surface by number. An element keeps its number until another document is loaded; one that is not there any
/// more has no name, no attributes and no relations.
class ElementAccess {
public:
  virtual ~ElementAccess() = default;
  virtual std::string tagName(int element) const = 0;
  virtual std::optional<std::string> getAttribute(int element, std::string_view name) const = 0;
  virtual void setAttribute(int element, std::string_view name, std::string_view value) = 0;
  virtual void removeAttribute(int element, std::string_view name) = 0;
  virtual void setStyle(int element, std::string_view name, std::string_view value) = 0;
  virtual std::string outerHTML(int element) const = 0;
  virtual std::optional<int> parentOf(int element) const = 0;
  virtual std::vector<int> childrenOf(int element) const = 0;
};

/// One of them, as long as its surface is there.
class PageElement {
public:
  PageElement(ElementAccess& access, int number) : access_(&access), number_(number) {}

  /// As the document spells it.
  std::string tagName() const { return access_->tagName(number_); }
  std::optional<std::string> getAttribute(std::string_view name) const { return access_->getAttribute(number_, name); }
  void setAttribute(std::string_view name, std::string_view value) { access_->setAttribute(number_, name, value); }
  void removeAttribute(std::string_view name) { access_->removeAttribute(number_, name); }
  /// A property of the style attribute ("font-size").
  void setStyle(std::string_view name, std::string_view value) { access_->setStyle(number_, name, value); }
  std::string outerHTML() const { return access_->outerHTML(number_); }
  std::optional<PageElement> parentElement() const
  {
    const auto parent = access_->parentOf(number_);
    return parent ? std::optional(PageElement(*access_, *parent)) : std::nullopt;
  }
  std::vector<PageElement> children() const
  {
    std::vector<PageElement> all;
    for (const int child : access_->childrenOf(number_))
      all.emplace_back(*access_, child);
    return all;
  }

  bool operator==(const PageElement&) const = default;

private:
  ElementAccess* access_;
  int number_;
};

} // namespace mrd::ui
