// Any bytes are a document: they are read, changed as a page's pictures and links are, written, and read again.

#include "platform/html/document.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using mrd::html::Document;

void require(bool condition)
{
  if (!condition)
    std::abort();
}

void changeReferences(Document& document)
{
  for (auto image : document.images())
    image.setAttribute("src", document.resolve(image.attribute("src").value_or("")));
  for (auto link : document.links())
    link.setAttribute("href", document.resolve(link.attribute("href").value_or("")));
}

void replaceParts(Document& document, std::string_view html)
{
  auto all = document.body().elementsByTag("*");
  if (all.empty())
    return;
  all[all.size() / 2].setInnerHtml(html);
  all.back().setOuterHtml(html);
  document.body().setInnerHtml(html);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  const std::string_view html(reinterpret_cast<const char*>(data), size);
  // Formatting elements that are never closed are repeated by the rules, within these bounds.
  const std::size_t bound = 100'000 + size * 1000;

  auto document = Document::fromText(html);
  changeReferences(document);
  const std::string written = document.outerHtml();
  require(written.size() <= bound);
  require(document.body().innerText().size() <= written.size() * 2 + 2);

  auto again = Document::fromText(written);
  require(again.outerHtml().size() <= bound + written.size() * 1000);

  replaceParts(document, html);
  (void)document.elementById("ueberschrift");
  (void)document.outerHtml();
  return 0;
}
