#pragma once
// One page of the built-in layout: rows 1 to 17 of the row table in their order, in one reused buffer.

#include "base/clock.h"
#include "frame/settings/fields.h"
#include "generator/body_rewriter.h"
#include "generator/generation_run.h"
#include "generator/navigation_menu.h"
#include "generator/page_index.h"
#include "generator/row_table.h"

#include <array>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrd::generator {

/// What the pass needs of its run besides the page.
struct SiteContext {
  /// Its `tbbasisurl` gets a "/" at its end when the head has a link to a picture.
  settings::Fields& fields;
  const PageIndex& index;
  base::DateTime now;
  /// Id, heading and file of the homepage.
  PageLink homepage;
  /// HTML of the shared head, before any rewriting.
  std::string head;
  std::string exportpfad;
};

/// The last page of each level that the run took up: what a page takes for its parent. Level 0 is the homepage.
class Ancestors {
public:
  explicit Ancestors(const PageLink& homepage);
  void takeUp(const RunPage& page, std::string_view file);
  /// File and heading at the level above the page; empty texts where nothing was taken up.
  const PageLink& parentOf(std::string_view id) const;

private:
  static constexpr std::size_t kLevels = 5;
  std::array<PageLink, kLevels> levels_;
  PageLink none_;
};

/// Effects of a page that need files and tables, called in the order of the rows.
struct PageEffects {
  std::function<void()> popupPage;
  std::function<void()> pictureTransferScript;
  std::function<void(const std::vector<PictureUse>&)> headPictures;
  std::function<void(const std::vector<PictureUse>&)> bodyPictures;
};

/// Whether a page's output holds server-side code, which the HTML parser would destroy.
bool hasServerCode(std::string_view dateiname);

class PageAssembly {
public:
  explicit PageAssembly(SiteContext site);
  ~PageAssembly();

  /// The page's bytes, valid until the next call. `body` is null for a page with server-side code, whose html goes out raw.
  std::string_view assemble(const RunPage& page, std::string_view basislink, const RewrittenBody* body, const PageLink& parent,
                            const PageEffects& effects);

private:
  /// All that looks the same on every page with one base address, in output bytes.
  struct Frame;
  const Frame& frameFor(std::string_view basislink);
  /// Row 8 and the pictures in it.
  const RewrittenBody& sharedHeadFor(std::string_view basislink);

  std::string documentHead(std::string_view basislink) const;
  std::string defaultRows(std::initializer_list<std::size_t> rows, std::string_view basislink) const;
  std::string homepageEntry(std::size_t row, std::string_view basislink) const;

  void print(std::string_view text);
  void printScripts(const RunPage& page, std::string_view basislink, const PageEffects& effects);
  void printTitle(const RunPage& page, std::string_view basislink);
  void printBody(const RunPage& page, std::string_view basislink, const RewrittenBody* body);
  void printPageTurn(const RunPage& page, std::string_view basislink, const MenuNeighbours& neighbours, const PageLink& parent);

  SiteContext site_;
  RowTable rows_;
  std::map<std::string, std::unique_ptr<Frame>, std::less<>> frames_;
  std::map<std::pair<std::string, std::string>, RewrittenBody> sharedHeads_;
  std::string buffer_;
};

} // namespace mrd::generator
