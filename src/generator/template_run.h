#pragma once
// A generation run in a layout that is a tree of templates.

#include "generator/generation_run.h"
#include "generator/site_pages.h"
#include "generator/templates/template.h"
#include "generator/text_pictures.h"

#include <memory>
#include <string>

namespace mrd::generator {

/// The layout's name: of a built-in tree by the entry's index, else the file name in the entry's text "name (file)".
std::string layoutName(const settings::ComboBox& ComboGrundlayout);

/// German umlauts as entities, everywhere in a finished page.
std::string wandelUmlaute(std::string_view text);

class TemplateRun : public GenerationRun {
public:
  explicit TemplateRun(const RunJob& job);

private:
  void bringSiteFiles() override;
  void generatePages(dao::Recordset& pages) override;
  void closeRun() override;

  std::unique_ptr<templates::Template> LadeTemplate(std::string_view Grundlayout);
  templates::SeitenAttribute siteList() const;
  std::string scriptBlock() const;
  void erzeugeStylesheet(const templates::SeitenAttribute& site);
  void addTree(templates::Template& root, std::string_view Grundlayout) const;
  void addUserLayout(templates::Template& root, std::string_view file) const;
  std::string fileFor(const RunPage& page) const;
  void generatePage(const RunPage& page);

  SitePages pages_;
  TextPictures pictures_;
  std::unique_ptr<templates::Template> root_;
  std::string bytes_;
};

} // namespace mrd::generator
