#include "editor/link_dialog.h"

#include "base/text.h"

#include <algorithm>

namespace mrd::editor {
namespace {

constexpr int kMessageNoAddress = 153;
constexpr std::string_view kNewWindow = "_blank";
constexpr std::size_t kDigitsOfLevel = 2, kIndent = 4;

/// "www.beispiel.de" and "anna@beispiel.de" as people write them.
std::string completed(const std::string& address)
{
  const bool isPlain = address.find_first_of(":/\\#? ") == std::string::npos;
  if (isPlain && base::contains(address, "@"))
    return "mailto:" + address;
  return base::lower(address).starts_with("www.") ? "http://" + address : address;
}

} // namespace

FrmVerweis::FrmVerweis(messages::Language& language, const ui::LinkValues& present, std::vector<LinkTarget> pages)
    : tbadresse(present.href), Checkneuesfenster(present.target == kNewWindow), language_(language), present_(present),
      pages_(std::move(pages))
{
  for (const auto& page : pages_) {
    const std::size_t level = std::max<std::size_t>(page.id.size() / kDigitsOfLevel, 1) - 1;
    Listseiten.push_back(std::string(level * kIndent, ' ') + page.heading);
  }
  tbadresse_Change();
}

void FrmVerweis::Form_Load(ui::WindowControls& controls)
{
  language_.Setlanguage(controls);
  window.refresh();
}

void FrmVerweis::Listseiten_Click(int index)
{
  if (index < 0 || static_cast<std::size_t>(index) >= pages_.size())
    return;
  tbadresse = pages_[static_cast<std::size_t>(index)].href;
  listIndex = index;
  window.refresh();
}

void FrmVerweis::tbadresse_Change()
{
  const auto found = tbadresse.empty() ? pages_.end() : std::ranges::find(pages_, tbadresse, &LinkTarget::href);
  listIndex = found == pages_.end() ? -1 : static_cast<int>(found - pages_.begin());
  window.refresh();
}

void FrmVerweis::cbok_Click()
{
  const std::string address = completed(base::trim(tbadresse));
  if (address.empty()) {
    language_.GetMsg(kMessageNoAddress);
    return;
  }
  // Another window than a new one is somebody's own choice, and stays.
  const bool keepsTarget = Checkneuesfenster == (present_.target == kNewWindow);
  answer = ui::LinkValues{address, keepsTarget ? present_.target : std::string(Checkneuesfenster ? kNewWindow : "")};
  window.unload();
}

void FrmVerweis::cbentfernen_Click()
{
  answer = ui::LinkValues{};
  window.unload();
}

} // namespace mrd::editor
