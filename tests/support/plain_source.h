#pragma once

#include "base/text.h"
#include "platform/ui/source_field.h"

#include <string>
#include <vector>

namespace mrd::support {

/// A source field without a screen; it counts bytes.
struct PlainSource : ui::SourceField {
  ui::TextRange selection() const override { return selected; }
  std::string selectedText() const override { return text.substr(selected.start, selected.length); }
  void select(const ui::TextRange& range) override { selected = range; }
  void replaceSelection(std::string_view replacement) override
  {
    text.replace(selected.start, selected.length, replacement);
    selected = {selected.start + replacement.size(), 0};
  }
  std::optional<ui::TextRange> find(std::string_view wanted, std::size_t from) const override
  {
    // The letters of these tests have as many bytes in lower case.
    const auto at = base::lower(text).find(base::lower(wanted), from);
    return at == std::string::npos ? std::nullopt : std::optional(ui::TextRange{at, wanted.size()});
  }
  void markAll(std::string_view wanted) override { marked = wanted; }
  bool can(ui::EditAction action) const override { return action != ui::EditAction::Redo; }
  void run(ui::EditAction action) override { actions.push_back(action); }
  void setFocus() override { ++focused; }

  std::string text, marked;
  ui::TextRange selected;
  std::vector<ui::EditAction> actions;
  int focused = 0;
};

} // namespace mrd::support
