#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mrd::ui {

/// The document in which a page is edited as it will look. Its HTML has CR LF line ends.
class EditingSurface {
public:
  virtual ~EditingSurface() = default;

  /// Sets a whole document's text; busy() until it is loaded.
  virtual void setDocumentHtml(std::string_view html) = 0;
  virtual void newDocument() = 0;
  virtual bool busy() const = 0;

  virtual std::string bodyInnerHtml() const = 0;
  virtual void setBodyInnerHtml(std::string_view html) = 0;

  /// Empties the selection; the cursor stays.
  virtual void clearSelection() = 0;
  /// Text of the element around the cursor, or of its parent, if it has the id.
  virtual std::optional<std::string> textAroundCursor(std::string_view elementId) const = 0;
  /// Text of the first element of the document with the id.
  virtual std::optional<std::string> textOfElement(std::string_view elementId) const = 0;

  virtual void setFocus() = 0;
};

} // namespace mrd::ui
