#include "frame/paths/page_file.h"

#include "base/text.h"

namespace mrd::paths {

std::string fileOfPattern(std::string_view pattern, std::string_view id)
{
  return base::replaceAll(pattern.empty() ? kDefaultPattern : pattern, "*", id);
}

std::string_view writtenPattern(std::string_view pattern)
{
  return pattern.empty() || pattern.starts_with("http") ? kDefaultPattern : pattern;
}

std::string basislinkOf(std::string_view tbbasisurl)
{
  std::string link(tbbasisurl);
  if (!link.ends_with('/'))
    link += '/';
  return base::lower(link).starts_with("http") ? link : "http://" + link;
}

} // namespace mrd::paths
