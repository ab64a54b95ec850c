#pragma once
// Tags of a table with attributes that are bound to text boxes, so that one loop reads all of them and one writes them.

#include "platform/ui/page_element.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrd::editor {

/// One attribute and the text box that shows it.
class clsTagAttribut {
public:
  clsTagAttribut(std::string name, std::string* field) : AttName(std::move(name)), Feld(field) {}

  std::string Value;
  /// The name, as the element spells it once it was read.
  std::string AttName;
  /// Text of the box; null for an attribute that nothing shows.
  std::string* Feld;

  void getValueFromElement(const ui::PageElement& element);
};

/// The attributes of a tag by name. Names are found whatever their case.
class ColAttribute {
public:
  clsTagAttribut& Add(std::string AttName, std::string* Feld);
  /// Takes one in that was made elsewhere.
  void AddAtt(clsTagAttribut attribute) { members_.push_back(std::move(attribute)); }
  /// Null for a name that is not there.
  clsTagAttribut* Item(std::string_view AttName);
  std::size_t Count() const { return members_.size(); }
  void Remove(std::string_view AttName);
  void clear() { members_.clear(); }

  auto begin() { return members_.begin(); }
  auto end() { return members_.end(); }

private:
  /// Members stay where they are while others are added.
  std::deque<clsTagAttribut> members_;
};

/// One tag of the table around the cursor: "table", "tr" or "td".
class clsTag {
public:
  /// Text boxes of a tag's attributes, by the attributes' names.
  struct Box {
    std::string_view attribute;
    std::string* field;
  };
  clsTag(std::string name, std::vector<Box> boxes) : TagName(std::move(name)), boxes_(std::move(boxes)) {}

  std::string TagName;
  editor::ColAttribute ColAttribute;

  /// Reads the attributes of the element, which is remembered.
  void AttributeErmitteln(const ui::PageElement& element);
  /// Writes the texts of the boxes into the element. An empty box takes its attribute away.
  void AttributeSetzen();
  /// The element that was read last.
  const std::optional<ui::PageElement>& Element() const { return Element_; }

private:
  std::vector<Box> boxes_;
  std::optional<ui::PageElement> Element_;
};

} // namespace mrd::editor
