#pragma once
// One page of a layout of rows: the steps of the layout in their order, in one reused buffer.

#include "base/clock.h"
#include "frame/settings/fields.h"
#include "generator/body_rewriter.h"
#include "generator/generation_run.h"
#include "generator/navigation_menu.h"
#include "generator/page_index.h"
#include "generator/row_layout.h"

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::generator {

/// What the pass needs of its run besides the page.
struct SiteContext {
  const settings::Fields& fields;
  const PageIndex& index;
  base::DateTime now;
  /// Id, heading and file of the homepage.
  PageLink homepage;
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

/// What of a page needs files and tables: the run does it when the page comes to it. Texts are output bytes.
class PageParts {
public:
  virtual ~PageParts() = default;

  virtual void bringPopupPage() = 0;
  virtual void bringPictureTransferScript() = 0;
  /// Brings the pictures of the shared head and appends it, its line end included.
  virtual void appendSharedHead(std::string& out, std::string_view basislink) = 0;
  /// Brings the pictures of a body and gives it as it goes out, valid until the next call.
  virtual std::string_view bringBody(const RewrittenBody& body) = 0;
};

/// Whether a page's output holds server-side code, which the HTML parser would destroy.
bool hasServerCode(std::string_view dateiname);

class PageAssembly {
public:
  PageAssembly(SiteContext site, RowLayout layout);
  ~PageAssembly();

  /// The page's bytes, valid until the next call. `body` is null for a page with server-side code, whose html goes out raw.
  std::string_view assemble(const RunPage& page, std::string_view basislink, const RewrittenBody* body, const PageLink& parent,
                            PageParts& parts);

private:
  /// All that looks the same on every page with one base address, in output bytes.
  struct Frame;
  /// The page at hand.
  struct Work;
  const Frame& frameFor(std::string_view basislink);
  std::string fixedText(const RowStep& step, std::string_view basislink) const;
  std::string documentHead(std::size_t row, std::string_view basislink) const;
  std::string plainRow(std::size_t row, std::string_view basislink) const;
  std::string homepageEntry(std::size_t row, std::string_view basislink) const;

  void print(std::string_view text);
  void printStep(const RowStep& step, Work& work);
  void printScripts(const Work& work);
  void printTitle(std::size_t row, const Work& work);
  void printBody(const Work& work);
  void printPageTurn(std::size_t row, const Work& work);

  SiteContext site_;
  RowLayout layout_;
  std::map<std::string, std::unique_ptr<Frame>, std::less<>> frames_;
  std::string buffer_;
};

} // namespace mrd::generator
