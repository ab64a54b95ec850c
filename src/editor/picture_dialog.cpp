#include "editor/picture_dialog.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mrd::editor {
namespace {

constexpr int kMessageNoSize = 152, kMessageNoPicture = 151;
constexpr std::array<std::string_view, 6> kAlignments{"", "left", "right", "top", "middle", "bottom"};
constexpr std::string_view kFileScheme = "file://";

/// A path of this machine becomes a reference; whatever has a scheme, or starts in the site, stays.
std::string referenceOf(const std::string& text)
{
  const bool isPath = text.starts_with('\\') || (text.size() > 2 && text[1] == ':' && text[2] == '\\');
  return isPath ? std::string(kFileScheme) + text : text;
}

/// Pixels, or percent of the page's width.
bool isSize(const std::string& text)
{
  const std::string digits = text.ends_with('%') ? text.substr(0, text.size() - 1) : text;
  return text.empty() ||
         (!digits.empty() && digits.size() < 6 && std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; }));
}

std::string scaled(const std::string& side, int own, int other)
{
  if (side.empty() || side.ends_with('%') || own <= 0)
    return {};
  return std::to_string(std::lround(base::numericValue(side) * other / own));
}

} // namespace

FrmBild::FrmBild(messages::Language& language, const ui::PictureValues& present, std::string_view filter)
    : tbbild(present.src), tbalt(present.alt), tbbreite(present.width), tbhöhe(present.height),
      tbrahmen(present.src.empty() ? "0" : present.border), language_(language), present_(present), filter_(filter)
{
  const auto found = std::ranges::find(kAlignments, base::lower(present.align));
  ComboAusrichtung = found == kAlignments.end() ? 0 : static_cast<int>(found - kAlignments.begin());
}

std::span<const std::string_view> FrmBild::alignments() { return kAlignments; }

void FrmBild::Form_Load(ui::WindowControls& controls)
{
  language_.Setlanguage(controls);
  window.refresh();
}

void FrmBild::cbbild_Click()
{
  const auto file = language_.ui().openFileDialog({{}, filter_});
  if (!file)
    return;
  tbbild = referenceOf(*file);
  // The size was that of another picture.
  tbbreite.clear();
  tbhöhe.clear();
  window.refresh();
}

void FrmBild::tbbreite_Change()
{
  if (!CheckSeitenverhältnis || tbbild != present_.src || present_.naturalWidth <= 0 || !isSize(tbbreite))
    return;
  tbhöhe = scaled(tbbreite, present_.naturalWidth, present_.naturalHeight);
  window.refresh();
}

void FrmBild::tbhöhe_Change()
{
  if (!CheckSeitenverhältnis || tbbild != present_.src || present_.naturalHeight <= 0 || !isSize(tbhöhe))
    return;
  tbbreite = scaled(tbhöhe, present_.naturalHeight, present_.naturalWidth);
  window.refresh();
}

void FrmBild::cboriginal_Click()
{
  tbbreite.clear();
  tbhöhe.clear();
  window.refresh();
}

void FrmBild::cbok_Click()
{
  const std::string picture = referenceOf(base::trim(tbbild));
  if (picture.empty()) {
    language_.GetMsg(kMessageNoPicture);
    return;
  }
  if (!isSize(tbbreite) || !isSize(tbhöhe) || !isSize(tbrahmen)) {
    language_.GetMsg(kMessageNoSize);
    return;
  }
  const auto& align =
      kAlignments.at(static_cast<std::size_t>(std::clamp(ComboAusrichtung, 0, static_cast<int>(kAlignments.size()) - 1)));
  answer = ui::PictureValues{picture, tbalt, tbbreite, tbhöhe, std::string(align), tbrahmen};
  window.unload();
}

} // namespace mrd::editor
