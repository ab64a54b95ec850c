#pragma once
// A site's pages in memory, and trees made of one line a node.

#include "generator/templates/template.h"

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::templates {

constexpr int kBlindPage = 3;

/// Pages in the order of their ids. Blind ones are in no menu and are no neighbours.
class PageList : public PageSource {
public:
  PageList(std::initializer_list<PageRow> rows);

  /// Before the list is first asked; ids ascend.
  void add(const PageRow& row) { rows_.push_back(row); }

  const std::vector<const PageRow*>& level(std::string_view parent) override;
  const PageRow* after(std::string_view id) override;
  const PageRow* before(std::string_view id) override;
  const PageRow* at(std::string_view id) override;
  PageText text(std::string_view id) override;
  /// Any page, a blind one too; throws for one that is not there.
  const PageRow& find(std::string_view id) const;

  /// Html of all pages but the one that is generated.
  std::string html;

private:
  std::vector<PageRow> rows_;
  std::map<std::string, std::vector<const PageRow*>, std::less<>> levels_;
};

/// Child of `parent`; `flags` as in "M A S".
Template& addNode(Template& parent, std::string_view flags, std::string_view Code, std::string_view CodeActive = {},
                  std::string_view TemplateName = {});

/// Renders trees for the pages of a list.
struct Rendering {
  explicit Rendering(std::initializer_list<PageRow> rows) : pages(rows) { root.TemplateName = "root"; }

  PageList pages;
  Template root;
  std::string tbbasisurl = "http://x.example/";
  /// What the pictures were to be rewritten in, and the address for it.
  std::vector<std::string> pictureTexts, pictureLinks;

  /// The text of a node for a page of the list.
  std::string of(Template& node, std::string_view id, std::string_view html = {}, std::string_view script = {});
  /// The root's text line by line, without the empty lines.
  std::vector<std::string> lines(std::string_view id, std::string_view html = {}, std::string_view script = {});
};

} // namespace mrd::templates
