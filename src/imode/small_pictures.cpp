#include "imode/small_pictures.h"

#include "base/errors.h"
#include "base/text.h"
#include "pictures/thumbnails.h"

namespace mrd::imode {
namespace {

using pictures::telephoneName;

/// Two pictures with the same key share a small GIF.
std::string keyOf(std::string_view path) { return base::lower(telephoneName(path)); }

} // namespace

SmallPictures::SmallPictures(const settings::Fields& fields, generator::WorkerPool& workers, ui::Ui& ui)
    : fields_(std::make_shared<const settings::Fields>(fields)), workers_(workers), ui_(ui)
{
}

SmallPictures::Made SmallPictures::make(const std::string& path, const settings::Fields& fields)
{
  try {
    return {pictures::vorschaubild_gif(path, fields), ""};
  } catch (const base::Error& error) {
    return {std::nullopt, error.description()};
  }
}

SmallPictures::Work SmallPictures::submit(const std::string& path)
{
  return workers_.submit([path, fields = fields_] { return make(path, *fields); }).share();
}

void SmallPictures::begin(const std::string& path)
{
  // A second picture of the name waits until it is known what became of the first: the file may be there then.
  if (firstOf_.try_emplace(keyOf(path), path).second)
    begun_.emplace(path, submit(path));
}

std::optional<std::string> SmallPictures::nameOf(const std::string& path)
{
  const std::string key = keyOf(path);
  if (there_.contains(key))
    return telephoneName(path);
  begin(path);
  begun_.at(firstOf_.at(key)).wait();
  if (!begun_.contains(path))
    begun_.emplace(path, submit(path));
  const Made& made = begun_.at(path).get();
  if (made.name == telephoneName(path))
    there_.insert(key);
  if (!made.name && warnedOf_.insert(path).second)
    ui_.warning(made.problem);
  return made.name;
}

} // namespace mrd::imode
