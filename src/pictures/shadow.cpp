#include "pictures/shadow.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "pictures/corners.h"
#include "pictures/page_pictures.h"
#include "platform/files/path.h"
#include "platform/html/document.h"
#include "platform/image/memory_share.h"

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
constexpr std::string_view kScheme = "file://";

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
  const auto size = Image::sizeOf(file(name));
  // The picture and the canvas on which it comes to stand.
  const image::MemoryShare share(2 * image::MemoryShare::kBytesPerPixel * size.width * size.height);
  withShadow(Image::load(file(name), exactColour(tbhintergrund)), tbhintergrund).saveJpeg(file(shadowName(name)), kQualityFactor);
}

std::optional<std::string> schatten_hinzufügen(std::string_view src, std::string_view tbhintergrund)
{
  const auto parts = localParts(src);
  if (!paths::datei_vorhanden(pathOf(parts)))
    return std::nullopt;
  erzeuge_schatten(parts.verzeichnis, parts.name, parts.erweiterung, tbhintergrund);
  // The second separator behind the directory is in the pages of many projects, and readers of references know it.
  return base::format("{}\\{}.{}", parts.verzeichnis, shadowName(parts.name), parts.erweiterung);
}

std::optional<std::string> schatten_entfernen(std::string_view src, ui::Ui& ui)
{
  if (src.starts_with(kScheme))
    src.remove_prefix(kScheme.size());
  auto without = base::replaceAll(src, shadowName(""), "");
  if (paths::datei_vorhanden(files::pathFromReference(without)))
    return without;
  ui.messageBox({base::format("Die Originaldatei wurde nicht gefunden!{}Bitte fügen Sie das Bild erneut ein!", base::kCrLf), ""});
  return std::nullopt;
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
      const auto src = picture.attribute("src").value_or("");
      const auto parts = localParts(src);
      ui.status(ui::StatusPlace::Run, base::format("Schatten für {}.{}", parts.name, parts.erweiterung));
      if (const auto withShadow = schatten_hinzufügen(src, tbhintergrund)) {
        picture.setAttribute("src", *withShadow);
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
