#include "imode/imode_site.h"

#include "base/format.h"
#include "base/text.h"

namespace mrd::imode {

generator::RunOutcome ImodeSite::run()
{
  ImodeExport dialog({program, language, fields, clock, shell});
  return runIn(dialog);
}

std::string ImodeSite::body(const std::string& file) const
{
  return generator::between(page(file), "<!-- Beginn Inhalt -->\r\n", "\r\n<!-- Ende Inhalt -->\r\n\r\n");
}

std::string ImodeSite::menu(const std::string& file) const
{
  const auto menu = generator::between(page(file), "<!-- def15 --><br>\r\n", "\r\n<!-- def16 -->");
  return menu.substr(menu.find("<br>") + 4);
}

std::vector<std::string> ImodeSite::keys(const std::string& file) const
{
  return generator::allBetween(generator::between(page(file), "<!-- def16 --><br>", "</font>"), "<a href='", "'");
}

std::vector<std::string> ImodeSite::entered(std::int64_t type)
{
  auto files = SiteRun::entered(type);
  for (auto& file : files)
    if (constexpr std::string_view kEdition = "imode\\"; file.starts_with(kEdition))
      file = file.substr(kEdition.size());
  return files;
}

std::string ImodeSite::picture(const std::string& name, int width, int height) const
{
  auto picture = image::Image::create(width, height);
  picture.fill({255, 128, 0});
  picture.saveJpeg(pictures.file(name), 20);
  return pictures.file(name);
}

std::string image(std::string_view src) { return base::format("<img src=\"{}\">", src); }

} // namespace mrd::imode
