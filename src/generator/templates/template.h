#pragma once
// A layout as a tree: each node holds two fragments of HTML, may stand for all pages of a level, and has children.

#include "generator/templates/nav_info.h"
#include "generator/templates/page_source.h"
#include "generator/templates/seiten_attribut.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::templates {

class Template;

/// An ordered collection of nodes, some of which can be found by a key.
class HTMLTemplates {
public:
  HTMLTemplates();
  ~HTMLTemplates();

  Template& Add(std::unique_ptr<Template> neuestemplate, std::string_view sKey = {});
  Template& AddNew(bool isMenuitem, std::string_view Code, std::string_view CodeActive, std::string_view TemplateName,
                   std::string_view sKey = {});
  /// By position, from 1, or by key. Throws base::Error (SubscriptOutOfRange) for what is not there.
  Template& Item(std::size_t position) const;
  Template& Item(std::string_view sKey) const;
  std::size_t Count() const { return nodes_.size(); }
  void Remove(std::size_t position);

  auto begin() const { return nodes_.begin(); }
  auto end() const { return nodes_.end(); }

private:
  std::vector<std::unique_ptr<Template>> nodes_;
  std::map<std::string, const Template*, std::less<>> keys_;
};

/// The page that is being generated, as it goes down the tree: `Seitenid` is its id everywhere; below a menu row the rest is the
/// row's.
struct TemplatePage {
  std::string Seitenid, Überschrift, html;
  int seitentyp = 1;
  std::string dateiname, script;
};

/// What rendering needs from the outside.
struct TemplateSite {
  PageSource& pages;
  /// The site's address as its field shows it.
  const std::string& tbbasisurl;
  /// Rewrites the pictures and links of the finished text; gets the base address that its links go through.
  std::function<std::string(const std::string& text, std::string_view basislink)> HTMBilderAnpassen;
};

class Template {
public:
  mrd::templates::NavInfo NavInfo;
  bool isMenuitem = false;
  /// A row counts as active also when it is an ancestor of the current page.
  bool isActiveMenuitem = false;
  /// "root" names the node that closes a page's text.
  std::string TemplateName;
  std::string CodeActive, Code;
  HTMLTemplates Children;
  /// The site's placeholders; read on the root alone.
  mrd::templates::SeitenAttribute SeitenAttribute;
  /// The page-turn style; set on the root alone.
  int Blätterntyp = 0;
  /// Children run for every row and not on the open path only.
  bool isShowChildren = false;

  bool hasChildren() const { return Children.Count() > 0; }
  /// Whether it, or a node below it, puts the values of a page into its text.
  bool closesText() const;
  /// A spare node that nothing uses, made when it is first asked for.
  Template& spare();

  /// The node's text for a page. `parent` is "00" at the top; `seitentyp` is the type that links are made by.
  std::string getHtmlZeile(const TemplatePage& page, std::string_view parent, int seitentyp, const TemplateSite& site);

  /// Replaces the placeholders of the node's own list.
  void HTMSetzeAttribute(std::string& html) const { replaceAttributes(html, SeitenAttribute); }
  /// Replaces the placeholders of a page: its strip, its values, and its link through the base address.
  void HTMSetzeInhalte(std::string& html, std::string_view Seitenid, int aktuelleSeitentypid,
                       const mrd::templates::SeitenAttribute& InhaltsAttribute, const TemplateSite& site);

private:
  /// The rows of a level, as far as they are made.
  struct MenuRows {
    std::string text;
    /// The text holds placeholders that the values of further rows fill.
    bool leftover = false;
    /// Bytes that filling them has added.
    std::size_t growth = 0;
  };

  std::string menuRows(const TemplatePage& page, std::string_view parent, int seitentyp, const TemplateSite& site);
  void appendRow(MenuRows& rows, const PageRow& row, bool active, int seitentyp, const TemplateSite& site);
  bool appendRowChildren(std::string& result, const TemplatePage& page, const PageRow& row, const TemplateSite& site);
  void closePage(std::string& result, const TemplatePage& page, int seitentyp, const TemplateSite& site);

  std::string basislink_;
  std::unique_ptr<Template> spare_;
};

} // namespace mrd::templates
