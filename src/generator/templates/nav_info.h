#pragma once
// The neighbours of a page and the strip of links to them.

#include "generator/templates/page_source.h"

#include <string>
#include <string_view>

namespace mrd::templates {

/// The address before links of a page that is read from elsewhere: types 2 and 4; empty for others.
std::string basislinkFor(int Seitentypid, std::string_view tbbasisurl);

/// One link target.
class LinkInfo {
public:
  /// Base address before the file, normally empty.
  std::string KompletterLink;
  std::string Seitenid, Überschrift;

  /// "*.htm" for an empty one, which is then kept; lower case unless it is an address of the web.
  const std::string& dateiname();
  void setDateiname(std::string_view name) { dateiname_ = name; }
  /// Base address and file name, "*" replaced by the page's id ("index" for the homepage and for none).
  std::string href();

  /// Takes over a page, or nothing; the base address stays in the second case.
  void fill(const PageRow* page, std::string_view base);

private:
  std::string dateiname_;
};

/// Which strip a site shows.
enum class Blätterntyp : int { HeadingsAfloat = 0, HeadingsFixed = 1, SymbolsAfloat = 2, SymbolsFixed = 3, None = 4 };

/// Whether the strip of a type is kept in view by a script.
constexpr bool isAfloat(int type) { return type == 0 || type == 2; }

class NavInfo {
public:
  LinkInfo Homepage, vorherige, nächste, übergeordnete;

  /// Fills the neighbours of the page ("index" for the homepage).
  void AktuelleSeitenId(std::string_view Seitenid, int Seitentypid, PageSource& pages, std::string_view tbbasisurl);
  /// The strip, in one of five styles; empty for a type that is none.
  std::string getBlätternNavigation(int Blätterntyp);

private:
  std::string kept_ = "00";
};

} // namespace mrd::templates
