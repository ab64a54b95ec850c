#include "platform/ftp/server_text.h"

#include "base/text.h"
#include "base/windows1252.h"

namespace mrd::ftp {
namespace {

constexpr char kInPlaceOfControl = '?';

bool isControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7f; }

/// The second row of control characters is U+0080 to U+009F: in UTF-8 C2 and one of these bytes.
bool isSecondRow(std::string_view text, std::size_t at)
{
  return text[at] == '\xC2' && at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) < 0xA0;
}

std::string withoutControls(std::string_view text)
{
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isSecondRow(text, i)) {
      out += kInPlaceOfControl;
      ++i;
    } else if (text[i] == '\n') {
      // An answer of several lines; the next one is not to look like a line of ours.
      out += ' ';
    } else if (text[i] != '\r') {
      out += isControl(text[i]) ? kInPlaceOfControl : text[i];
    }
  }
  return out;
}

} // namespace

std::string shownText(std::string_view text, std::string_view password)
{
  constexpr std::string_view kBlank = "***";
  std::string shown(text);
  if (!password.empty()) {
    shown = base::replaceAll(shown, password, kBlank);
    // Repeated among bytes that are no UTF-8 it was read as these were.
    shown = base::replaceAll(shown, base::fromWindows1252(password), kBlank);
  }
  return withoutControls(base::repairUtf8(shown));
}

} // namespace mrd::ftp
