#include "generator/text_pictures.h"

#include "base/text.h"
#include "generator/picture_links.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

namespace mrd::generator {
namespace {

/// The quote of an attribute stands within so many characters behind its name.
constexpr std::size_t kQuoteWithin = 5;

constexpr char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

/// Where `word` (lower case) stands in `text`, whatever the case there.
std::size_t findWord(std::string_view text, std::string_view word)
{
  const auto same = [](char a, char b) { return lowered(a) == b; };
  const char first[] = {word[0], static_cast<char>(word[0] - ('a' - 'A')), '\0'};
  for (std::size_t at = text.find_first_of(first); at != std::string_view::npos; at = text.find_first_of(first, at + 1))
    if (text.size() - at >= word.size() && std::equal(word.begin(), word.end(), text.begin() + static_cast<std::ptrdiff_t>(at),
                                                      [&](char w, char t) { return same(t, w); }))
      return at;
  return std::string_view::npos;
}

/// Passes over a text from attribute to attribute and gives each value to `rewrite`. `behindName` characters behind the name belong to it.
template <class Rewrite>
std::string rewriteAttributes(std::string_view rest, std::string_view name, std::size_t behindName, Rewrite rewrite)
{
  std::string done;
  done.reserve(rest.size() + rest.size() / 8);
  const auto move = [&](std::size_t count) {
    done.append(rest.substr(0, count));
    rest.remove_prefix(std::min(count, rest.size()));
  };
  for (std::size_t at = findWord(rest, name); at != std::string_view::npos; at = findWord(rest, name)) {
    move(at + name.size() + behindName);
    const std::size_t quote = std::min(rest.find_first_of("'\""), rest.size());
    if (quote + 1 > kQuoteWithin)
      continue;
    const char mark = quote < rest.size() ? rest[quote] : '\0';
    move(quote + 1);
    const std::size_t end = std::min(rest.find(mark), rest.size());
    done += rewrite(rest.substr(0, end));
    rest.remove_prefix(end);
    move(1);
  }
  return done.append(rest);
}

} // namespace

std::string TextPictures::HTMBilderAnpassen(std::string_view text, std::string_view basislink)
{
  const std::string pictures =
      rewriteAttributes(text, "src", 0, [&](std::string_view value) { return pictureValue(value, basislink); });
  return rewriteAttributes(pictures, "href", 1, [&](std::string_view value) { return linkValue(value, basislink); });
}

std::string TextPictures::pictureValue(std::string_view value, std::string_view basislink)
{
  const std::string base(basislink);
  if (files::isForeignReference(value))
    return std::string(value);
  if (value.empty() || value == "xxx" || base::contains(value, "http:"))
    return base + std::string(value);
  auto use = pictureOf(files::pathFromReference(value));
  const std::string target = pathInPix(use, exportpfad_);
  if (paths::datei_vorhanden(sourcePath(use, exportpfad_)) && !paths::datei_vorhanden(target))
    Bildkopie(use, exportpfad_);
  else if (bringFromLayout(use.fileName(), target))
    use.verzeichnis = exportpfad_ + "pix\\";
  if (use.verzeichnis.empty())
    return base + std::string(value);
  register_.dateiindatenbank(target, project::Dateityp::Picture);
  return base + "pix/" + use.fileName();
}

bool TextPictures::bringFromLayout(std::string_view fileName, std::string_view target) const
{
  const std::string ofLayout = program_.file("\\xml\\pix\\" + std::string(fileName));
  if (paths::datei_vorhanden(target) || !paths::datei_vorhanden(ofLayout))
    return false;
  files::copyFile(ofLayout, exportpfad_ + "pix\\" + std::string(fileName));
  return true;
}

std::string TextPictures::linkValue(std::string_view value, std::string_view basislink)
{
  std::string link(value);
  if (files::isForeignReference(value))
    return link;
  if (base::contains(value, "file:")) {
    const auto [prefix, reference, suffix] = splitLinkAsWritten(value);
    const auto use = pictureOf(files::pathFromReference(base::lower(reference)));
    Bildkopie(use, exportpfad_);
    register_.dateiindatenbank(pathInPix(use, exportpfad_), project::Dateityp::Picture);
    const bool isPopup = base::contains(prefix, "popup");
    if (!isPopup && !tbbasisurl_.ends_with('/'))
      tbbasisurl_ += '/';
    link = prefix + (isPopup ? "" : tbbasisurl_) + "pix/" + use.fileName() + suffix;
  }
  const bool asItIs = base::contains(link, basislink) || base::contains(link, "http://") || link.starts_with('#');
  return asItIs ? link : std::string(basislink) + link;
}

} // namespace mrd::generator
