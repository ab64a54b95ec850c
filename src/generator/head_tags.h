#pragma once
// Tags of a page's head that both kinds of layouts write.

#include "base/clock.h"
#include "frame/settings/fields.h"

#include <string>
#include <string_view>

namespace mrd::generator {

/// In what the heads of the kinds of layouts differ.
struct HeadStyle {
  /// Attribute that names the tag for the image toolbar; empty where robots and browsers are told nothing.
  std::string_view imageToolbarAttribute;
  /// Line ends before the tag of the generator.
  std::string_view beforeGenerator;
  /// Parameter and spare variable of the popup function.
  std::string_view popupParameter, popupVariable;
};

inline constexpr HeadStyle kBuiltInHead{"http-equiv", "\r\n\r\n\r\n", "src", "srcu"};
/// The finished text of template layouts is searched for "src": the popup function does without the word.
inline constexpr HeadStyle kTemplateHead{"name", "\r\n\r\n", "source", "scu"};

/// The meta tags, a line each.
std::string metaTags(const HeadStyle& style, const settings::Fields& fields, const base::DateTime& now);

/// The script that opens a picture in a window of its own, without a line end.
std::string popupScript(const HeadStyle& style);

} // namespace mrd::generator
