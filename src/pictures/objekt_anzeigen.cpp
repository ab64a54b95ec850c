#include "pictures/objekt_anzeigen.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "platform/files/path.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <future>

namespace mrd::pictures {
namespace {

using image::Image;
using image::Size;

constexpr std::array<std::string_view, 7> kPictures{"jpg", "bmp", "tif", "pcx", "jpeg", "gif", "png"};
constexpr int kMessageNoProgram = 127;
/// How long the window may sleep while a picture is read.
constexpr auto kNap = std::chrono::milliseconds(5);

} // namespace

bool isShownAsPicture(std::string_view path)
{
  return std::ranges::find(kPictures, base::lower(paths::teile_dateipfad(path).erweiterung)) != kPictures.end();
}

void formobjektanzeigen::anzeigen(std::string_view datei, std::string_view darstellung)
{
  const std::string file(datei.empty() ? caption : datei);
  if (file == kFirstCaption)
    return;
  if (darstellung == "Bitmap" || isShownAsPicture(file))
    return showPicture(file);
  // A program that shows the file already is not started again by a change of this window.
  if (!datei.empty())
    showWithProgram(file);
}

void formobjektanzeigen::Form_Resize()
{
  if (caption != kFirstCaption)
    anzeigen({});
}

void formobjektanzeigen::unload()
{
  ++request_;
  caption = kFirstCaption;
  LabelInfo.clear();
  picture_.reset();
  shown_ = {};
  window.unload();
}

void formobjektanzeigen::showPicture(const std::string& file)
{
  const int request = ++request_;
  try {
    const auto size = Image::sizeOf(file);
    const auto shown = shownSize(size);
    auto picture = read(file, {std::min(shown.width, size.width), std::min(shown.height, size.height)});
    if (!picture || request != request_)
      return;
    const auto parts = paths::teile_dateipfad(file);
    picture_ = std::move(picture);
    shown_ = shown;
    pictureVisible_ = true;
    caption = file;
    LabelInfo = base::format("{} x {} pix: {}.{}", size.width, size.height, parts.name, parts.erweiterung);
  } catch (const base::Error&) {
    return; // The picture before it stays: people look through a folder and see which one does not show.
  }
  window.refresh();
}

/// Read beside the window, which stays alive: a large file takes its time.
std::optional<Image> formobjektanzeigen::read(const std::string& file, Size size)
{
  auto reading = std::async(std::launch::async, [&] { return Image::loadResized(file, size); });
  while (reading.wait_for(kNap) != std::future_status::ready)
    language_.ui().pumpEvents();
  return reading.get();
}

Size formobjektanzeigen::shownSize(Size picture) const
{
  if (!checkstretch)
    return picture;
  const auto room = window.room();
  const auto scaled = [](int side, int to, int from) {
    return std::max(1, static_cast<int>(std::lround(static_cast<double>(side) * to / from)));
  };
  const Size byWidth{room.width, scaled(picture.height, room.width, picture.width)};
  return byWidth.height <= room.height ? byWidth : Size{scaled(picture.width, room.height, picture.height), room.height};
}

void formobjektanzeigen::showWithProgram(const std::string& file)
{
  ++request_;
  pictureVisible_ = false;
  caption = file;
  const auto program = shell_.programFor(file);
  LabelInfo = program ? base::format("Datei wird mit {} angezeigt.", *program)
                      : language_.textOf(kMessageNoProgram, files::nativePath(file).native(), "R");
  window.refresh();
  if (program)
    shell_.open(file);
}

} // namespace mrd::pictures
