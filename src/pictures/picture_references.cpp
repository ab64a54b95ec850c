#include "pictures/picture_references.h"

#include "base/text.h"
#include "platform/files/path.h"
#include "platform/html/attribute_places.h"

#include <algorithm>
#include <array>

namespace mrd::pictures {
namespace {

using html::AttributePlace;

constexpr std::string_view kFileScheme = "file:";
constexpr std::array<std::string_view, 16> kPictureEndings{"bmp", "emf", "gif", "ico", "jfif", "jpe", "jpeg", "jpg",
                                                           "pcx", "png", "psd", "svg", "tga",  "tif", "tiff", "webp"};
constexpr std::array<std::string_view, 3> kImageAttributes{"src", "lowsrc", "dynsrc"};
/// What a quote around a script's argument looks like inside of an attribute.
constexpr std::array<std::string_view, 6> kQuotes{"'", "\"", "&#39;", "&#x27;", "&apos;", "&quot;"};

bool namesPicture(std::string_view path)
{
  const auto dot = path.find_last_of(".\\");
  if (dot == std::string_view::npos || path[dot] != '.')
    return false;
  const auto ending = base::lower(path.substr(dot + 1));
  return std::ranges::find(kPictureEndings, ending) != kPictureEndings.end();
}

/// An image shows its file whatever its ending is.
bool isImage(const AttributePlace& place)
{
  if (place.name == "background")
    return true;
  return (place.tag == "img" || place.tag == "input") &&
         std::ranges::find(kImageAttributes, place.name) != kImageAttributes.end();
}

bool isLocal(std::string_view written)
{
  return !written.empty() && !written.starts_with("//") && !written.starts_with('#') && !files::isForeignReference(written) &&
         !base::containsIgnoringCase(written, "http:") && !base::contains(written, "[mrd:");
}

std::size_t findFileScheme(std::string_view text, std::size_t from)
{
  for (auto colon = text.find(':', from); colon != std::string_view::npos; colon = text.find(':', colon + 1)) {
    const auto begin = colon + 1 - std::min(colon + 1, kFileScheme.size());
    if (begin >= from && base::lower(text.substr(begin, colon + 1 - begin)) == kFileScheme)
      return begin;
  }
  return std::string_view::npos;
}

/// Where a reference ends that begins at `begin` of a value and does not fill it: at the quote that it began with, at the bracket
/// of a style, else at any quote.
std::size_t endOfArgument(std::string_view value, std::size_t begin)
{
  const auto before = value.substr(0, begin);
  for (const auto quote : kQuotes)
    if (before.ends_with(quote))
      return std::min(value.find(quote, begin), value.size());
  if (before.ends_with('('))
    return std::min(value.find(')', begin), value.size());
  std::size_t end = value.size();
  for (const auto quote : kQuotes)
    end = std::min(end, value.find(quote, begin));
  return end;
}

class Finder {
public:
  explicit Finder(std::string_view html) : html_(html) {}

  std::vector<PictureReference> run()
  {
    for (const auto& place : html::attributePlaces(html_))
      if (!addWhole(place))
        addArguments(place);
    return std::move(found_);
  }

private:
  /// False when the value as a whole is no reference to a picture.
  bool addWhole(const AttributePlace& place)
  {
    const bool image = isImage(place);
    const auto value = html_.substr(place.begin, place.end - place.begin);
    const bool isReference = image || place.name == "href" || findFileScheme(value, 0) == 0;
    return isReference && add(place, place.begin, place.end, image);
  }

  void addArguments(const AttributePlace& place)
  {
    const auto value = html_.substr(place.begin, place.end - place.begin);
    for (auto begin = findFileScheme(value, 0); begin != std::string_view::npos;) {
      const auto end = endOfArgument(value, begin);
      add(place, place.begin + begin, place.begin + end, false);
      begin = findFileScheme(value, end);
    }
  }

  bool add(const AttributePlace& place, std::size_t begin, std::size_t end, bool isSurelyPicture)
  {
    auto written = html::attributeText(html_.substr(begin, end - begin));
    if (!isLocal(written) || base::lower(written).starts_with("javascript:"))
      return false;
    auto path = files::pathFromReference(written);
    if (path.ends_with('\\') || path.empty() || !(isSurelyPicture || namesPicture(path)))
      return false;
    found_.push_back({begin, end, place.quote == 0, std::move(written), std::move(path)});
    return true;
  }

  std::string_view html_;
  std::vector<PictureReference> found_;
};

} // namespace

std::vector<PictureReference> pictureReferences(std::string_view html) { return Finder(html).run(); }

bool isAbsolutePath(std::string_view path) { return path.starts_with('\\') || (path.size() > 1 && path[1] == ':'); }

} // namespace mrd::pictures
