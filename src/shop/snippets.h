#pragma once
// The pieces of HTML that make a page a shop page, and the tags of the scripts that they call.

#include <string>
#include <string_view>

namespace mrd::shop {

struct SnippetOptions {
  bool isGerman = true, isEuro = true;
  /// A field for the quantity; else one piece.
  bool hasQuantityField = true;
  /// Into a basket; else each article is ordered directly.
  bool usesBasket = true;
  std::string shopId;
  std::string germanBasketPage, englishBasketPage;
};

struct SnippetArticle {
  std::string number, name;
  /// With two decimals behind a point.
  std::string euro, dollar;
};

/// The form of an article with its button. The name stands in it as it is, in the script too.
std::string articleSnippet(const SnippetArticle& article, const SnippetOptions& options);
/// The view of the basket.
std::string basketSnippet(const SnippetOptions& options);

/// Whether a page's script text has the tags of the scripts.
bool hasShopScripts(std::string_view script);
/// The tags, with the line ends around them.
std::string shopScripts();

} // namespace mrd::shop
