#include "pictures/page_pictures.h"

#include "base/text.h"
#include "platform/files/path.h"

namespace mrd::pictures {

paths::PathParts localParts(std::string_view reference) { return paths::teile_dateipfad(files::pathFromReference(reference)); }

std::string pathOf(const paths::PathParts& parts) { return parts.verzeichnis + parts.name + "." + parts.erweiterung; }

std::string inPage(std::string_view text)
{
  return base::replaceAll(base::replaceAll(base::replaceAll(text, "\"", "&quot;"), "<", "&lt;"), ">", "&gt;");
}

} // namespace mrd::pictures
