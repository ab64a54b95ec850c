#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::ui {

/// A part of a text, counted as its field counts.
struct TextRange {
  std::size_t start = 0, length = 0;

  std::size_t end() const { return start + length; }
  bool operator==(const TextRange&) const = default;
};

/// What the field does by itself, with the clipboard and its own history.
enum class EditAction { Undo, Redo, Cut, Copy, Paste, SelectAll };

/// The field with the HTML source of the page, with a selection or a cursor in it.
class SourceField {
public:
  virtual ~SourceField() = default;
  virtual TextRange selection() const = 0;
  virtual std::string selectedText() const = 0;
  /// Selects and brings into sight.
  virtual void select(const TextRange& range) = 0;
  /// The cursor then stands behind the new text. The user can undo it.
  virtual void replaceSelection(std::string_view text) = 0;
  /// The first place at or behind `from` where the text stands, whatever its case.
  virtual std::optional<TextRange> find(std::string_view text, std::size_t from) const = 0;
  /// Every place where the text stands is marked; none for an empty text.
  virtual void markAll(std::string_view text) = 0;
  virtual bool can(EditAction action) const = 0;
  virtual void run(EditAction action) = 0;
  virtual void setFocus() = 0;
};

} // namespace mrd::ui
