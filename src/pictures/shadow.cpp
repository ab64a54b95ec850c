#include "pictures/shadow.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "pictures/corners.h"
#include "pictures/page_pictures.h"
#include "platform/files/path.h"
#include "platform/html/document.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace mrd::pictures {
namespace {

using image::Colour;
using image::Image;

/// The drawing is stated in twips, as dialogs count.
constexpr double kTwipsPerPixel = 15;
constexpr int kOffsetTwips = 200;
constexpr int kFirstRing = 1, kLastRing = 24, kRingStep = 2, kInsetTwips = 5, kDarkening = 6;
constexpr int kQualityFactor = 30;

int pixels(int twips) { return static_cast<int>(std::lround(twips / kTwipsPerPixel)); }

std::uint8_t channel(std::string_view digits)
{
  unsigned value = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  if (failure != std::errc() || end != digits.data() + digits.size() || digits.size() != 2)
    throw base::Error(base::ErrorNumber::TypeMismatch, base::format("\"{}\" ist kein Teil einer Farbe.", digits));
  return static_cast<std::uint8_t>(value);
}

Colour exactColour(std::string_view text)
{
  if (text.starts_with('#'))
    text.remove_prefix(1);
  const auto piece = [&](std::size_t at) { return channel(text.substr(std::min(at, text.size()), 2)); };
  return {piece(0), piece(2), piece(4)};
}

Colour darker(Colour colour, int by)
{
  const auto channelOf = [by](int value) { return static_cast<std::uint8_t>(std::max(0, value - by)); };
  return {channelOf(colour.red), channelOf(colour.green), channelOf(colour.blue)};
}

} // namespace

Image withShadow(const Image& picture, std::string_view tbhintergrund)
{
  const auto background = exactColour(tbhintergrund);
  const int width = picture.width(), height = picture.height();
  auto canvas = Image::create(width + kShadowPx, height + kShadowPx);
  canvas.fill(background);
  for (int ring = kFirstRing; ring < kLastRing; ring += kRingStep) {
    const int from = pixels(kOffsetTwips + kInsetTwips * ring), until = pixels(kOffsetTwips - kInsetTwips * ring);
    canvas.fillRectangle({from, from, width + until - from, height + until - from}, darker(background, kDarkening * ring));
  }
  const auto corners = colourOf(tbhintergrund);
  canvas.fillRectangle({0, height, kShadowPx, kShadowPx}, corners);
  canvas.fillRectangle({width, 0, kShadowPx, kShadowPx}, corners);
  canvas.put(picture, 0, 0);
  return canvas;
}

std::string shadowName(std::string_view name) { return std::string(name) + "_shd"; }

void erzeuge_schatten(std::string_view verzeichnis, std::string_view name, std::string_view erweiterung,
                      std::string_view tbhintergrund)
{
  const auto file = [&](std::string_view base) { return base::format("{}{}.{}", verzeichnis, base, erweiterung); };
  withShadow(Image::load(file(name), exactColour(tbhintergrund)), tbhintergrund).saveJpeg(file(shadowName(name)), kQualityFactor);
}

std::optional<std::string> withShadowFile(std::string_view src, std::string_view tbhintergrund)
{
  const auto parts = localParts(src);
  if (!paths::datei_vorhanden(pathOf(parts)))
    return std::nullopt;
  erzeuge_schatten(parts.verzeichnis, parts.name, parts.erweiterung, tbhintergrund);
  // The directory has its separator already; pages have held this second one for years.
  return base::format("{}\\{}.{}", parts.verzeichnis, shadowName(parts.name), parts.erweiterung);
}

std::optional<std::string> withoutShadowFile(std::string_view src)
{
  constexpr std::string_view kFileScheme = "file://";
  const std::string_view plain = src.starts_with(kFileScheme) ? src.substr(kFileScheme.size()) : src;
  const std::string original = base::replaceAll(plain, "_shd", "");
  return paths::datei_vorhanden(files::pathFromReference(original)) ? std::optional(original) : std::nullopt;
}

std::size_t schatten_fuer_seite(const PageWithPictures& open, std::string_view tbhintergrund)
{
  auto& [DHTMLEdit1, ui, frmBildkonvertierer] = open;
  const ui::WaitPointer wait(ui);
  auto page = html::Document::fromText(DHTMLEdit1.bodyInnerHtml());
  auto pictures = page.images();
  const WorkOnPictures work(frmBildkonvertierer, pictures.size());
  std::size_t shadows = 0, done = 0;
  // A failure leaves the loop; what was done before it is in the page all the same.
  const auto show = [&] {
    if (shadows > 0)
      DHTMLEdit1.setBodyInnerHtml(page.body().innerHtml());
  };
  try {
    for (auto& picture : pictures) {
      frmBildkonvertierer.progress(done++);
      if (ui.pumpEvents() || frmBildkonvertierer.isStopped())
        break;
      const auto parts = localParts(picture.attribute("src").value_or(""));
      ui.status(ui::StatusPlace::Run, base::format("Schatten für {}.{}", parts.name, parts.erweiterung));
      if (const auto reference = withShadowFile(picture.attribute("src").value_or(""), tbhintergrund)) {
        picture.setAttribute("src", *reference);
        ++shadows;
      }
    }
  } catch (const base::Error&) {
    show();
    throw;
  }
  show();
  return shadows;
}

} // namespace mrd::pictures
