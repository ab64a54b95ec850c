#include "generator/shared_head.h"

#include "base/text.h"
#include "base/windows1252.h"
#include "generator/placeholders.h"

namespace mrd::generator {

const RewrittenBody& SharedHead::forPagesWith(std::string_view basislink)
{
  std::string& tbbasisurl = fields_.tbbasisurl;
  const auto [entry, isNew] = known_.try_emplace({std::string(basislink), tbbasisurl});
  RewrittenBody& head = entry->second;
  if (isNew)
    head = rewrite(basislink);
  if (head.found.slashAppended && !tbbasisurl.ends_with('/'))
    tbbasisurl += '/';
  return head;
}

RewrittenBody SharedHead::rewrite(std::string_view basislink) const
{
  RewrittenBody head;
  auto document = html::Document::fromText(html_);
  head.found = findebilder(document, {exportpfad_, std::string(basislink), fields_.tbbasisurl});
  // The colours go in before the head does: a placeholder that the author wrote into the head stays as it stands.
  const std::string filled = base::replaceAll(farbzuweisung(row_, fields_), "[mrd:Kopf]", document.body().innerHtml());
  head.bytes = base::toWindows1252(mitbasis(filled, basislink).append(base::kCrLf));
  return head;
}

} // namespace mrd::generator
