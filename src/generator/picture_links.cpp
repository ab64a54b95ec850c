#include "generator/picture_links.h"

#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <algorithm>

namespace mrd::generator {
namespace {

constexpr std::string_view kFileScheme = "file:";
constexpr std::string_view kHttpScheme = "http:";
constexpr std::size_t kFileSchemeWithSlashes = 7;
/// Characters of a link's path and of what follows its quote that are looked at.
constexpr std::size_t kLinkWindow = 250;

void rewriteImage(html::Element& image, const html::Document& document, FoundPictures& found)
{
  const std::string written = image.attribute("src").value_or("");
  if (written.empty() || files::isForeignReference(written))
    return;
  const std::string src = document.resolve(written);
  if (base::contains(src, kHttpScheme))
    return;
  auto use = pictureOf(files::pathFromReference(src), true);
  image.setAttribute("src", "pix/" + use.fileName());
  found.uses.push_back(std::move(use));
}

/// Whether a link shows a picture: it names a JPEG, or a script gets a local path in single quotes.
bool leadsToPicture(std::string_view href)
{
  return base::containsIgnoringCase(href, "jpg") || (base::contains(href, kFileScheme) && base::contains(href, "'"));
}

void rewriteLink(html::Element& link, const html::Document& document, LinkAddresses& addresses, FoundPictures& found)
{
  const std::string written = link.attribute("href").value_or("");
  if (!leadsToPicture(written) || files::isForeignReference(written))
    return;
  const std::string href = document.resolve(written);
  // A quote ends a path that is a script's argument. In a reference without a scheme it is a letter of the path.
  const auto [prefix, reference, suffix] = base::contains(written, kFileScheme) ? splitLink(href) : LinkPieces{"", href, ""};
  const bool enter = !base::contains(href, kHttpScheme);
  auto use = pictureOf(files::pathFromReference(reference), enter);
  if (enter && !addresses.tbbasisurl.ends_with('/')) {
    addresses.tbbasisurl += '/';
    found.slashAppended = true;
  }
  // The picture service reads a picture from outside and needs its full address.
  const bool fullAddress = base::contains(prefix, "picturetrans");
  found.dependsOnMissingSlash |= fullAddress && !addresses.tbbasisurl.ends_with('/');
  link.setAttribute("href",
                    prefix + (fullAddress ? addresses.tbbasisurl : addresses.basislink) + "pix/" + use.fileName() + suffix);
  found.uses.push_back(std::move(use));
}

/// `rest` stands behind "file://"; `root` is what of the path's root is not in it.
LinkPieces piecesOf(std::string_view prefix, std::string_view root, std::string_view rest)
{
  const std::string_view window = base::left(rest, kLinkWindow);
  const auto quote = window.find('\'');
  return {std::string(prefix), base::format("{}//{}{}", kFileScheme, root, window.substr(0, quote)),
          quote == std::string_view::npos ? "" : std::string(window.substr(quote))};
}

} // namespace

PictureUse pictureOf(std::string_view path, bool enter)
{
  auto parts = paths::teile_dateipfad(path);
  return {std::move(parts.verzeichnis), std::move(parts.name), std::move(parts.erweiterung), enter};
}

LinkPieces splitLink(std::string_view href)
{
  constexpr std::string_view kRooted = "///";
  // Three slashes count as two wherever they stand, also in the words behind the path; the root that one of them is comes back
  // below.
  const std::string shortened = base::replaceAll(href, kRooted, "//");
  const auto scheme = href.find(kFileScheme);
  if (scheme == std::string_view::npos)
    return {"", shortened, ""};
  const std::string root = href.substr(scheme + kFileScheme.size()).starts_with(kRooted) ? "/" : "";
  const auto start = shortened.find(kFileScheme);
  const std::string_view rest = std::string_view(shortened).substr(start + kFileScheme.size());
  const bool hasAuthority = rest.starts_with("//") || rest.starts_with("\\\\");
  return piecesOf(shortened.substr(0, start), root, rest.substr(hasAuthority ? 2 : 0));
}

LinkPieces splitLinkAsWritten(std::string_view value)
{
  const auto scheme = std::min(value.find(kFileScheme), value.size());
  return piecesOf(value.substr(0, scheme), "", value.substr(std::min(scheme + kFileSchemeWithSlashes, value.size())));
}

std::string sourcePath(const PictureUse& use, std::string_view exportpfad)
{
  const std::string path = use.verzeichnis + use.name + "." + use.erweiterung;
  const bool absolute = path.starts_with('\\') || (path.size() > 1 && path[1] == ':');
  return absolute ? path : std::string(exportpfad) + "pix\\" + path;
}

std::string pathInPix(const PictureUse& use, std::string_view exportpfad)
{
  return std::string(exportpfad) + "pix\\" + use.name + "." + use.erweiterung;
}

std::string PictureUse::fileName() const { return base::lower(name + "." + erweiterung); }

FoundPictures findebilder(html::Document& document, LinkAddresses addresses)
{
  FoundPictures found;
  for (auto& image : document.images())
    rewriteImage(image, document, found);
  for (auto& link : document.links())
    rewriteLink(link, document, addresses, found);
  return found;
}

void Bildkopie(const PictureUse& use, std::string_view exportpfad)
{
  const std::string source = sourcePath(use, exportpfad);
  if (!paths::datei_vorhanden(pathInPix(use, exportpfad)) && paths::datei_vorhanden(source))
    files::copyFile(source, std::string(exportpfad) + "pix\\" + use.fileName());
}

void bringPictures(const std::vector<PictureUse>& uses, std::string_view exportpfad, project::FileRegister& fileRegister)
{
  for (const auto& use : uses) {
    Bildkopie(use, exportpfad);
    if (use.enter)
      fileRegister.dateiindatenbank(pathInPix(use, exportpfad), project::Dateityp::Picture);
  }
}

} // namespace mrd::generator
