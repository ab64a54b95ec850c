#pragma once

#include "generator/page_index.h"
#include "generator/templates/page_source.h"

#include <map>
#include <string>
#include <vector>

namespace mrd::generator {

/// The pages of a run's index as template layouts ask for them.
class SitePages : public templates::PageSource {
public:
  SitePages(const PageIndex& index, dao::Database& db);

  const std::vector<const templates::PageRow*>& level(std::string_view parent) override;
  const templates::PageRow* after(std::string_view id) override;
  const templates::PageRow* before(std::string_view id) override;
  const templates::PageRow* at(std::string_view id) override;
  templates::PageText text(std::string_view id) override;

private:
  dao::Database& db_;
  /// Shown pages by id.
  std::vector<templates::PageRow> rows_;
  std::map<std::string, std::vector<const templates::PageRow*>, std::less<>> levels_;
  const std::vector<const templates::PageRow*> noRows_;
};

} // namespace mrd::generator
