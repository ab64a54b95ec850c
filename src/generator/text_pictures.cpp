#include "generator/text_pictures.h"

#include "base/text.h"
#include "generator/picture_links.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <algorithm>

namespace mrd::generator {
namespace {

/// The quote of an attribute stands within so many characters behind its name.
constexpr std::size_t kQuoteWithin = 5;

constexpr char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

/// Finds a word (lower case) in a text, whatever the case there. It looks for the word's last letter: in pages it is the rarest
/// one of both attribute names, so that nearly all of a text is passed at the speed of a search for one character.
class WordSearch {
public:
  WordSearch(std::string_view text, std::string_view word) : text_(text), word_(word)
  {
    lower_.letter = word.back();
    upper_.letter = static_cast<char>(word.back() - ('a' - 'A'));
  }

  /// The word's next occurrence that begins at `from` or behind; `from` never goes back.
  std::size_t next(std::size_t from)
  {
    for (std::size_t last = nextLetter(from + word_.size() - 1); last != std::string_view::npos; last = nextLetter(last + 1)) {
      const std::size_t start = last + 1 - word_.size();
      if (std::ranges::equal(text_.substr(start, word_.size()), word_, {}, lowered))
        return start;
    }
    return std::string_view::npos;
  }

private:
  struct Cursor {
    char letter = '\0';
    std::size_t position = 0;
  };

  std::size_t nextLetter(std::size_t from)
  {
    for (auto* const cursor : {&lower_, &upper_})
      if (cursor->position < from)
        cursor->position = text_.find(cursor->letter, from);
    return std::min(lower_.position, upper_.position);
  }

  std::string_view text_, word_;
  Cursor lower_, upper_;
};

/// Passes over a text from attribute to attribute, in any case, and gives each value to `rewrite`. `behindName` characters behind
/// the name belong to it.
template <class Rewrite>
std::string rewriteAttributes(std::string_view text, std::string_view name, std::size_t behindName, Rewrite rewrite)
{
  WordSearch search(text, name);
  std::string done;
  done.reserve(text.size() + text.size() / 8);
  std::size_t copied = 0;
  const auto copyTo = [&](std::size_t position) {
    position = std::min(position, text.size());
    done.append(text.substr(copied, position - copied));
    copied = position;
  };
  for (std::size_t at = search.next(0); at != std::string_view::npos; at = search.next(copied)) {
    copyTo(at + name.size() + behindName);
    const std::string_view rest = text.substr(copied);
    const std::size_t quote = std::min(rest.substr(0, kQuoteWithin).find_first_of("'\""), std::min(rest.size(), kQuoteWithin));
    if (quote + 1 > kQuoteWithin)
      continue;
    const char mark = quote < rest.size() ? rest[quote] : '\0';
    copyTo(copied + quote + 1);
    const std::size_t end = std::min(text.find(mark, copied), text.size());
    done += rewrite(text.substr(copied, end - copied));
    copied = end;
    copyTo(copied + 1);
  }
  return done.append(text.substr(copied));
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
  if (files::isForeignReference(value))
    return std::string(value);
  const std::string base(basislink);
  if (value.empty() || value == "xxx" || base::contains(value, "http:"))
    return base + std::string(value);
  if (const auto settled = settled_.find(value); settled != settled_.end())
    return base + settled->second;
  return base + bringPicture(value);
}

std::string TextPictures::bringPicture(std::string_view value)
{
  auto use = pictureOf(files::pathFromReference(value));
  const std::string target = pathInPix(use, exportpfad_);
  const bool isThere = paths::datei_vorhanden(target);
  if (!isThere && paths::datei_vorhanden(sourcePath(use, exportpfad_)))
    Bildkopie(use, exportpfad_);
  else if (!isThere && bringFromLayout(use.fileName()))
    use.verzeichnis = exportpfad_ + "pix\\";
  if (!use.verzeichnis.empty())
    register_.dateiindatenbank(target, project::Dateityp::Picture);
  std::string reference = use.verzeichnis.empty() ? std::string(value) : "pix/" + use.fileName();
  if (isThere)
    settled_.emplace(value, reference);
  return reference;
}

bool TextPictures::bringFromLayout(std::string_view fileName) const
{
  const std::string ofLayout = program_.file("\\xml\\pix\\" + std::string(fileName));
  if (!paths::datei_vorhanden(ofLayout))
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
