#pragma once
// All pages of a site as a run needs them for menus and links, read once per run.

#include "platform/dao/database.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::generator {

/// Values of the column `seitentyp-id`.
enum class Seitentyp : int { Normal = 1, External = 2, Blind = 3, Auction = 4 };

struct IndexedPage {
  std::string id;
  std::string Überschrift;
  /// File name pattern as stored; empty for Null.
  std::string dateiname;
  /// Nothing for Null.
  std::optional<int> seitentyp;

  /// Whether menus and page-turn strips may show it: it has a type, and is not blind.
  bool isShown() const { return seitentyp && *seitentyp != static_cast<int>(Seitentyp::Blind); }
};

inline constexpr std::string_view kHomepageId = "00";
inline constexpr std::string_view kHomepageName = "Homepage";
inline constexpr std::size_t kMenuLevels = 4;

/// Menu levels are ordered by id as the database orders text; blind pages and pages without a type are in no menu.
class PageIndex {
public:
  explicit PageIndex(dao::Database& db);
  PageIndex(const PageIndex&) = delete;
  PageIndex& operator=(const PageIndex&) = delete;

  /// First page with the id.
  const IndexedPage* find(std::string_view id) const;
  /// All pages.
  const std::vector<IndexedPage>& pages() const { return pages_; }
  /// Menu pages of a level, from 0 for the top one.
  const std::vector<const IndexedPage*>& level(std::size_t level) const { return levels_[level]; }

private:
  std::vector<IndexedPage> pages_;
  std::array<std::vector<const IndexedPage*>, kMenuLevels> levels_;
};

} // namespace mrd::generator
