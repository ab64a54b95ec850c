#include "shop/snippets.h"

#include "base/format.h"
#include "base/text.h"

namespace mrd::shop {
namespace {

using base::format;
using base::kCrLf;

std::string_view caption(const SnippetOptions& options)
{
  if (options.isGerman)
    return options.usesBasket ? "in den Warenkorb" : "zur Bestellung";
  return options.usesBasket ? "add to basket" : "order article";
}

std::string quantityField(const SnippetOptions& options)
{
  if (!options.hasQuantityField)
    return {};
  return format("<input id='anzahl' name='anzahl' value='1' size=3>{}", options.isGerman ? " Stück&nbsp;" : " items&nbsp;");
}

std::string_view language(const SnippetOptions& options) { return options.isGerman ? "'DEU'" : "'ENG'"; }

std::string_view currency(const SnippetOptions& options) { return options.isEuro ? "'EUR'" : "'USD'"; }

std::string call(const SnippetArticle& article, const SnippetOptions& options)
{
  const std::string quantity = options.hasQuantityField ? format("document.form{}.anzahl.value", article.number) : "1";
  const std::string offer = format("{}({}, '{}', {}, {}, {}", options.usesBasket ? "artikelinwako" : "artikelbestellen",
                                   article.number, article.name, article.euro, article.dollar, quantity);
  if (options.usesBasket)
    return format("{}, {}, '{}'", offer, language(options),
                  options.isGerman ? options.germanBasketPage : options.englishBasketPage);
  return format("{}, {}, {}, {}", offer, options.shopId, language(options), currency(options));
}

} // namespace

std::string articleSnippet(const SnippetArticle& article, const SnippetOptions& options)
{
  // Each article's script makes my_onclick anew and hands it to its own button at once.
  return format("<form name='form{}' >{}, {}", article.number, article.name,
                options.isEuro ? article.euro + " EUR :&nbsp;" : article.dollar + " USD :&nbsp;") +
         quantityField(options) + format("<BUTTON type='button' name='mybutton'>{}<script>", caption(options)) +
         format(" function my_onclick() {{{}     {}); {}  }}{}", kCrLf, call(article, options), kCrLf, kCrLf) +
         format("document.form{}.mybutton.onclick = my_onclick {}</script></BUTTON></form>", article.number, kCrLf);
}

std::string basketSnippet(const SnippetOptions& options)
{
  // The paragraph that ends here has no beginning.
  return format("<b>{}: </b>{}<SCRIPT type=text/javascript><!--{}", options.isGerman ? "Inhalt" : "Content", kCrLf, kCrLf) +
         format("wakozeigen({},{},{}); {}// -->{}</SCRIPT></P>", options.shopId, language(options), currency(options), kCrLf,
                kCrLf);
}

bool hasShopScripts(std::string_view script) { return base::contains(script, "mrdshop.js"); }

std::string shopScripts()
{
  return format("{0}<SCRIPT src='mrdshop.js' type='text/javascript'></SCRIPT>{0}"
                "<SCRIPT src='cookiefunctions.js' type='text/javascript'></SCRIPT>{0}",
                kCrLf);
}

} // namespace mrd::shop
