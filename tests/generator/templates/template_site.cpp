#include "generator/templates/template_site.h"

#include "base/text.h"

#include <sstream>

namespace mrd::generator {

constexpr int kTabNavigation = 1, kNoStrip = 4, kFirstUserLayout = 5;

TemplateSite::TemplateSite(std::initializer_list<support::Page> pages) : SiteRun(pages)
{
  programDirectory.write("mrddefault.css", "td {}\r\n");
  programDirectory.write("picturetransfer.js", "transfer");
  for (const auto& name : kLayoutPictures)
    programDirectory.write(name, name);
  fields.ComboGrundlayout.selectIndex(kTabNavigation);
  fields.ComboBlättern.selectIndex(kNoStrip);
  project.setSetting("KopfHTML", "Kopf");
}

void TemplateSite::useLayout(std::string_view content)
{
  useLayoutFile("eigen.xml", "<root name='Eigenes'>" + std::string(content) + "</root>");
}

void TemplateSite::useLayoutFile(std::string_view file, std::string_view bytes)
{
  programDirectory.write("xml/" + std::string(file), bytes);
  fields.ComboGrundlayout.entries.resize(kFirstUserLayout - 1);
  fields.ComboGrundlayout.entries.emplace_back("-- benutzerdefinierte Layouts --");
  fields.ComboGrundlayout.entries.push_back("Eigenes (" + std::string(file) + ")");
  fields.ComboGrundlayout.selectIndex(kFirstUserLayout);
}

std::vector<std::string> TemplateSite::shown(const std::string& file) const
{
  std::vector<std::string> out;
  std::istringstream text(base::replaceAll(page(file), "\r\n", "\n"));
  for (std::string line; std::getline(text, line);)
    if (!line.empty())
      out.push_back(line);
  return out;
}

} // namespace mrd::generator
